// The embedded company: an SQLite file that understands the dialect of dialect.h.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "workbench/company/connection.h"

struct sqlite3;
struct sqlite3_stmt;

namespace workbench {

struct StatementRun;
struct StatementShape;
struct TranslatedText;

// Other connections and processes may use the file at the same time; waits up to five seconds for
// their locks. All statements of a text are compiled before the first runs.
class SqliteConnection final : public Connection {
 public:
  // `path` in UTF-8. Throws DatabaseError where there is no such company file.
  explicit SqliteConnection(std::string_view path, OpenMode mode = OpenMode::Shared);
  // Uses an open database, which the caller owns and which outlives the connection. Requires:
  // RegisterServerText was called on it.
  explicit SqliteConnection(sqlite3* database);
  ~SqliteConnection() override;

  ResultSet Execute(std::u16string_view text) override;
  void Begin() override;
  void Commit() override;
  void Rollback() noexcept override;
  std::unique_ptr<RowInserter> PrepareInsert(std::string_view table,
                                             std::string_view columns) override;
  void CreateTables() override;
  void CreateIndexes() override;
  void RequireCompany() override;

  // Borrowed; for statements outside the dialect.
  sqlite3* Database() const noexcept { return database_.get(); }

 private:
  struct Close {
    Close() noexcept : owns(true) {}
    explicit Close(bool isOwner) noexcept : owns(isOwner) {}
    bool owns;
    void operator()(sqlite3* database) const noexcept;
  };
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const noexcept;
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

  std::vector<Statement> PrepareAll(const std::vector<StatementShape>& shapes) const;
  ResultSet RunAll(const TranslatedText& text, const std::vector<Statement>& statements) const;
  void Bind(sqlite3_stmt* statement, const TranslatedText& text, const StatementRun& run) const;
  void RunChange(sqlite3_stmt* statement) const;
  ResultSet Fetch(sqlite3_stmt* statement, const StatementShape& shape) const;
  void CommitOrRollBack();
  void Command(const char* sql) const;
  [[noreturn]] void ThrowFailure() const { ThrowFailure(database_.get()); }
  [[noreturn]] static void ThrowFailure(sqlite3* database);

  class Inserter;

  std::unique_ptr<sqlite3, Close> database_;
};

}  // namespace workbench
