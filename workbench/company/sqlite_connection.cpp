// Opening the file, running translated statements, their transaction.
#include "workbench/company/sqlite_connection.h"

#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>
#include <variant>

#include "workbench/company/collation.h"
#include "workbench/company/column_type.h"
#include "workbench/company/dialect.h"
#include "workbench/company/schema.h"
#include "workbench/company/server_functions.h"
#include "workbench/company/sqlite_schema.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

constexpr int kLockWaitMilliseconds = 5000;

// The server's number and message for an SQLite error.
struct KnownFailure {
  int resultCode;
  int nativeNumber;
  std::u16string_view message;
};
constexpr KnownFailure kKnownFailures[] = {
    {SQLITE_CONSTRAINT_UNIQUE, 2627, u"违反了唯一约束，不能插入重复的值"},
    {SQLITE_CONSTRAINT_PRIMARYKEY, 2627, u"违反了主键约束，不能插入重复的值"},
    {SQLITE_CONSTRAINT_NOTNULL, 515, u"不能将值 NULL 插入列，该列不允许有空值"},
    {SQLITE_CONSTRAINT_CHECK, 547, u"语句与 CHECK 约束冲突"},
    {SQLITE_CONSTRAINT_FOREIGNKEY, 547, u"语句与外键约束冲突"},
    {SQLITE_BUSY, 1222, u"已超过了锁请求超时时段"},
    {SQLITE_LOCKED, 1222, u"已超过了锁请求超时时段"},
    {SQLITE_READONLY, 3906, u"数据库为只读，无法更新"},
    {SQLITE_FULL, 1105, u"磁盘已满，无法分配空间"},
};

std::string_view ColumnText(sqlite3_stmt* statement, int column) {
  const unsigned char* text = sqlite3_column_text(statement, column);
  const int size = sqlite3_column_bytes(statement, column);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)};
}

// For a column without a declared type, by its value.
ResultColumn DescribeValue(int sqliteType) {
  return DescribeDeclaredType(sqliteType == SQLITE_INTEGER ? "BIGINT"
                              : sqliteType == SQLITE_FLOAT ? "DOUBLE"
                                                           : "");
}

void DescribeUntyped(ResultSet& result, sqlite3_stmt* statement) {
  for (std::size_t i = 0; i < result.ColumnCount(); ++i) {
    ResultColumn column = DescribeValue(sqlite3_column_type(statement, static_cast<int>(i)));
    column.name = result.Column(i).name;
    if (result.Column(i).type == AdoType::LongVarWChar) result.SetColumn(i, std::move(column));
  }
}

}  // namespace

void SqliteConnection::Close::operator()(sqlite3* database) const noexcept {
  if (owns) sqlite3_close_v2(database);
}

void SqliteConnection::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
  sqlite3_finalize(statement);
}

