// Inserts rows at a server through arrays of parameters, many rows in one round trip.
#pragma once

#include <string>
#include <variant>
#include <vector>

#include "workbench/company/connection.h"
#include "workbench/company/odbc_session.h"

namespace workbench::odbc {

class Inserter final : public RowInserter {
 public:
  // The session outlives the inserter. Throws DatabaseError.
  Inserter(Session& session, std::string_view table, std::string_view columns);

  void Insert(std::span<const InsertValue> row) override;
  void Finish() override;

 private:
  // A column of the waiting rows. All numbers of a column go as one type.
  struct Column {
    bool hasText = false;
    bool hasReal = false;
    std::vector<SQLBIGINT> integers;
    std::vector<SQLDOUBLE> reals;
    std::vector<OdbcText> texts;
    std::vector<SQLWCHAR> cells;  // the texts, each as wide as the widest
    std::vector<SQLLEN> indicators;
  };

  void BindColumn(SQLUSMALLINT number, Column& column);
  void Send();

  Handle statement_;
  std::vector<Column> columns_;
  std::size_t rows_ = 0;
};

}  // namespace workbench::odbc
