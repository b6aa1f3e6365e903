// Tables and declared types, asked of SQLite.
#include "workbench/company/sqlite_schema.h"

#include <sqlite3.h>

#include <algorithm>
#include <iterator>

#include "workbench/company/name_scope.h"

namespace workbench {
namespace {

// SQLite's own tables are no part of the company.
bool IsInternalTable(std::string_view table) {
  constexpr std::string_view kPrefix = "sqlite_";
  return SameName(table.substr(0, kPrefix.size()), kPrefix);
}

// SQLite's names for a row's number, which the server does not have.
bool IsRowNumber(std::string_view column) {
  constexpr std::string_view kNames[] = {"rowid", "oid", "_rowid_"};
  return std::any_of(std::begin(kNames), std::end(kNames),
                     [column](std::string_view name) { return SameName(name, column); });
}

}  // namespace

bool SqliteSchema::HasTable(std::string_view table) {
  if (IsInternalTable(table)) return false;
  return sqlite3_table_column_metadata(database_, nullptr, std::string(table).c_str(), nullptr,
                                       nullptr, nullptr, nullptr, nullptr, nullptr) == SQLITE_OK;
}

std::optional<std::string> SqliteSchema::DeclaredType(std::string_view table,
                                                      std::string_view column) {
  if (IsInternalTable(table) || IsRowNumber(column)) return std::nullopt;
  const char* type = nullptr;
  const int result = sqlite3_table_column_metadata(database_, nullptr, std::string(table).c_str(),
                                                   std::string(column).c_str(), &type, nullptr,
                                                   nullptr, nullptr, nullptr);
  if (result != SQLITE_OK) return std::nullopt;
  return std::string(type == nullptr ? "" : type);
}

}  // namespace workbench
