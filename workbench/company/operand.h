// A translated piece of an expression with its type. Types are static, as on the server.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "workbench/company/column_type.h"
#include "workbench/company/server_number.h"

namespace workbench {

enum class OperandKind { Condition, Integer, Decimal, Float, Text, Null, Other };

struct Operand {
  std::string sql;
  OperandKind kind = OperandKind::Other;
  std::size_t offset = 0;  // of its first token
  bool isColumn = false;   // compared by the column's own collation
  bool isLiteral = false;
  bool hasCollation = false;  // sql ends in a COLLATE clause
  bool isAggregate = false;
  bool usesColumns = false;  // outside of an aggregate
  std::string literal;       // of a Text its value, of a number its digits
  std::string declaredType;  // as column_type.h reads it

  bool IsNumber() const noexcept {
    return kind == OperandKind::Integer || kind == OperandKind::Decimal ||
           kind == OperandKind::Float;
  }
};

// Adds the columns and aggregates that `part` uses to those of `whole`.
void AbsorbUse(Operand& whole, const Operand& part);

OperandKind KindOfColumn(ColumnKind kind);

// Requires: a number's kind.
NumberType NumberTypeOf(OperandKind kind);

// "…" and '…' with inner quotes doubled.
std::string QuotedName(std::string_view name);
std::string QuotedText(std::string_view text);

// A literal of the value, of a column's or an expression's kind.
Operand TextLiteral(std::string value, std::size_t offset);
Operand NumberLiteral(std::string digits, std::size_t offset);

// Adds the company's collation to a text that has no column to supply it.
void AddCollation(Operand& text);

// The text as a number of the kind of `number`. A literal is converted here; one that is no number
// fails when the statement runs, as on the server.
void ConvertToNumber(Operand& text, OperandKind numberKind);

// As the server stores a value in a column of the kind: text to number, number to text, a fraction
// to a whole number. False where the dialect does not have the conversion.
[[nodiscard]] bool ConvertForAssignment(Operand& value, OperandKind target);

}  // namespace workbench
