#include "workbench/company/odbc_inserter.h"

#include <algorithm>

#include "workbench/company/utf.h"

namespace workbench::odbc {
namespace {

constexpr std::size_t kBatchRows = 500;

std::u16string InsertText(std::string_view table, std::string_view columns) {
  std::string text = "INSERT INTO ";
  text.append(table).append("(").append(columns).append(")VALUES(?");
  const auto more = std::count(columns.begin(), columns.end(), ',');
  for (std::ptrdiff_t i = 0; i < more; ++i) text += ",?";
  return Utf16FromUtf8(text + ")");
}

}  // namespace

Inserter::Inserter(Session& session, std::string_view table, std::string_view columns)
    : statement_(SQL_HANDLE_STMT, SQL_HANDLE_DBC, session.Get()),
      columns_(static_cast<std::size_t>(std::count(columns.begin(), columns.end(), ',')) + 1) {
  session.LimitTime(statement_.Get());
  OdbcText text = ToOdbc(InsertText(table, columns));
  Check(SQLPrepareW(statement_.Get(), text.data(), static_cast<SQLINTEGER>(text.size())),
        SQL_HANDLE_STMT, statement_.Get());
}

void Inserter::Insert(std::span<const InsertValue> row) {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    Column& column = columns_[i];
    const InsertValue& value = row[i];
    const auto* integer = std::get_if<std::int64_t>(&value);
    const auto* real = std::get_if<double>(&value);
    const auto* text = std::get_if<std::string_view>(&value);
    column.hasReal = column.hasReal || real != nullptr;
    column.hasText = column.hasText || text != nullptr;
    column.integers.push_back(integer == nullptr ? 0 : *integer);
    column.reals.push_back(real != nullptr      ? *real
                           : integer != nullptr ? static_cast<double>(*integer)
                                                : 0.0);
    column.texts.push_back(text == nullptr ? OdbcText() : ToOdbc(Utf16FromUtf8(*text)));
    const bool isNull = integer == nullptr && real == nullptr && text == nullptr;
    column.indicators.push_back(
        isNull ? SQL_NULL_DATA
               : static_cast<SQLLEN>(column.texts.back().size() * sizeof(SQLWCHAR)));
  }
  if (++rows_ == kBatchRows) Send();
}

void Inserter::Finish() {
  if (rows_ > 0) Send();
}

void Inserter::BindColumn(SQLUSMALLINT number, Column& column) {
  SQLSMALLINT source = SQL_C_SBIGINT;
  SQLSMALLINT target = SQL_BIGINT;
  SQLPOINTER values = column.integers.data();
  std::size_t width = 0;
  if (column.hasText) {
    for (const OdbcText& text : column.texts) width = std::max(width, text.size());
    ++width;  // so that no cell is empty
    column.cells.assign(column.texts.size() * width, 0);
    for (std::size_t row = 0; row < column.texts.size(); ++row) {
      std::copy(column.texts[row].begin(), column.texts[row].end(),
                column.cells.begin() + static_cast<std::ptrdiff_t>(row * width));
    }
    source = SQL_C_WCHAR;
    target = SQL_WVARCHAR;
    values = column.cells.data();
  } else if (column.hasReal) {
    source = SQL_C_DOUBLE;
    target = SQL_DOUBLE;
    values = column.reals.data();
  }
  Check(
      SQLBindParameter(statement_.Get(), number, SQL_PARAM_INPUT, source, target, width, 0, values,
                       static_cast<SQLLEN>(width * sizeof(SQLWCHAR)), column.indicators.data()),
      SQL_HANDLE_STMT, statement_.Get());
}

void Inserter::Send() {
  std::vector<SQLUSMALLINT> states(rows_, SQL_PARAM_UNUSED);
  SQLULEN processed = 0;
  const auto set = [this](SQLINTEGER attribute, SQLPOINTER value) {
    Check(SQLSetStmtAttrW(statement_.Get(), attribute, value, 0), SQL_HANDLE_STMT,
          statement_.Get());
  };
  set(SQL_ATTR_PARAM_BIND_TYPE, reinterpret_cast<SQLPOINTER>(SQL_PARAM_BIND_BY_COLUMN));
  set(SQL_ATTR_PARAMSET_SIZE, reinterpret_cast<SQLPOINTER>(rows_));
  set(SQL_ATTR_PARAM_STATUS_PTR, states.data());
  set(SQL_ATTR_PARAMS_PROCESSED_PTR, &processed);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    BindColumn(static_cast<SQLUSMALLINT>(i + 1), columns_[i]);
  }
  SQLRETURN state = SQLExecute(statement_.Get());
  // Where a row fails, the call as a whole may still succeed. Each row may have its own result.
  do {
    if (state != SQL_NO_DATA) Check(state, SQL_HANDLE_STMT, statement_.Get());
    state = SQLMoreResults(statement_.Get());
  } while (state != SQL_NO_DATA);
  const bool failed = processed != rows_ ||
                      std::find(states.begin(), states.end(), SQL_PARAM_ERROR) != states.end();
  if (failed) ThrowDiagnostic(SQL_HANDLE_STMT, statement_.Get());
  SQLFreeStmt(statement_.Get(), SQL_CLOSE);
  for (Column& column : columns_) column = {};
  rows_ = 0;
}

}  // namespace workbench::odbc
