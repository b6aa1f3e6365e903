// The tables and columns of an open SQLite file, as the dialect layer needs them. Nothing is
// cached.
#pragma once

#include "workbench/company/table_schema.h"

struct sqlite3;

namespace workbench {

class SqliteSchema final : public TableSchema {
 public:
  // The database stays the caller's and outlives the schema.
  explicit SqliteSchema(sqlite3* database) : database_(database) {}

  bool HasTable(std::string_view table) override;
  std::optional<std::string> DeclaredType(std::string_view table, std::string_view column) override;

 private:
  sqlite3* database_;
};

}  // namespace workbench
