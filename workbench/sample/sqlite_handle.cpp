// How the SQLite owners open, bind and step.
#include "workbench/sample/sqlite_handle.h"

#include "workbench/company/collation.h"

namespace workbench {
namespace {

constexpr int kBusyTimeoutMilliseconds = 5000;

int OpenFlags(Database::Mode mode) {
  switch (mode) {
    case Database::Mode::ReadOnly:
      return SQLITE_OPEN_READONLY;
    case Database::Mode::ReadWrite:
      return SQLITE_OPEN_READWRITE;
    case Database::Mode::Create:
      break;
  }
  return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
}

void ExecuteOn(sqlite3* database, const char* sql) {
  if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
    throw SqliteError(sqlite3_extended_errcode(database), sqlite3_errmsg(database));
  }
}

}  // namespace

Database::Database(const std::string& path, Mode mode) {
  sqlite3* opened = nullptr;
  const int status = sqlite3_open_v2(path.c_str(), &opened, OpenFlags(mode), nullptr);
  handle_.reset(opened);  // also a failed open may leave a handle to be closed
  if (status != SQLITE_OK) {
    throw SqliteError(status, opened ? sqlite3_errmsg(opened) : sqlite3_errstr(status));
  }
  sqlite3_busy_timeout(opened, kBusyTimeoutMilliseconds);
  RegisterServerText(opened);
}

void Database::Execute(const std::string& sql) { ExecuteOn(get(), sql.c_str()); }

Statement::Statement(sqlite3* database, std::string_view sql) {
  sqlite3_stmt* prepared = nullptr;
  const int status =
      sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &prepared, nullptr);
  if (status != SQLITE_OK) {
    throw SqliteError(sqlite3_extended_errcode(database), sqlite3_errmsg(database));
  }
  handle_.reset(prepared);
}

bool Statement::Step() {
  const int status = sqlite3_step(handle_.get());
  if (status == SQLITE_ROW) return true;
  if (status == SQLITE_DONE) {
    sqlite3_reset(handle_.get());
    return false;
  }
  sqlite3* database = sqlite3_db_handle(handle_.get());
  const SqliteError error(sqlite3_extended_errcode(database), sqlite3_errmsg(database));
  sqlite3_reset(handle_.get());
  throw error;
}

std::string Statement::Text(int column) const {
  const unsigned char* text = sqlite3_column_text(handle_.get(), column);
  const int size = sqlite3_column_bytes(handle_.get(), column);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(size)};
}

void Statement::Bind(int index, std::int64_t value) {
  Require(sqlite3_bind_int64(handle_.get(), index, value));
}

void Statement::Bind(int index, double value) {
  Require(sqlite3_bind_double(handle_.get(), index, value));
}

void Statement::Bind(int index, std::string_view value) {
  // A null pointer would bind NULL instead of the empty text.
  const char* text = value.data() == nullptr ? "" : value.data();
  Require(sqlite3_bind_text64(handle_.get(), index, text, value.size(), nullptr, SQLITE_UTF8));
}

void Statement::Bind(int index, std::nullopt_t) {
  Require(sqlite3_bind_null(handle_.get(), index));
}

void Statement::Require(int status) const {
  if (status != SQLITE_OK) {
    throw SqliteError(status, sqlite3_errmsg(sqlite3_db_handle(handle_.get())));
  }
}

std::int64_t QueryInteger(sqlite3* database, std::string_view sql) {
  Statement statement(database, sql);
  return statement.Step() ? statement.Integer(0) : 0;
}

}  // namespace workbench
