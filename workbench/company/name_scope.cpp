// The lookup of tables and of the columns that names mean.
#include "workbench/company/name_scope.h"

#include <algorithm>

#include "workbench/company/case_folding.h"
#include "workbench/company/dialect_error.h"
#include "workbench/company/utf.h"

namespace workbench {

bool SameName(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char a, char b) { return FoldAscii(a) == FoldAscii(b); });
}

void NameScopes::AddTable(const Token& table, const std::optional<Token>& alias) {
  ScopedTable added;
  added.table = Utf8FromUtf16(NameOf(table));
  added.alias = alias ? Utf8FromUtf16(NameOf(*alias)) : added.table;
  if (!schema_.HasTable(added.table)) {
    ThrowAt(source_, table.offset, u"对象名 '" + NameOf(table) + u"' 无效。",
            server_error::kInvalidObject);
  }
  if (FindTable(added.alias) != nullptr) {
    const Token& named = alias ? *alias : table;
    ThrowAt(source_, named.offset,
            u"FROM 子句中的名称 '" + NameOf(named) + u"' 重复，请使用不同的别名。",
            server_error::kTableNamedTwice);
  }
  scopes_.back().push_back(std::move(added));
}

const ScopedTable* NameScopes::FindTable(std::string_view alias) const {
  for (const ScopedTable& table : scopes_.back()) {
    if (SameName(table.alias, alias)) return &table;
  }
  return nullptr;
}

std::string NameScopes::TypeOfColumn(const std::optional<Token>& qualifier,
                                     const Token& name) const {
  const std::string column = Utf8FromUtf16(NameOf(name));
  const std::string alias = qualifier ? Utf8FromUtf16(NameOf(*qualifier)) : std::string();
  bool tableKnown = !qualifier;
  for (auto scope = scopes_.rbegin(); scope != scopes_.rend(); ++scope) {
    std::optional<std::string> found;
    for (const ScopedTable& table : *scope) {
      if (qualifier && !SameName(table.alias, alias)) continue;
      tableKnown = true;
      auto type = schema_.DeclaredType(table.table, column);
      if (!type) continue;
      if (found) {
        ThrowAt(source_, name.offset, u"列名 '" + NameOf(name) + u"' 不明确。",
                server_error::kAmbiguousColumn);
      }
      found = std::move(type);
    }
    if (found) return *std::move(found);
  }
  if (!tableKnown) {
    ThrowAt(source_, qualifier->offset,
            u"无法绑定由多个部分组成的标识符 '" + NameOf(*qualifier) + u"." + NameOf(name) + u"'。",
            server_error::kUnboundName);
  }
  ThrowAt(source_, name.offset, u"列名 '" + NameOf(name) + u"' 无效。",
          server_error::kInvalidColumn);
}

std::string NameScopes::TypeOfColumn(std::string_view table, const Token& name) const {
  auto type = schema_.DeclaredType(table, Utf8FromUtf16(NameOf(name)));
  if (!type) {
    ThrowAt(source_, name.offset, u"列名 '" + NameOf(name) + u"' 无效。",
            server_error::kInvalidColumn);
  }
  return *std::move(type);
}

}  // namespace workbench
