// One login to a server: connects once, runs texts, ends transactions.
#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>

#include "workbench/company/connection.h"
#include "workbench/company/odbc_handle.h"

namespace workbench::odbc {

class Session {
 public:
  // Throws DatabaseError, without passwords. The options outlive the session.
  Session(std::string_view connectionString, const ConnectOptions& options);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Sends the text as it is and returns the first result with columns.
  ResultSet Execute(std::u16string_view text);
  // Queries the server; false when the connection is lost.
  bool Answers() noexcept;

  enum class Isolation { Usual, Serializable };
  void Begin(Isolation isolation);
  // Both leave the session without a transaction, also when they fail.
  void Commit();
  void Rollback() noexcept;

  // As the driver names it: "Microsoft SQL Server".
  std::u16string ServerProduct();
  SQLHDBC Get() const noexcept { return connection_.Get(); }
  // Sets the time limit of the options, if the driver supports it.
  void LimitTime(SQLHSTMT statement) const noexcept;

 private:
  ResultSet Run(std::u16string_view text, std::chrono::seconds limit,
                const std::function<bool()>& cancels);
  bool IsKnownDead() const noexcept;
  void SetAutocommit(bool on);
  void SetIsolation(Isolation isolation) noexcept;

  const ConnectOptions& options_;
  Handle environment_;
  Handle connection_;
  bool connected_ = false;
};

}  // namespace workbench::odbc
