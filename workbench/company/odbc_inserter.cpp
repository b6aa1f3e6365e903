// Rows are collected and sent as parameters of one statement.
#include "workbench/company/odbc_inserter.h"

#include <algorithm>
#include <utility>

#include "workbench/company/utf.h"

namespace workbench::odbc {
namespace {

// Parameters of one statement: every server accepts that many.
constexpr std::size_t kMaximumParameters = 900;

std::size_t ColumnCount(std::string_view columns) {
  return static_cast<std::size_t>(std::count(columns.begin(), columns.end(), ',')) + 1;
}

std::string Placeholders(std::size_t columns) {
  std::string text = "(?";
  for (std::size_t i = 1; i < columns; ++i) text += ",?";
  return text + ")";
}

}  // namespace

Inserter::Inserter(std::shared_ptr<Session> session, std::string_view table,
                   std::string_view columns)
    : session_(std::move(session)),
      insert_("INSERT INTO " + std::string(table) + "(" + std::string(columns) + ")VALUES"),
      placeholders_(Placeholders(ColumnCount(columns))),
      columns_(ColumnCount(columns)),
      rowsOfBatch_(kMaximumParameters / columns_.size()),
      batch_(Prepare(rowsOfBatch_)) {}

Inserter::~Inserter() {
  try {
    // A driver may tell the server.
    session_->Run([batch = std::move(batch_)]() mutable { batch.reset(); });
  } catch (const std::exception&) {
  }
}

std::shared_ptr<Statement> Inserter::Prepare(std::size_t rows) const {
  std::string sql = insert_ + placeholders_;
  for (std::size_t i = 1; i < rows; ++i) sql.append(",").append(placeholders_);
  auto statement = session_->NewStatement();
  session_->Run([statement, text = ToOdbc(Utf16FromUtf8(sql))]() mutable {
    Check(SQLPrepareW(statement->Get(), text.data(), static_cast<SQLINTEGER>(text.size())),
          SQL_HANDLE_STMT, statement->Get());
  });
  return statement;
}

void Inserter::Insert(std::span<const InsertValue> row) {
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    WaitingValue& waiting = waiting_.emplace_back();
    if (const auto* integer = std::get_if<std::int64_t>(&row[i])) {
      waiting.integer = *integer;
      waiting.real = static_cast<double>(*integer);
    } else if (const auto* real = std::get_if<double>(&row[i])) {
      columns_[i].hasReal = true;
      waiting.real = *real;
    } else if (const auto* text = std::get_if<std::string_view>(&row[i])) {
      columns_[i].hasText = true;
      waiting.text = ToOdbc(Utf16FromUtf8(*text));
      waiting.indicator = static_cast<SQLLEN>(waiting.text.size() * sizeof(SQLWCHAR));
    } else {
      waiting.indicator = SQL_NULL_DATA;
    }
  }
  if (waiting_.size() == rowsOfBatch_ * columns_.size()) Send(batch_);
}

void Inserter::Finish() {
  if (waiting_.empty()) return;
  Send(Prepare(waiting_.size() / columns_.size()));
}

void Inserter::Send(std::shared_ptr<Statement> statement) {
  session_->Run([statement = std::move(statement), values = std::exchange(waiting_, {}),
                 columns = columns_]() mutable { Send(statement->Get(), values, columns); });
  std::fill(columns_.begin(), columns_.end(), Column());
}

void Inserter::Send(SQLHSTMT statement, std::vector<WaitingValue>& values,
                    const std::vector<Column>& columns) {
  SQLUSMALLINT parameter = 0;
  for (WaitingValue& value : values) {
    const Column& column = columns[parameter % columns.size()];
    SQLSMALLINT source = SQL_C_SBIGINT;
    SQLSMALLINT target = SQL_BIGINT;
    SQLPOINTER data = &value.integer;
    if (column.hasText) {
      source = SQL_C_WCHAR;
      target = SQL_WVARCHAR;
      data = value.text.data();
    } else if (column.hasReal) {
      source = SQL_C_DOUBLE;
      target = SQL_DOUBLE;
      data = &value.real;
    }
    const SQLULEN size = std::max<SQLULEN>(value.text.size(), 1);
    Check(SQLBindParameter(statement, ++parameter, SQL_PARAM_INPUT, source, target, size, 0, data,
                           0, &value.indicator),
          SQL_HANDLE_STMT, statement);
  }
  Check(SQLExecute(statement), SQL_HANDLE_STMT, statement);
  SQLFreeStmt(statement, SQL_CLOSE);
}

}  // namespace workbench::odbc
