// Calls of functions: isnull and the aggregates.
#include <string>
#include <utility>

#include "workbench/company/dialect_error.h"
#include "workbench/company/translator.h"

namespace workbench {

Operand Translator::ParseFunction(const Token& name) {
  const DepthGuard guard(*this);
  if (name.IsKeyword(u"isnull")) return ParseIsNull(name);
  if (name.IsKeyword(u"count") || name.IsKeyword(u"min") || name.IsKeyword(u"max")) {
    return ParseAggregate(name);
  }
  ThrowNotSupported(cursor_.Source(), name.offset, name.source);
}

Operand Translator::ParseIsNull(const Token& name) {
  cursor_.ExpectSymbol(u"(");
  Operand checked = ParseValue();
  cursor_.ExpectSymbol(u",");
  Operand replacement = ParseValue();
  cursor_.ExpectSymbol(u")");
  // The result has the type of the first argument, and the replacement is converted to it.
  const OperandKind kind = checked.kind == OperandKind::Null ? replacement.kind : checked.kind;
  if (!ConvertForAssignment(replacement, kind)) {
    ThrowNotSupported(cursor_.Source(), name.offset, name.source);
  }
  if (checked.kind == OperandKind::Null) checked.declaredType = replacement.declaredType;
  checked.sql = "ifnull(" + checked.sql + "," + replacement.sql + ")";
  checked.kind = kind;
  checked.offset = name.offset;
  checked.isColumn = checked.isLiteral = checked.hasCollation = false;
  AbsorbUse(checked, replacement);
  if (kind == OperandKind::Text) AddCollation(checked);
  return checked;
}

Operand Translator::ParseAggregate(const Token& name) {
  if (!aggregatesAllowed_ || insideAggregate_) {
    ThrowNotSupported(cursor_.Source(), name.offset, name.source);
  }
  cursor_.ExpectSymbol(u"(");
  const bool isCount = name.IsKeyword(u"count");
  Operand result;
  if (isCount && cursor_.ConsumeSymbol(u"*")) {
    result.sql = "count(*)";
  } else {
    insideAggregate_ = true;
    result = ParseValue();
    insideAggregate_ = false;
    const char* function = isCount ? "count(" : name.IsKeyword(u"min") ? "min(" : "max(";
    result.sql = function + result.sql + ")";
    result.isColumn = result.isLiteral = result.hasCollation = false;
  }
  cursor_.ExpectSymbol(u")");
  if (isCount) {
    result.kind = OperandKind::Integer;
    result.declaredType = "INTEGER";
  }
  result.offset = name.offset;
  result.isAggregate = true;
  return result;
}

}  // namespace workbench
