// Inserts rows at a server, many in one statement: few drivers send an array of rows at once.
#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "workbench/company/connection.h"
#include "workbench/company/odbc_session.h"

namespace workbench::odbc {

class Inserter final : public RowInserter {
 public:
  // Throws DatabaseError.
  Inserter(std::shared_ptr<Session> session, std::string_view table, std::string_view columns);
  ~Inserter() override;
  Inserter(const Inserter&) = delete;
  Inserter& operator=(const Inserter&) = delete;

  void Insert(std::span<const InsertValue> row) override;
  void Finish() override;

 private:
  struct WaitingValue {
    SQLBIGINT integer = 0;
    SQLDOUBLE real = 0;
    OdbcText text;
    SQLLEN indicator = 0;
  };
  // All values of a column go as one type, because servers compare the rows' types.
  struct Column {
    bool hasText = false;
    bool hasReal = false;
  };

  std::shared_ptr<Statement> Prepare(std::size_t rows) const;
  void Send(std::shared_ptr<Statement> statement);
  static void Send(SQLHSTMT statement, std::vector<WaitingValue>& values,
                   const std::vector<Column>& columns);

  std::shared_ptr<Session> session_;
  std::string insert_;        // up to VALUES
  std::string placeholders_;  // of a row
  std::vector<Column> columns_;
  std::size_t rowsOfBatch_;
  std::shared_ptr<Statement> batch_;
  std::vector<WaitingValue> waiting_;  // row by row
};

}  // namespace workbench::odbc
