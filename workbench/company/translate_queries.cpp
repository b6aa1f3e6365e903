// SELECT with its clauses, alone and joined by UNION, EXCEPT and INTERSECT.
#include <algorithm>
#include <charconv>
#include <string>
#include <utility>

#include "workbench/company/collation.h"
#include "workbench/company/dialect_error.h"
#include "workbench/company/translator.h"
#include "workbench/company/utf.h"

namespace workbench {

Query Translator::ParseQuery() {
  const bool aggregatesWereAllowed = std::exchange(aggregatesAllowed_, false);
  Query query = ParseSelect();
  const std::string operations = ParseSetOperations(query);
  query.sql += operations;
  query.sql += ParseOrderBy(query, !operations.empty());
  scopes_.Close();
  if (query.topNumber) query.sql += " LIMIT " + Utf8FromUtf16(query.topNumber->source);
  aggregatesAllowed_ = aggregatesWereAllowed;
  return query;
}

Query Translator::ParseSelect() {
  cursor_.ExpectKeyword(u"select");
  Query query;
  query.sql = "SELECT ";
  if (cursor_.ConsumeKeyword(u"distinct")) {
    query.sql += "DISTINCT ";
  } else {
    cursor_.ConsumeKeyword(u"all");
  }
  if (cursor_.ConsumeKeyword(u"top")) {
    const bool parenthesized = cursor_.ConsumeSymbol(u"(");
    const Token& number = cursor_.Current();
    const bool whole = number.kind == TokenKind::Number &&
                       number.source.find_first_not_of(u"0123456789") == std::u16string_view::npos;
    if (!whole) cursor_.Refuse();
    query.topNumber = cursor_.Next();
    if (parenthesized) cursor_.ExpectSymbol(u")");
    if (cursor_.AtKeyword(u"percent") || cursor_.AtKeyword(u"with")) cursor_.RefuseUnsupported();
  }

  // The columns depend on the tables, so FROM is parsed first.
  scopes_.Open();
  const std::size_t list = cursor_.Current().offset;
  SkipToFrom();
  const std::size_t endOfList = cursor_.Current().offset;
  const std::string from = cursor_.AtKeyword(u"from") ? ParseFrom() : std::string();
  const std::size_t afterFrom = cursor_.Current().offset;
  cursor_.MoveTo(list);
  ParseSelectList(query);
  if (cursor_.Current().offset != endOfList) cursor_.Refuse();
  cursor_.MoveTo(afterFrom);

  query.sql += from;
  if (!from.empty()) query.sql += ParseWhere();
  if (cursor_.AtKeyword(u"group") || cursor_.AtKeyword(u"having")) cursor_.RefuseUnsupported();
  return query;
}

void Translator::SkipToFrom() {
  int depth = 0;
  while (!cursor_.AtEnd()) {
    if (cursor_.AtSymbol(u"(")) {
      ++depth;
    } else if (cursor_.AtSymbol(u")")) {
      if (depth-- == 0) return;
    } else if (depth == 0) {
      constexpr std::u16string_view kEnds[] = {u"from",  u"where",  u"order",
                                               u"union", u"except", u"intersect"};
      const bool ends = std::any_of(std::begin(kEnds), std::end(kEnds),
                                    [this](auto keyword) { return cursor_.AtKeyword(keyword); });
      if (ends || cursor_.AtStatement() || cursor_.AtSymbol(u";")) return;
    }
    cursor_.Next();
  }
}

void Translator::ParseSelectList(Query& query) {
  bool hasAggregate = false;
  std::optional<Token> plainColumn;
  aggregatesAllowed_ = true;
  bool isFirst = true;
  do {
    if (!std::exchange(isFirst, false)) query.sql += ", ";
    ParseSelectItem(query, hasAggregate, plainColumn);
  } while (cursor_.ConsumeSymbol(u","));
  aggregatesAllowed_ = false;
  if (query.hasStar) query.items.clear();
  if (hasAggregate && plainColumn) {
    ThrowAt(cursor_.Source(), plainColumn->offset,
            u"选择列表中的列无效，因为该列没有包含在聚合函数中。", server_error::kNotInAggregate);
  }
}

void Translator::ParseSelectItem(Query& query, bool& hasAggregate,
                                 std::optional<Token>& plainColumn) {
  const Token first = cursor_.Current();
  if (cursor_.ConsumeSymbol(u"*")) {
    if (!scopes_.HasTables()) {
      ThrowAt(cursor_.Source(), first.offset, u"必须指定要从中选择的表。", server_error::kNoTables);
    }
    query.sql += "*";
    query.hasStar = true;
    plainColumn = first;
    return;
  }
  if (cursor_.AtName() && cursor_.Following().IsSymbol(u".")) {
    cursor_.Next();
    cursor_.Next();
    if (cursor_.ConsumeSymbol(u"*")) {
      const std::string alias = Utf8FromUtf16(NameOf(first));
      if (scopes_.FindTable(alias) == nullptr) {
        ThrowAt(cursor_.Source(), first.offset,
                u"列前缀 '" + NameOf(first) + u"' 与查询中所用的表名或别名不匹配。",
                server_error::kUnboundName);
      }
      query.sql += QuotedName(alias) + ".*";
      query.hasStar = true;
      plainColumn = first;
      return;
    }
    cursor_.MoveTo(first.offset);
  }

  Operand value = ParseValue();
  hasAggregate = hasAggregate || value.isAggregate;
  if (value.usesColumns) plainColumn = first;
  // DISTINCT, UNION and ORDER BY compare by the company's collation even without a column.
  if (value.kind == OperandKind::Text) AddCollation(value);
  std::string name;
  if (cursor_.ConsumeKeyword(u"as") || cursor_.AtName()) {
    name = Utf8FromUtf16(NameOf(cursor_.ExpectName()));
  } else if (value.isColumn && first.kind != TokenKind::Symbol) {
    const std::size_t end = cursor_.Current().offset;
    cursor_.MoveTo(first.offset);
    Token last = cursor_.Next();
    while (cursor_.Current().offset < end) last = cursor_.Next();
    name = Utf8FromUtf16(NameOf(last));
  }
  query.sql += value.sql + " AS " + QuotedName(name);
  query.items.push_back({name, value.kind, value.declaredType});
}

std::string Translator::ParseFrom() {
  cursor_.ExpectKeyword(u"from");
  std::string from;
  do {
    from += from.empty() ? " FROM " : ", ";
    from += ParseTable();
    from += ParseJoins();
  } while (cursor_.ConsumeSymbol(u","));
  return from;
}

std::string Translator::ParseTable() {
  const Token table = cursor_.ExpectName();
  std::optional<Token> alias;
  if (cursor_.ConsumeKeyword(u"as")) {
    alias = cursor_.ExpectName();
  } else if (cursor_.AtName()) {
    alias = cursor_.Next();
  }
  scopes_.AddTable(table, alias);
  std::string sql = QuotedName(Utf8FromUtf16(NameOf(table)));
  if (alias) sql += " AS " + QuotedName(Utf8FromUtf16(NameOf(*alias)));
  return sql;
}

std::string Translator::ParseJoins() {
  std::string joins;
  for (;;) {
    const bool isCross = cursor_.ConsumeKeyword(u"cross");
    if (isCross) {
      joins += " CROSS JOIN ";
    } else if (cursor_.ConsumeKeyword(u"left")) {
      cursor_.ConsumeKeyword(u"outer");
      joins += " LEFT JOIN ";
    } else if (cursor_.ConsumeKeyword(u"inner") || cursor_.AtKeyword(u"join")) {
      joins += " INNER JOIN ";
    } else if (cursor_.AtKeyword(u"right") || cursor_.AtKeyword(u"full")) {
      cursor_.RefuseUnsupported();
    } else {
      return joins;
    }
    cursor_.ExpectKeyword(u"join");
    joins += ParseTable();
    if (isCross) continue;
    cursor_.ExpectKeyword(u"on");
    joins += " ON " + ParseCondition().sql;
  }
}

std::string Translator::ParseWhere() {
  if (!cursor_.ConsumeKeyword(u"where")) return {};
  return " WHERE " + ParseCondition().sql;
}

std::string Translator::ParseSetOperations(Query& query) {
  std::string sql;
  bool hasIntersect = false;
  int count = 0;
  for (;;) {
    const Token operation = cursor_.Current();
    const bool isUnion = operation.IsKeyword(u"union");
    const bool isIntersect = operation.IsKeyword(u"intersect");
    if (!isUnion && !isIntersect && !operation.IsKeyword(u"except")) return sql;
    cursor_.Next();
    // The server binds INTERSECT tighter than the others, SQLite does not.
    if (count++ > 0 && isIntersect != hasIntersect) {
      ThrowNotSupported(cursor_.Source(), operation.offset, operation.source);
    }
    hasIntersect = isIntersect;
    const bool all = isUnion && cursor_.ConsumeKeyword(u"all");
    const Query next = ParseSelect();
    scopes_.Close();
    for (const auto& top : {query.topNumber, next.topNumber}) {
      if (top)
        ThrowNotSupported(cursor_.Source(), top->offset,
                          u"TOP … " + std::u16string(operation.source));
    }
    if (!query.hasStar && !next.hasStar && query.items.size() != next.items.size()) {
      ThrowAt(cursor_.Source(), operation.offset,
              u"使用 UNION、INTERSECT 或 EXCEPT 合并的查询必须有相同数目的表达式。",
              server_error::kUnequalColumnCounts);
    }
    sql += isUnion ? (all ? " UNION ALL " : " UNION ") : isIntersect ? " INTERSECT " : " EXCEPT ";
    sql += next.sql;
  }
}

std::string Translator::ParseOrderBy(const Query& query, bool isCompound) {
  if (!cursor_.ConsumeKeyword(u"order")) return {};
  cursor_.ExpectKeyword(u"by");
  std::string sql;
  do {
    sql += sql.empty() ? " ORDER BY " : ",";
    sql += ParseOrderTerm(query, isCompound);
    if (cursor_.ConsumeKeyword(u"desc")) {
      sql += " DESC";
    } else {
      cursor_.ConsumeKeyword(u"asc");
    }
  } while (cursor_.ConsumeSymbol(u","));
  return sql;
}

std::string Translator::ParseOrderTerm(const Query& query, bool isCompound) {
  const Token first = cursor_.Current();
  if (first.kind == TokenKind::Number) {
    std::string digits = Utf8FromUtf16(cursor_.Next().source);
    std::size_t position = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), position);
    const bool whole = error == std::errc() && end == digits.data() + digits.size();
    if (!whole || position == 0 || (!query.hasStar && position > query.items.size())) {
      ThrowAt(cursor_.Source(), first.offset,
              u"ORDER BY 位置号 " + std::u16string(first.source) + u" 超出了选择列表项数的范围。",
              server_error::kOrderByNumberOutOfRange);
    }
    return digits;
  }
  if (!cursor_.AtName()) cursor_.Refuse();
  const std::string name = Utf8FromUtf16(NameOf(first));
  const bool isAlias =
      !cursor_.Following().IsSymbol(u".") &&
      std::any_of(query.items.begin(), query.items.end(),
                  [&name](const ResultItem& item) { return SameName(item.name, name); });
  if (isAlias) {
    cursor_.Next();
    return QuotedName(name);
  }
  if (isCompound) {
    ThrowAt(
        cursor_.Source(), first.offset,
        u"如果语句中包含 UNION、INTERSECT 或 EXCEPT 运算符，则 ORDER BY 项必须出现在选择列表中。",
        server_error::kOrderByNumberOutOfRange);
  }
  return ParseColumnOrFunction().sql;
}

}  // namespace workbench
