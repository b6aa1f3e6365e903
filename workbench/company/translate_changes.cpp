// INSERT, DELETE and UPDATE, and splitting a text into statements.
#include <algorithm>
#include <string>
#include <utility>

#include "workbench/company/dialect_error.h"
#include "workbench/company/translator.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

// The literal as the column stores it; nothing where only SQLite knows.
SqlValue ValueOf(const Operand& literal) {
  if (literal.kind == OperandKind::Null) return std::monostate();
  if (literal.kind == OperandKind::Text) return literal.literal;
  const auto number = NumberFromText(literal.literal, NumberType::Float);
  if (!number) return literal.literal;
  if (number->isInteger) return number->integer;
  return number->real;
}

}  // namespace

Translator::Translator(std::u16string_view text, TableSchema& schema)
    : cursor_(text), scopes_(text, schema) {}

TranslatedText TranslateText(std::u16string_view text, TableSchema& schema) {
  return Translator(text, schema).TranslateAll();
}

TranslatedText Translator::TranslateAll() {
  while (cursor_.ConsumeSymbol(u";")) {
  }
  while (!cursor_.AtEnd()) {
    ParseStatement();
    while (cursor_.ConsumeSymbol(u";")) {
    }
  }
  return std::move(result_);
}

void Translator::ParseStatement() {
  if (cursor_.AtKeyword(u"select")) {
    Query query = ParseQuery();
    StatementShape shape{std::move(query.sql), true, {}};
    for (ResultItem& item : query.items) shape.columnTypes.push_back(std::move(item.declaredType));
    AddStatement(std::move(shape));
  } else if (cursor_.AtKeyword(u"insert")) {
    ParseInsert();
  } else if (cursor_.AtKeyword(u"delete")) {
    ParseDelete();
  } else if (cursor_.AtKeyword(u"update")) {
    ParseUpdate();
  } else if (!result_.runs.empty() || cursor_.Current().kind != TokenKind::Word) {
    cursor_.Refuse();
  } else {
    cursor_.RefuseUnsupported();
  }
}

void Translator::AddStatement(StatementShape shape) {
  result_.runs.push_back({result_.shapes.size(), result_.values.size(), 0});
  result_.shapes.push_back(std::move(shape));
}

void Translator::ParseInsert() {
  cursor_.ExpectKeyword(u"insert");
  const std::size_t start = cursor_.Current().offset;
  const std::u16string_view repeated = insertTarget_.source;
  if (!repeated.empty() && cursor_.Source().substr(start, repeated.size()) == repeated) {
    // Skips the repeated table and columns of row-by-row inserts.
    cursor_.MoveTo(start + repeated.size());
  } else {
    ParseInsertTarget();
    const std::size_t end = cursor_.Current().offset;
    insertTarget_.source = cursor_.Source().substr(start, end - start);
  }
  if (cursor_.AtKeyword(u"select")) {
    ParseInsertedQuery();
  } else {
    ParseInsertedValues();
  }
}

void Translator::ParseInsertTarget() {
  insertTarget_ = {};
  cursor_.ConsumeKeyword(u"into");
  const std::string table = ParseTargetTable();
  cursor_.ExpectSymbol(u"(");
  std::vector<ResultItem>& columns = insertTarget_.columns;
  std::string names;
  do {
    const Token column = cursor_.ExpectName();
    ResultItem item = TargetColumn(table, column);
    const bool twice = std::any_of(columns.begin(), columns.end(), [&item](const auto& other) {
      return SameName(other.name, item.name);
    });
    if (twice) {
      ThrowAt(cursor_.Source(), column.offset, u"列名 '" + NameOf(column) + u"' 出现多次。",
              server_error::kColumnNamedTwice);
    }
    if (!names.empty()) names += ",";
    names += QuotedName(item.name);
    columns.push_back(std::move(item));
  } while (cursor_.ConsumeSymbol(u","));
  cursor_.ExpectSymbol(u")");
  insertTarget_.sql = "INSERT INTO " + QuotedName(table) + "(" + names + ") ";
}

