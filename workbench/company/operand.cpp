// Making operands, and their conversions to numbers and for assignments.
#include "workbench/company/operand.h"

#include <algorithm>
#include <utility>

#include "workbench/company/collation.h"
#include "workbench/company/server_functions.h"

namespace workbench {
namespace {

std::string Quoted(std::string_view text, char quote) {
  std::string result;
  result.reserve(text.size() + 2);
  result += quote;
  for (const char character : text) {
    result += character;
    if (character == quote) result += quote;
  }
  result += quote;
  return result;
}

void MakeNumber(Operand& operand, OperandKind kind, std::string sql) {
  operand.sql = std::move(sql);
  operand.kind = kind;
  operand.isColumn = false;
  operand.hasCollation = false;
}

}  // namespace

void AbsorbUse(Operand& whole, const Operand& part) {
  whole.isAggregate = whole.isAggregate || part.isAggregate;
  whole.usesColumns = whole.usesColumns || part.usesColumns;
}

OperandKind KindOfColumn(ColumnKind kind) {
  switch (kind) {
    case ColumnKind::Integer:
      return OperandKind::Integer;
    case ColumnKind::Decimal:
      return OperandKind::Decimal;
    case ColumnKind::Float:
      return OperandKind::Float;
    case ColumnKind::Text:
      return OperandKind::Text;
    case ColumnKind::Other:
      break;
  }
  return OperandKind::Other;
}

NumberType NumberTypeOf(OperandKind kind) {
  return kind == OperandKind::Integer   ? NumberType::Integer
         : kind == OperandKind::Decimal ? NumberType::Decimal
                                        : NumberType::Float;
}

std::string QuotedName(std::string_view name) { return Quoted(name, '"'); }
std::string QuotedText(std::string_view text) { return Quoted(text, '\''); }

Operand TextLiteral(std::string value, std::size_t offset) {
  Operand operand;
  operand.sql = QuotedText(value);
  operand.kind = OperandKind::Text;
  operand.offset = offset;
  operand.isLiteral = true;
  const auto characters = std::count_if(value.begin(), value.end(), [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
  });
  operand.declaredType = "VARCHAR(" + std::to_string(characters > 0 ? characters : 1) + ")";
  operand.literal = std::move(value);
  return operand;
}

Operand NumberLiteral(std::string digits, std::size_t offset) {
  Operand operand;
  const bool isFloat = digits.find_first_of("eE") != std::string::npos;
  const bool isDecimal = digits.find('.') != std::string::npos;
  operand.sql = digits;
  operand.kind = isFloat     ? OperandKind::Float
                 : isDecimal ? OperandKind::Decimal
                             : OperandKind::Integer;
  operand.offset = offset;
  operand.isLiteral = true;
  operand.declaredType = isFloat ? "FLOAT" : isDecimal ? "NUMERIC" : "INTEGER";
  operand.literal = std::move(digits);
  return operand;
}

void AddCollation(Operand& text) {
  if (text.isColumn || text.hasCollation) return;
  text.sql += " COLLATE ";
  text.sql += kChineseCollation;
  text.hasCollation = true;
}

void ConvertToNumber(Operand& text, OperandKind numberKind) {
  const NumberType type = NumberTypeOf(numberKind);
  if (text.isLiteral) {
    if (const auto number = NumberFromText(text.literal, type)) {
      std::string digits = number->isInteger
                               ? std::to_string(number->integer)
                               : text.literal.substr(text.literal.find_first_not_of(' '));
      digits.resize(digits.find_last_not_of(' ') + 1);
      MakeNumber(text, numberKind, digits);
      text.literal = std::move(digits);
      return;
    }
  }
  MakeNumber(text, numberKind,
             std::string(kNumberFunction) + "(" + text.sql + ",'" + ServerTypeName(type) + "')");
  text.isLiteral = false;
}

bool ConvertForAssignment(Operand& value, OperandKind target) {
  const bool targetIsNumber = target == OperandKind::Integer || target == OperandKind::Decimal ||
                              target == OperandKind::Float;
  if (value.kind == OperandKind::Text && targetIsNumber) {
    ConvertToNumber(value, target);
  } else if (value.IsNumber() && target == OperandKind::Text) {
    // How the server writes a fraction depends on its declared scale; a literal is as written.
    if (!value.isLiteral && value.kind != OperandKind::Integer) return false;
    value = value.isLiteral ? TextLiteral(value.literal, value.offset) : value;
    if (!value.isLiteral) {
      value.sql = "CAST(" + value.sql + " AS TEXT)";
      value.isColumn = false;
    }
    value.kind = OperandKind::Text;
  } else if (value.IsNumber() && value.kind != OperandKind::Integer &&
             target == OperandKind::Integer) {
    value.sql = "CAST(" + value.sql + " AS INTEGER)";
    value.kind = OperandKind::Integer;
    value.isColumn = false;
    value.isLiteral = false;
  }
  return value.kind != OperandKind::Condition;
}

}  // namespace workbench
