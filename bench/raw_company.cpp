// Plain prepared statements; no caching.
#include "bench/raw_company.h"

#include <stdexcept>

#include "workbench/company/collation.h"

namespace bench {

namespace {

// SQLite's UTF-16 texts are untyped memory of two-byte units.
std::u16string_view Text(sqlite3_stmt* statement, int column) {
  const auto* text = static_cast<const char16_t*>(sqlite3_column_text16(statement, column));
  const auto bytes = static_cast<std::size_t>(sqlite3_column_bytes16(statement, column));
  return text == nullptr ? std::u16string_view() : std::u16string_view(text, bytes / 2);
}

}  // namespace

RawCompany::RawCompany(const std::string& path) {
  if (sqlite3_open(path.c_str(), &database_) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
  workbench::RegisterServerText(database_);
}

RawCompany::~RawCompany() { sqlite3_close(database_); }

std::size_t RawCompany::Step(
    const char* sql, const std::function<void(std::u16string_view, std::u16string_view)>& row) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(database_, sql, -1, &statement, nullptr) != SQLITE_OK) {
    throw std::runtime_error(sqlite3_errmsg(database_));
  }
  const int columns = sqlite3_column_count(statement);
  std::size_t rows = 0;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    const std::u16string_view first = Text(statement, 0);
    const std::u16string_view second = Text(statement, 1);
    for (int column = 2; column < columns; ++column) Text(statement, column);
    row(first, second);
    ++rows;
  }
  sqlite3_finalize(statement);
  return rows;
}

}  // namespace bench
