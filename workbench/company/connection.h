// A connection to a company database of either engine: statement texts in, whole results out.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <variant>

#include "workbench/company/database_error.h"
#include "workbench/company/result_set.h"

namespace workbench {

// A value of a row to insert; texts in UTF-8, borrowed for the call.
using InsertValue = std::variant<std::monostate, std::int64_t, double, std::string_view>;

// Inserts many rows of one table through one prepared statement.
class RowInserter {
 public:
  virtual ~RowInserter() = default;

  // One value per column. The row may be batched until Finish. Throws DatabaseError.
  virtual void Insert(std::span<const InsertValue> row) = 0;
  // Sends the pending rows. Throws DatabaseError.
  virtual void Finish() = 0;
};

// For one thread. Nothing stays open between calls, so that a result may be read and further
// texts executed in any order.
class Connection {
 public:
  virtual ~Connection() = default;

  // Runs the text, which is written for SQL Server and may hold several statements, and returns
  // the result of its first query; without columns where it holds none. A text that cannot be
  // read changes nothing; a statement that fails while running leaves those before it done.
  // Throws DatabaseError.
  virtual ResultSet Execute(std::u16string_view text) = 0;

  // A transaction of the caller's own, which holds until Commit or Rollback. One at a time; use
  // Transaction. Begin and Commit throw DatabaseError.
  virtual void Begin() = 0;
  virtual void Commit() = 0;
  virtual void Rollback() noexcept = 0;

  // Column names separated by ",". Rows of an inserter whose connection was lost are refused, also
  // when texts run on a new one. The connection outlives the inserter. Throws DatabaseError.
  virtual std::unique_ptr<RowInserter> PrepareInsert(std::string_view table,
                                                     std::string_view columns) = 0;

  // The company's tables, empty, and the indexes that the library's statements rely on; filling
  // first and indexing afterwards is far quicker. Call them inside a transaction. Throw SchemaError
  // or DatabaseError.
  virtual void CreateTables() = 0;
  virtual void CreateIndexes() = 0;

  // Throws SchemaError when the database is no company, or one of another version.
  virtual void RequireCompany() = 0;
};

// Rolls back at its end unless Commit was called.
class Transaction {
 public:
  // Throws DatabaseError.
  explicit Transaction(Connection& connection) : connection_(connection) { connection_.Begin(); }
  ~Transaction() {
    if (open_) connection_.Rollback();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  // Throws DatabaseError; the transaction is then undone.
  void Commit() {
    connection_.Commit();
    open_ = false;
  }

 private:
  Connection& connection_;
  bool open_ = true;
};

enum class OpenMode {
  ReadOnly,   // a file is not written; a server gets a read-only connection
  ReadWrite,  // for one program that loads data
  Shared,     // for several programs at a time: a file's readers and writer do not wait
};

struct ConnectOptions {
  OpenMode mode = OpenMode::Shared;
  // For servers; 0 waits forever. A driver that does not end a call itself gets two seconds more:
  // then the connection is given up.
  std::chrono::seconds loginTimeout{15};
  std::chrono::seconds statementTimeout{60};
  // Polled on the caller's thread while a statement runs; once it returns true, the statement is
  // cancelled if the driver supports that. May be empty. Must not throw.
  std::function<bool()> cancels = {};
  // Called on the caller's thread when a statement that was to be cancelled has ended, in whatever
  // way. May be empty. Must not throw.
  std::function<void()> afterCancel = {};
};

// `location`, in UTF-8: an ODBC connection string (location.h) or else the path of an existing
// company file. Throws DatabaseError, whose text holds no password.
std::unique_ptr<Connection> OpenConnection(std::string_view location, ConnectOptions options = {});

}  // namespace workbench
