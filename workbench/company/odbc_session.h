// One login to a server: connects once, runs texts, ends transactions. Every call that may wait for
// the server has a time limit, also with drivers that know none: a server that does not answer
// within it has lost the session.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "workbench/company/connection.h"
#include "workbench/company/odbc_handle.h"

namespace workbench::odbc {

// The handles of a login. A call that never returns keeps them.
struct Link {
  Link();
  ~Link() { Disconnect(); }
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  void Disconnect() noexcept;

  Handle environment;
  Handle connection;
  bool isConnected = false;
  bool inTransaction = false;
  SQLUINTEGER usualIsolation = 0;  // to be restored after the transaction; 0: nothing
  std::atomic<bool> isHanging = false;
  std::atomic<bool> isLost = false;    // unusable, but its calls return
  std::atomic<unsigned> progress = 0;  // counts what the server has sent during a call
};

// A statement of a link. On a hanging one it is freed with the connection.
class Statement {
 public:
  // Throws DatabaseError.
  explicit Statement(std::shared_ptr<Link> link);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  SQLHSTMT Get() const noexcept { return handle_; }

 private:
  std::shared_ptr<Link> link_;
  SQLHSTMT handle_ = SQL_NULL_HANDLE;
};

class Session {
 public:
  // Throws DatabaseError, without passwords. The options outlive the session.
  Session(std::string_view connectionString, const ConnectOptions& options);
  // Rolls back a transaction that is still open.
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Sends the text as it is and returns the first result with columns.
  ResultSet Execute(std::u16string_view text);
  // Queries the server; false when the connection is lost.
  bool Answers() noexcept;

  enum class Isolation { Default, Serializable };
  void Begin(Isolation isolation);
  // Both leave the session without a transaction, also when they fail. A rollback that fails loses
  // the session.
  void Commit();
  void Rollback() noexcept;

  // As the driver names it: "Microsoft SQL Server".
  std::u16string ServerProduct();

  // A new statement with the time limit of the options, if the driver supports it.
  std::shared_ptr<Statement> NewStatement() const;
  // Runs `call`, which owns all that it uses, within the time limit of a statement. Throws what it
  // throws, and DatabaseError when the server does not answer.
  void Run(std::function<void()> call);

 private:
  ResultSet Execute(std::u16string_view text, std::chrono::seconds limit,
                    const std::function<bool()>& cancels);
  void Run(std::function<void()> call, std::chrono::seconds limit,
           const std::function<bool()>& cancels = {}, const std::function<void()>& cancel = {});
  // Throws DatabaseError when the session is lost.
  void RequireLink() const;

  const ConnectOptions& options_;
  std::shared_ptr<Link> link_;
};

}  // namespace workbench::odbc
