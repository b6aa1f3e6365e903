// The tables that the names of a query may refer to, and name lookup in nested scopes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/company/table_schema.h"
#include "workbench/company/token_cursor.h"

namespace workbench {

struct ScopedTable {
  std::string table;
  std::string alias;  // the table's own name where it has no other
};

class NameScopes {
 public:
  // Both outlive the scopes. Errors report the token's position in `source`.
  NameScopes(std::u16string_view source, TableSchema& schema) : source_(source), schema_(schema) {}

  void Open() { scopes_.emplace_back(); }
  void Close() { scopes_.pop_back(); }
  // Requires: IsOpen().
  bool HasTables() const { return !scopes_.back().empty(); }
  bool IsOpen() const noexcept { return !scopes_.empty(); }

  // Adds a table to the innermost scope. Throws DatabaseError where the company has no such
  // table, or the scope already one of that name.
  void AddTable(const Token& table, const std::optional<Token>& alias);

  // The innermost scope's table of that alias or name, null where it has none.
  const ScopedTable* FindTable(std::string_view alias) const;

  // The declared type of the column, looked for from the innermost scope outwards. Throws
  // DatabaseError where no table or more than one table of a scope has it.
  std::string TypeOfColumn(const std::optional<Token>& qualifier, const Token& name) const;

  // The same for a column of one table, as INSERT and UPDATE name it.
  std::string TypeOfColumn(std::string_view table, const Token& name) const;

 private:
  std::u16string_view source_;
  TableSchema& schema_;
  std::vector<std::vector<ScopedTable>> scopes_;
};

// Without regard to the case of ASCII letters.
bool SameName(std::string_view left, std::string_view right);

}  // namespace workbench