void Translator::ParseInsertedValues() {
  cursor_.ExpectKeyword(u"values");
  cursor_.ExpectSymbol(u"(");
  const std::vector<ResultItem>& columns = insertTarget_.columns;
  StatementRun run{0, result_.values.size(), 0};
  std::string sql = insertTarget_.sql + "VALUES(";
  std::size_t count = 0;
  std::size_t offset = 0;
  do {
    Operand value = ParseValue();
    offset = value.offset;
    if (!value.isLiteral) ThrowNotSupported(cursor_.Source(), offset, u"VALUES");
    if (count == columns.size()) {
      ThrowAt(cursor_.Source(), offset, u"INSERT 语句中列的数目小于 VALUES 子句中值的数目。",
              server_error::kMoreValuesThanColumns);
    }
    if (!ConvertForAssignment(value, columns[count].kind)) RefuseTypes(offset);
    if (count++ > 0) sql += ",";
    if (value.isLiteral) {
      sql += "?";
      result_.values.push_back(ValueOf(value));
      ++run.valueCount;
    } else {
      sql += value.sql;
    }
  } while (cursor_.ConsumeSymbol(u","));
  if (count < columns.size()) {
    ThrowAt(cursor_.Source(), offset, u"INSERT 语句中列的数目大于 VALUES 子句中值的数目。",
            server_error::kMoreColumnsThanValues);
  }
  cursor_.ExpectSymbol(u")");
  sql += ")";
  const auto [shape, isNew] = insertShapes_.try_emplace(sql, result_.shapes.size());
  if (isNew) result_.shapes.push_back({std::move(sql), false, {}});
  run.shape = shape->second;
  result_.runs.push_back(run);
}

void Translator::ParseInsertedQuery() {
  const std::size_t offset = cursor_.Current().offset;
  const Query query = ParseQuery();
  const std::vector<ResultItem>& columns = insertTarget_.columns;
  if (query.hasStar) ThrowNotSupported(cursor_.Source(), offset, u"INSERT … SELECT *");
  if (query.items.size() != columns.size()) {
    ThrowAt(cursor_.Source(), offset, u"INSERT 语句的选择列表中列的数目与目标列的数目不同。",
            server_error::kUnequalColumnCounts);
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const bool isText = query.items[i].kind == OperandKind::Text;
    const bool fits = query.items[i].kind == OperandKind::Null ||
                      isText == (columns[i].kind == OperandKind::Text);
    if (!fits) RefuseTypes(offset);
  }
  AddStatement({insertTarget_.sql + query.sql, false, {}});
}

void Translator::ParseDelete() {
  cursor_.ExpectKeyword(u"delete");
  if (!cursor_.ConsumeKeyword(u"from")) {
    if (!cursor_.AtName()) cursor_.Refuse();
    if (cursor_.Following().IsKeyword(u"from")) {
      ParseJoinedDelete(cursor_.Next());
      return;
    }
  }
  scopes_.Open();
  const std::string table = ParseTargetTable();
  AddStatement({"DELETE FROM " + QuotedName(table) + ParseWhere(), false, {}});
  scopes_.Close();
}

// SQLite deletes from one table only; the join becomes a query for the rows to delete.
void Translator::ParseJoinedDelete(const Token& target) {
  scopes_.Open();
  const std::string from = ParseFrom();
  const ScopedTable* table = scopes_.FindTable(Utf8FromUtf16(NameOf(target)));
  if (table == nullptr) {
    ThrowAt(cursor_.Source(), target.offset, u"对象名 '" + NameOf(target) + u"' 无效。",
            server_error::kInvalidObject);
  }
  AddStatement({"DELETE FROM " + QuotedName(table->table) + " WHERE rowid IN (SELECT " +
                    QuotedName(table->alias) + ".rowid" + from + ParseWhere() + ")",
                false,
                {}});
  scopes_.Close();
}

void Translator::ParseUpdate() {
  cursor_.ExpectKeyword(u"update");
  scopes_.Open();
  const std::string table = ParseTargetTable();
  cursor_.ExpectKeyword(u"set");
  std::string sql = "UPDATE " + QuotedName(table) + " SET ";
  bool isFirst = true;
  do {
    const ResultItem column = TargetColumn(table, cursor_.ExpectName());
    cursor_.ExpectSymbol(u"=");
    Operand value = ParseValue();
    if (!ConvertForAssignment(value, column.kind)) RefuseTypes(value.offset);
    if (!std::exchange(isFirst, false)) sql += ",";
    sql += QuotedName(column.name) + "=" + value.sql;
  } while (cursor_.ConsumeSymbol(u","));
  AddStatement({sql + ParseWhere(), false, {}});
  scopes_.Close();
}

// The table that a statement changes, which is also the one that its names refer to.
std::string Translator::ParseTargetTable() {
  const Token table = cursor_.ExpectName();
  const bool standsAlone = !scopes_.IsOpen();
  if (standsAlone) scopes_.Open();
  scopes_.AddTable(table, std::nullopt);
  if (standsAlone) scopes_.Close();
  return Utf8FromUtf16(NameOf(table));
}

ResultItem Translator::TargetColumn(std::string_view table, const Token& column) const {
  ResultItem item;
  item.name = Utf8FromUtf16(NameOf(column));
  item.declaredType = scopes_.TypeOfColumn(table, column);
  item.kind = KindOfColumn(KindOfDeclaredType(item.declaredType));
  return item;
}

void Translator::RefuseTypes(std::size_t offset) const {
  ThrowAt(cursor_.Source(), offset, u"值的类型与列的类型不兼容。", server_error::kTypeClash);
}

}  // namespace workbench
