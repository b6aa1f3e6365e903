// A company on a real server, reached through ODBC: the texts go to it untouched.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/company/connection.h"

namespace workbench {

// The text of a DatabaseError that the driver reports begins with the SQLSTATE in brackets; that of
// a failed login says so first.
//
// Before each text outside a transaction the connection is tested and, if it is lost, reopened
// once. A text that was sent is never sent again after a lost connection, because it may have been
// carried out. A text with several changes runs in one serializable transaction, which is
// committed also when a later statement fails: what the server has not undone stays. A statement
// that is cancelled or hits its time limit undoes the whole text. Where the server undid all of it
// because of another transaction, it is sent again, a few times.
class OdbcConnection final : public Connection {
 public:
  // `connectionString` in UTF-8. Throws DatabaseError.
  OdbcConnection(std::string_view connectionString, ConnectOptions options);
  ~OdbcConnection() override;

  ResultSet Execute(std::u16string_view text) override;
  void Begin() override;
  void Commit() override;
  void Rollback() noexcept override;
  std::unique_ptr<RowInserter> PrepareInsert(std::string_view table,
                                             std::string_view columns) override;
  void CreateTables() override;
  void CreateIndexes() override;
  void RequireCompany() override;

  // The company's tables that the database does not have. Requires: no transaction. Throws
  // DatabaseError.
  std::vector<std::string_view> MissingTables();

 private:
  class Session;  // keeps ODBC's headers out of this one
  std::unique_ptr<Session> session_;
};

}  // namespace workbench