SqliteConnection::SqliteConnection(std::string_view path, OpenMode mode) {
  sqlite3* opened = nullptr;
  const int access = mode == OpenMode::ReadOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE;
  const int result =
      sqlite3_open_v2(std::string(path).c_str(), &opened, access | SQLITE_OPEN_NOMUTEX, nullptr);
  database_.reset(opened);
  if (result != SQLITE_OK) {
    throw DatabaseError(u"无法打开公司数据库 '" + Utf16FromUtf8(path) + u"'。", result);
  }
  sqlite3_extended_result_codes(opened, 1);
  sqlite3_busy_timeout(opened, kLockWaitMilliseconds);
  RegisterServerText(opened);
  if (mode != OpenMode::Shared) return;
  // Readers and a writer do not wait for each other; a file that cannot have it works without.
  const int journal = sqlite3_exec(opened, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
  if ((journal & 0xFF) == SQLITE_NOTADB || (journal & 0xFF) == SQLITE_CORRUPT) ThrowFailure();
  Command("PRAGMA synchronous=NORMAL");
}

SqliteConnection::SqliteConnection(sqlite3* database) : database_(database, Close{false}) {}

SqliteConnection::~SqliteConnection() = default;

ResultSet SqliteConnection::Execute(std::u16string_view text) {
  SqliteSchema schema(database_.get());
  const TranslatedText translated = TranslateText(text, schema);
  const std::vector<Statement> statements = PrepareAll(translated.shapes);

  const auto changes = std::count_if(
      translated.runs.begin(), translated.runs.end(),
      [&translated](const StatementRun& run) { return !translated.shapes[run.shape].isQuery; });
  if (changes < 2 || sqlite3_get_autocommit(database_.get()) == 0) {
    return RunAll(translated, statements);
  }
  // One transaction, only for speed. It is committed after a failure too: a failed statement undoes
  // itself, earlier ones stay done.
  Command("BEGIN IMMEDIATE");
  ResultSet result;
  try {
    result = RunAll(translated, statements);
  } catch (...) {
    if (sqlite3_get_autocommit(database_.get()) == 0) CommitOrRollBack();
    throw;
  }
  CommitOrRollBack();
  return result;
}

void SqliteConnection::Begin() { Command("BEGIN IMMEDIATE"); }

void SqliteConnection::Commit() { Command("COMMIT"); }

void SqliteConnection::CommitOrRollBack() {
  try {
    Commit();
  } catch (...) {
    Rollback();
    throw;
  }
}

void SqliteConnection::Rollback() noexcept {
  // SQLite ends a transaction by itself after some failures; there is then nothing to undo.
  if (sqlite3_get_autocommit(database_.get()) != 0) return;
  sqlite3_exec(database_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteConnection::CreateTables() { CreateCompanyTables(database_.get()); }

void SqliteConnection::CreateIndexes() { CreateCompanyIndexes(database_.get()); }

void SqliteConnection::RequireCompany() { workbench::RequireCompany(database_.get()); }

std::vector<SqliteConnection::Statement> SqliteConnection::PrepareAll(
    const std::vector<StatementShape>& shapes) const {
  std::vector<Statement> statements;
  statements.reserve(shapes.size());
  for (const StatementShape& shape : shapes) {
    if (shape.sql.size() > std::numeric_limits<int>::max()) {
      throw DatabaseError(u"语句过长。", SQLITE_TOOBIG);
    }
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v2(database_.get(), shape.sql.c_str(),
                                          static_cast<int>(shape.sql.size()), &statement, nullptr);
    statements.emplace_back(statement);
    if (result != SQLITE_OK) ThrowFailure();
  }
  return statements;
}

ResultSet SqliteConnection::RunAll(const TranslatedText& text,
                                   const std::vector<Statement>& statements) const {
  ResultSet result;
  for (const StatementRun& run : text.runs) {
    sqlite3_stmt* statement = statements[run.shape].get();
    const StatementShape& shape = text.shapes[run.shape];
    if (shape.isQuery) {
      ResultSet fetched = Fetch(statement, shape);
      if (result.ColumnCount() == 0) result = std::move(fetched);
    } else {
      Bind(statement, text, run);
      RunChange(statement);
    }
  }
  return result;
}

void SqliteConnection::Bind(sqlite3_stmt* statement, const TranslatedText& text,
                            const StatementRun& run) const {
  for (std::size_t i = 0; i < run.valueCount; ++i) {
    const SqlValue& value = text.values[run.firstValue + i];
    const int parameter = static_cast<int>(i) + 1;
    int result = SQLITE_OK;
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
      result = sqlite3_bind_int64(statement, parameter, *integer);
    } else if (const auto* real = std::get_if<double>(&value)) {
      result = sqlite3_bind_double(statement, parameter, *real);
    } else if (const auto* characters = std::get_if<std::string>(&value)) {
      result = sqlite3_bind_text64(statement, parameter, characters->data(), characters->size(),
                                   SQLITE_STATIC, SQLITE_UTF8);
    } else {
      result = sqlite3_bind_null(statement, parameter);
    }
    if (result != SQLITE_OK) ThrowFailure();
  }
}

void SqliteConnection::RunChange(sqlite3_stmt* statement) const {
  const int result = sqlite3_step(statement);
  if (result != SQLITE_DONE) ThrowFailure();
  sqlite3_reset(statement);
}

ResultSet SqliteConnection::Fetch(sqlite3_stmt* statement, const StatementShape& shape) const {
  const int columnCount = sqlite3_column_count(statement);
  std::vector<ResultColumn> columns;
  for (int i = 0; i < columnCount; ++i) {
    const auto index = static_cast<std::size_t>(i);
    const char* declared = sqlite3_column_decltype(statement, i);
    columns.push_back(DescribeDeclaredType(index < shape.columnTypes.size()
                                               ? std::string_view(shape.columnTypes[index])
                                           : declared == nullptr ? std::string_view()
                                                                 : std::string_view(declared)));
    columns.back().name = Utf16FromUtf8(sqlite3_column_name(statement, i));
  }
  ResultSet result(std::move(columns));
  int state = SQLITE_DONE;
  while ((state = sqlite3_step(statement)) == SQLITE_ROW) {
    if (result.RowCount() == 0) DescribeUntyped(result, statement);
    result.AddRow();
    for (int i = 0; i < columnCount; ++i) {
      const auto column = static_cast<std::size_t>(i);
      switch (sqlite3_column_type(statement, i)) {
        case SQLITE_NULL:
          break;
        case SQLITE_INTEGER:
          result.SetInteger(column, sqlite3_column_int64(statement, i));
          break;
        case SQLITE_FLOAT:
          result.SetNumber(column, sqlite3_column_double(statement, i));
          break;
        default:
          result.SetUtf8Text(column, ColumnText(statement, i));
      }
    }
  }
  if (state != SQLITE_DONE) ThrowFailure();
  sqlite3_reset(statement);
  return result;
}

// One prepared statement that is bound, run and reset for each row.
class SqliteConnection::Inserter final : public RowInserter {
 public:
  Inserter(sqlite3* database, const std::string& sql) : database_(database) {
    sqlite3_stmt* statement = nullptr;
    const int result = sqlite3_prepare_v2(database, sql.c_str(), static_cast<int>(sql.size()),
                                          &statement, nullptr);
    statement_.reset(statement);
    if (result != SQLITE_OK) ThrowFailure(database);
  }

  void Insert(std::span<const InsertValue> row) override {
    int parameter = 0;
    for (const InsertValue& value : row) {
      if (BindValue(++parameter, value) != SQLITE_OK) ThrowFailure(database_);
    }
    const int result = sqlite3_step(statement_.get());
    if (result != SQLITE_DONE) ThrowFailure(database_);
    sqlite3_reset(statement_.get());
  }

  void Finish() override {}

 private:
  int BindValue(int parameter, const InsertValue& value) {
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
      return sqlite3_bind_int64(statement_.get(), parameter, *integer);
    }
    if (const auto* real = std::get_if<double>(&value)) {
      return sqlite3_bind_double(statement_.get(), parameter, *real);
    }
    if (const auto* text = std::get_if<std::string_view>(&value)) {
      // A null pointer would bind NULL instead of the empty text.
      return sqlite3_bind_text64(statement_.get(), parameter, text->empty() ? "" : text->data(),
                                 text->size(), SQLITE_STATIC, SQLITE_UTF8);
    }
    return sqlite3_bind_null(statement_.get(), parameter);
  }

  sqlite3* database_;
  Statement statement_;
};

std::unique_ptr<RowInserter> SqliteConnection::PrepareInsert(std::string_view table,
                                                             std::string_view columns) {
  std::string sql = "INSERT INTO ";
  sql.append(table).append("(").append(columns).append(")VALUES(?");
  const auto more = std::count(columns.begin(), columns.end(), ',');
  for (std::ptrdiff_t i = 0; i < more; ++i) sql += ",?";
  return std::make_unique<Inserter>(database_.get(), sql + ")");
}

void SqliteConnection::Command(const char* sql) const {
  if (sqlite3_exec(database_.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) ThrowFailure();
}

void SqliteConnection::ThrowFailure(sqlite3* database) {
  const int code = sqlite3_extended_errcode(database);
  const std::u16string message = Utf16FromUtf8(sqlite3_errmsg(database));
  if (const int serverError = ServerErrorOfResultCode(code); serverError != 0) {
    throw DatabaseError(message, serverError);
  }
  for (const KnownFailure& known : kKnownFailures) {
    if (known.resultCode != code && known.resultCode != (code & 0xFF)) continue;
    throw DatabaseError(std::u16string(known.message) + u"（" + message + u"）。",
                        known.nativeNumber);
  }
  throw DatabaseError(u"数据库错误：" + message, code);
}

}  // namespace workbench
