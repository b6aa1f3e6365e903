// Owners of an SQLite connection and of a prepared statement.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace workbench {

// A failed SQLite call; the text is SQLite's own, the code its extended result code.
class SqliteError : public std::runtime_error {
 public:
  SqliteError(int code, const std::string& text) : std::runtime_error(text), code_(code) {}
  int code() const { return code_; }
  // Another program holds the database.
  bool IsBusy() const { return (code_ & 0xFF) == SQLITE_BUSY || (code_ & 0xFF) == SQLITE_LOCKED; }

 private:
  int code_;
};

// An open database with the company's collation registered; closed on destruction.
class Database {
 public:
  enum class Mode { ReadOnly, ReadWrite, Create };

  // `path` is UTF-8. Waits up to five seconds for locks of others. Throws SqliteError.
  Database(const std::string& path, Mode mode);

  sqlite3* get() const { return handle_.get(); }
  // Runs statements without results. Throws SqliteError.
  void Execute(const std::string& sql);

 private:
  struct Closer {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
  };
  std::unique_ptr<sqlite3, Closer> handle_;
};

// One prepared statement. Texts are bound without copying, so they must live until the last step.
class Statement {
 public:
  // Throws SqliteError.
  Statement(sqlite3* database, std::string_view sql);

  // Binds `values` in order, runs to the end and resets. Throws SqliteError.
  template <class... Values>
  void Run(const Values&... values) {
    Start(values...);
    while (Step()) {
    }
  }

  // Resets and binds `values` in order; Step then returns the rows. Throws SqliteError.
  template <class... Values>
  void Start(const Values&... values) {
    sqlite3_reset(handle_.get());
    int index = 0;
    (Bind(++index, values), ...);
  }

  // Returns whether there is a row; at the end it also resets the statement.
  bool Step();

  int ColumnCount() const { return sqlite3_column_count(handle_.get()); }
  // SQLITE_INTEGER, SQLITE_FLOAT, SQLITE_TEXT, SQLITE_BLOB or SQLITE_NULL.
  int Type(int column) const { return sqlite3_column_type(handle_.get(), column); }
  std::int64_t Integer(int column) const { return sqlite3_column_int64(handle_.get(), column); }
  double Real(int column) const { return sqlite3_column_double(handle_.get(), column); }
  // Empty for NULL.
  std::string Text(int column) const;

 private:
  void Bind(int index, std::int64_t value);
  void Bind(int index, int value) { Bind(index, static_cast<std::int64_t>(value)); }
  void Bind(int index, double value);
  void Bind(int index, std::string_view value);
  void Bind(int index, const char* value) { Bind(index, std::string_view(value)); }
  void Bind(int index, const std::string& value) { Bind(index, std::string_view(value)); }
  void Bind(int index, std::nullopt_t);
  template <class Value>
  void Bind(int index, const std::optional<Value>& value) {
    if (value) {
      Bind(index, *value);
    } else {
      Bind(index, std::nullopt);
    }
  }
  void Require(int status) const;

  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  std::unique_ptr<sqlite3_stmt, Finalizer> handle_;
};

// The first column of the first row as a whole number, 0 without rows. Throws SqliteError.
std::int64_t QueryInteger(sqlite3* database, std::string_view sql);

}  // namespace workbench
