// Values and conditions: operators, literals, names, functions.
#include <string>
#include <utility>

#include "workbench/company/dialect_error.h"
#include "workbench/company/server_functions.h"
#include "workbench/company/translator.h"
#include "workbench/company/utf.h"

namespace workbench {

namespace {

Operand ConditionOf(Operand left, std::string sql) {
  left.sql = std::move(sql);
  left.kind = OperandKind::Condition;
  left.isColumn = left.isLiteral = left.hasCollation = false;
  left.literal.clear();
  return left;
}

}  // namespace

Translator::DepthGuard::DepthGuard(Translator& translator) : translator_(translator) {
  constexpr int kDeepest = 64;
  if (++translator_.depth_ > kDeepest) {
    ThrowAt(translator_.cursor_.Source(), translator_.cursor_.Current().offset,
            u"语句嵌套过深，请将查询简化。", server_error::kNestedTooDeeply);
  }
}

void Translator::RequireCondition(const Operand& operand) const {
  if (operand.kind == OperandKind::Condition) return;
  ThrowAt(cursor_.Source(), operand.offset, u"在应使用条件的上下文中指定了非布尔类型的表达式。",
          server_error::kNotACondition);
}

void Translator::RequireValue(const Operand& operand) const {
  if (operand.kind != OperandKind::Condition) return;
  cursor_.Refuse();
}

Operand Translator::ParseCondition() {
  Operand condition = ParseExpression();
  RequireCondition(condition);
  return condition;
}

Operand Translator::ParseValue() {
  Operand value = ParseSum();
  RequireValue(value);
  return value;
}

Operand Translator::ParseExpression() {
  const DepthGuard guard(*this);
  Operand left = ParseConjunction();
  while (cursor_.AtKeyword(u"or")) {
    RequireCondition(left);
    cursor_.Next();
    const Operand right = ParseConjunction();
    RequireCondition(right);
    left.sql += " OR ";
    left.sql += right.sql;
    AbsorbUse(left, right);
  }
  return left;
}

Operand Translator::ParseConjunction() {
  Operand left = ParseNegation();
  while (cursor_.AtKeyword(u"and")) {
    RequireCondition(left);
    cursor_.Next();
    const Operand right = ParseNegation();
    RequireCondition(right);
    left.sql += " AND ";
    left.sql += right.sql;
    AbsorbUse(left, right);
  }
  return left;
}

Operand Translator::ParseNegation() {
  if (!cursor_.AtKeyword(u"not")) return ParsePredicate();
  const DepthGuard guard(*this);
  const std::size_t offset = cursor_.Next().offset;
  Operand operand = ParseNegation();
  RequireCondition(operand);
  operand.sql.insert(0, "NOT ");
  operand.offset = offset;
  return operand;
}

Operand Translator::ParsePredicate() {
  Operand left = ParseSum();
  const Token& token = cursor_.Current();
  if (token.kind == TokenKind::Symbol) {
    constexpr std::u16string_view kComparisons[] = {u"=", u"<>", u"!=", u"<", u">", u"<=", u">="};
    for (const std::u16string_view comparison : kComparisons) {
      if (token.source != comparison) continue;
      RequireValue(left);
      cursor_.Next();
      return Compare(std::move(left), Utf8FromUtf16(comparison), ParseValue());
    }
    return left;
  }
  const bool negated = cursor_.AtKeyword(u"not");
  const Token test = negated ? cursor_.Following() : token;
  const bool isTest = test.IsKeyword(u"like") || test.IsKeyword(u"in") ||
                      test.IsKeyword(u"between") || (!negated && test.IsKeyword(u"is"));
  if (!isTest) return left;
  RequireValue(left);
  if (negated) cursor_.Next();
  cursor_.Next();
  if (test.IsKeyword(u"like")) return ParseLike(std::move(left), negated);
  if (test.IsKeyword(u"in")) return ParseIn(std::move(left), negated);
  if (test.IsKeyword(u"between")) return ParseBetween(std::move(left), negated);
  return ParseIsNullTest(std::move(left));
}

Operand Translator::Compare(Operand left, std::string_view comparison, Operand right) {
  if (left.IsNumber() && right.kind == OperandKind::Text) {
    ConvertToNumber(right, left.kind);
  } else if (right.IsNumber() && left.kind == OperandKind::Text) {
    ConvertToNumber(left, right.kind);
  } else if (left.kind == OperandKind::Text && !right.isColumn) {
    AddCollation(left);
  }
  std::string sql = left.sql;
  sql.append(comparison).append(right.sql);
  AbsorbUse(left, right);
  return ConditionOf(std::move(left), std::move(sql));
}

Operand Translator::ParseLike(Operand left, bool negated) {
  const Operand pattern = ParseValue();
  if (cursor_.AtKeyword(u"escape")) cursor_.RefuseUnsupported();
  std::string sql = negated ? "NOT " : "";
  sql += std::string(kLikeFunction) + "(" + left.sql + "," + pattern.sql + ")";
  AbsorbUse(left, pattern);
  return ConditionOf(std::move(left), std::move(sql));
}

Operand Translator::ParseBetween(Operand left, bool negated) {
  Operand lower = ParseValue();
  cursor_.ExpectKeyword(u"and");
  Operand upper = ParseValue();
  Operand fromLower = Compare(left, ">=", std::move(lower));
  const Operand toUpper = Compare(std::move(left), "<=", std::move(upper));
  std::string sql = negated ? "NOT (" : "(";
  sql += fromLower.sql + " AND " + toUpper.sql + ")";
  AbsorbUse(fromLower, toUpper);
  return ConditionOf(std::move(fromLower), std::move(sql));
}

Operand Translator::ParseIn(Operand left, bool negated) {
  cursor_.ExpectSymbol(u"(");
  std::string list;
  if (cursor_.AtKeyword(u"select")) {
    const std::size_t offset = cursor_.Current().offset;
    const Query query = ParseQuery();
    const bool fits = query.items.size() == 1 && (query.items[0].kind == OperandKind::Text) ==
                                                     (left.kind == OperandKind::Text);
    if (!fits) ThrowNotSupported(cursor_.Source(), offset, u"IN (SELECT …)");
    list = query.sql;
  } else {
    do {
      Operand item = ParseValue();
      // The first item decides, so that a long list is written in one pass.
      if (list.empty() && left.kind == OperandKind::Text && item.IsNumber()) {
        ConvertToNumber(left, item.kind);
      }
      if (left.IsNumber() && item.kind == OperandKind::Text) ConvertToNumber(item, left.kind);
      if (left.kind == OperandKind::Text && item.IsNumber()) {
        ThrowAt(cursor_.Source(), item.offset, u"IN 列表中的文本和数字不能混用。",
                server_error::kTypeClash);
      }
      if (!list.empty()) list += ',';
      list += item.sql;
      AbsorbUse(left, item);
    } while (cursor_.ConsumeSymbol(u","));
  }
  cursor_.ExpectSymbol(u")");
  if (left.kind == OperandKind::Text) AddCollation(left);
  std::string sql = left.sql + (negated ? " NOT IN (" : " IN (");
  sql.append(list).append(")");
  return ConditionOf(std::move(left), std::move(sql));
}

Operand Translator::ParseIsNullTest(Operand left) {
  const bool negated = cursor_.ConsumeKeyword(u"not");
  cursor_.ExpectKeyword(u"null");
  std::string sql = left.sql + (negated ? " IS NOT NULL" : " IS NULL");
  return ConditionOf(std::move(left), std::move(sql));
}

Operand Translator::ParseSum() {
  Operand left = ParsePrimary();
  while (cursor_.AtSymbol(u"+") || cursor_.AtSymbol(u"-") || cursor_.AtSymbol(u"*")) {
    // Only for texts is + certain to behave as on the server.
    if (!cursor_.AtSymbol(u"+") || left.kind != OperandKind::Text) cursor_.RefuseUnsupported();
    const Token plus = cursor_.Next();
    const Operand right = ParsePrimary();
    if (right.kind != OperandKind::Text) {
      ThrowNotSupported(cursor_.Source(), plus.offset, plus.source);
    }
    left.sql += " || ";
    left.sql += right.sql;
    left.isColumn = left.isLiteral = false;
    left.hasCollation = false;
    left.declaredType = "TEXT";
    AbsorbUse(left, right);
    if (!cursor_.AtSymbol(u"+")) left.sql = "(" + left.sql + ")";
  }
  return left;
}

Operand Translator::ParsePrimary() {
  const Token& token = cursor_.Current();
  if (token.kind == TokenKind::Text) {
    const Token text = cursor_.Next();
    return TextLiteral(TextOf(text), text.offset);
  }
  if (token.kind == TokenKind::Number || token.IsSymbol(u"-") || token.IsSymbol(u"+")) {
    return ParseSignedNumber();
  }
  if (token.IsSymbol(u"(")) return ParseParenthesized();
  if (token.IsKeyword(u"exists")) return ParseExists();
  if (token.IsKeyword(u"null")) {
    Operand null;
    null.offset = cursor_.Next().offset;
    null.kind = OperandKind::Null;
    null.sql = "NULL";
    null.isLiteral = true;
    return null;
  }
  return ParseColumnOrFunction();
}

Operand Translator::ParseSignedNumber() {
  const std::size_t offset = cursor_.Current().offset;
  std::string digits;
  if (cursor_.AtSymbol(u"-") || cursor_.AtSymbol(u"+")) {
    if (cursor_.Next().IsSymbol(u"-")) digits = "-";
  }
  if (cursor_.Current().kind != TokenKind::Number) cursor_.Refuse();
  const Token number = cursor_.Next();
  digits += Utf8FromUtf16(number.source);
  if (!NumberFromText(digits, NumberType::Float)) {
    ThrowAt(cursor_.Source(), number.offset,
            u"数值 '" + std::u16string(number.source) + u"' 超出了计算机的表示范围。",
            server_error::kNumberOutOfRange);
  }
  return NumberLiteral(std::move(digits), offset);
}

Operand Translator::ParseParenthesized() {
  const std::size_t offset = cursor_.Next().offset;
  if (cursor_.AtKeyword(u"select")) cursor_.RefuseUnsupported();
  Operand inner = ParseExpression();
  cursor_.ExpectSymbol(u")");
  inner.sql.insert(0, 1, '(');
  inner.sql += ')';
  inner.hasCollation = false;
  inner.offset = offset;
  return inner;
}

Operand Translator::ParseExists() {
  const DepthGuard guard(*this);
  Operand condition;
  condition.offset = cursor_.Next().offset;
  condition.kind = OperandKind::Condition;
  cursor_.ExpectSymbol(u"(");
  if (!cursor_.AtKeyword(u"select")) cursor_.Refuse();
  condition.sql = "EXISTS (" + ParseQuery().sql + ")";
  cursor_.ExpectSymbol(u")");
  return condition;
}

Operand Translator::ParseColumnOrFunction() {
  const Token first = cursor_.ExpectName();
  if (first.kind == TokenKind::Word && cursor_.AtSymbol(u"(")) return ParseFunction(first);
  std::optional<Token> qualifier;
  Token name = first;
  if (cursor_.ConsumeSymbol(u".")) {
    qualifier = first;
    name = cursor_.ExpectName();
    if (cursor_.AtSymbol(u".")) cursor_.Refuse();
  }
  Operand column;
  column.offset = first.offset;
  column.declaredType = scopes_.TypeOfColumn(qualifier, name);
  column.kind = KindOfColumn(KindOfDeclaredType(column.declaredType));
  column.isColumn = true;
  column.usesColumns = !insideAggregate_;
  if (qualifier) column.sql = QuotedName(Utf8FromUtf16(NameOf(*qualifier))) + ".";
  column.sql += QuotedName(Utf8FromUtf16(NameOf(name)));
  return column;
}

}  // namespace workbench
