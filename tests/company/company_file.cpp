#include "tests/company/company_file.h"

#include <sqlite3.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "workbench/company/collation.h"
#include "workbench/company/schema.h"
#include "workbench/company/utf.h"

namespace workbench::testing {
namespace {

std::filesystem::path UnusedPath() {
  static std::atomic<int> next{0};
  const auto started = std::chrono::steady_clock::now().time_since_epoch().count();
  return std::filesystem::temp_directory_path() /
         ("company-test-" + std::to_string(started) + "-" + std::to_string(next++) + ".db");
}

std::string CellText(const Cell& cell) {
  switch (cell.Kind()) {
    case CellKind::Null:
      return "NULL";
    case CellKind::Integer:
      return std::to_string(cell.Integer());
    case CellKind::Number: {
      std::ostringstream text;
      text << cell.Number();
      return text.str();
    }
    case CellKind::Text:
      return "'" + Utf8FromUtf16(cell.Text()) + "'";
  }
  return "?";
}

}  // namespace

CompanyFile::CompanyFile() : path_(UnusedPath()) {
  sqlite3* opened = nullptr;
  const int result = sqlite3_open(Path().c_str(), &opened);
  const std::unique_ptr<sqlite3, int (*)(sqlite3*)> database(opened, sqlite3_close);
  if (result != SQLITE_OK) throw std::runtime_error("no test company at " + Path());
  RegisterServerText(opened);
  // A test's company need not survive a power failure.
  sqlite3_exec(opened, "PRAGMA synchronous=OFF; BEGIN", nullptr, nullptr, nullptr);
  CreateCompanyTables(opened);
  CreateCompanyIndexes(opened);
  sqlite3_exec(opened, "COMMIT", nullptr, nullptr, nullptr);
}

CompanyFile::~CompanyFile() {
  std::error_code ignored;
  for (const char* ending : {"", "-wal", "-shm", "-journal"}) {
    std::filesystem::remove(Path() + ending, ignored);
  }
}

std::string CompanyFile::Path() const { return path_.string(); }

ResultSet OpenCompany::Execute(std::string_view text) {
  return connection_.Execute(Utf16FromUtf8(text));
}

std::string OpenCompany::Rows(std::string_view text) { return RowsOf(Execute(text)); }

std::string OpenCompany::Refusal(std::string_view text) {
  try {
    Execute(text);
  } catch (const DatabaseError& error) {
    return error.what();
  }
  return {};
}

int OpenCompany::RefusalNumber(std::string_view text) {
  try {
    Execute(text);
  } catch (const DatabaseError& error) {
    return error.NativeNumber();
  }
  return 0;
}

std::string RowsOf(const ResultSet& result) {
  std::string text;
  for (std::size_t row = 0; row < result.RowCount(); ++row) {
    for (std::size_t column = 0; column < result.ColumnCount(); ++column) {
      if (column > 0) text += "|";
      text += CellText(result.At(row, column));
    }
    text += "\n";
  }
  return text;
}

std::string ColumnsOf(const ResultSet& result) {
  std::string text;
  for (std::size_t i = 0; i < result.ColumnCount(); ++i) {
    const ResultColumn& column = result.Column(i);
    if (i > 0) text += " ";
    text += Utf8FromUtf16(column.name) + ":" + std::to_string(static_cast<int>(column.type)) + "(" +
            std::to_string(column.definedSize) + ")";
  }
  return text;
}

}  // namespace workbench::testing
