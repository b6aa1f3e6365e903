// Rows that a client creates, with ADO's conversions to the column types.
#include "workbench/suite/row_store.h"

#include <string>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"

namespace workbench {

using pricedown::AutomationError;
using pricedown::CellView;
using pricedown::FieldDefinition;
using pricedown::Value;
namespace ado = pricedown::ado;

namespace {

// adErrors in multi-step operations and "the current recordset does not support updating".
constexpr auto kMultiStepFailed = static_cast<std::int32_t>(0x80040E21);
constexpr auto kNotUpdatable = static_cast<std::int32_t>(0x800A0CB3);

// The number or date for a column that holds no text.
Value ConvertTo(const FieldDefinition& field, const Value& value) {
  try {
    switch (field.type) {
      case ado::kInteger:
        return pricedown::ToInt32(value);
      case ado::kDouble:
      case ado::kNumeric:
        return pricedown::ToDouble(value);
      default:
        return value;
    }
  } catch (const AutomationError&) {
    ThrowValueDoesNotFit(field.name);
  }
}

std::int32_t IntegerFor(const FieldDefinition& field, double number) {
  try {
    return pricedown::RoundToInt32(number);
  } catch (const AutomationError&) {
    ThrowValueDoesNotFit(field.name);
  }
}

std::u16string TextFor(const FieldDefinition& field, const Value& value) {
  try {
    return pricedown::ToText(value);
  } catch (const AutomationError&) {
    ThrowValueDoesNotFit(field.name);
  }
}

}  // namespace

void ThrowValueDoesNotFit(std::u16string_view field) {
  throw AutomationError(
      kMultiStepFailed,
      pricedown::Concatenate({u"多步操作产生错误，字段“", field, u"”不能容纳该值。"}),
      u"ADODB.Recordset");
}

void ThrowReadOnly() {
  throw AutomationError(kNotUpdatable, u"当前记录集不支持更新。", u"ADODB.Recordset");
}

CellView EditableRows::View(std::size_t row, std::size_t column) const {
  const Cell& cell = At(row, column);
  switch (cell.kind) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
    case Value::Kind::Missing:
      return {};
    case Value::Kind::Text:
      return {CellView::Kind::Text, 0, cell.Text()};
    case Value::Kind::Int32:
      return {CellView::Kind::Number, static_cast<double>(cell.integer)};
    case Value::Kind::Double:
      return {CellView::Kind::Number, cell.number};
    default:
      return {CellView::Kind::Other};
  }
}

Value EditableRows::Get(std::size_t row, std::size_t column) const {
  const Cell& cell = At(row, column);
  switch (cell.kind) {
    case Value::Kind::Empty:
      return {};
    case Value::Kind::Null:
      return pricedown::Null{};
    case Value::Kind::Missing:
      return pricedown::Missing{};
    case Value::Kind::Text:
      return cell.Text();
    case Value::Kind::Int32:
      return cell.integer;
    case Value::Kind::Double:
      return cell.number;
    default:
      return others_[cell.other];
  }
}

void EditableRows::AppendField(const FieldDefinition& field) {
  if (!live_.empty()) ThrowReadOnly();
  fields_.push_back(field);
  lastTexts_.emplace_back();
}

void EditableRows::DescribeNumeric(std::size_t column, std::int32_t precision, std::int32_t scale) {
  fields_[column].precision = precision;
  fields_[column].scale = scale;
}

std::size_t EditableRows::AddRow() {
  const std::size_t row = live_.size();
  if (row % kBlockRows == 0) {
    blocks_.push_back(std::make_unique<Cell[]>(kBlockRows * fields_.size()));
  }
  live_.push_back(true);
  ++liveCount_;
  return row;
}

void EditableRows::Set(std::size_t row, std::size_t column, const Value& given) {
  const Value& value = given.Resolved();
  const FieldDefinition& field = fields_[column];
  if (field.type == ado::kVarWChar && !value.IsNothing()) {
    if (value.Is(Value::Kind::Text)) return SetText(row, column, value.Text());
    return SetText(row, column, TextFor(field, value));
  }
  const Value converted = value.IsNothing() ? value : ConvertTo(field, value);
  Cell cell;
  cell.kind = converted.GetKind();
  switch (cell.kind) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
    case Value::Kind::Missing:
      break;
    case Value::Kind::Int32:
      cell.integer = converted.Int32();
      break;
    case Value::Kind::Double:
      cell.number = converted.Double();
      break;
    case Value::Kind::Text:
      cell.length = static_cast<std::uint32_t>(converted.Text().size());
      cell.text = texts_.Keep(converted.Text()).data();
      break;
    default:
      cell.other = others_.size();
      others_.push_back(converted);
  }
  At(row, column) = cell;
}

void EditableRows::SetText(std::size_t row, std::size_t column, std::u16string_view text) {
  const FieldDefinition& field = fields_[column];
  if (field.type != ado::kVarWChar) return Set(row, column, Value(text));
  const auto limit = static_cast<std::size_t>(field.definedSize);
  if (field.definedSize > 0 && text.size() > limit) ThrowValueDoesNotFit(field.name);
  std::u16string_view& last = lastTexts_[column];
  if (last.data() == nullptr || text != last) last = texts_.Keep(text);
  Cell& cell = At(row, column);
  cell.kind = Value::Kind::Text;
  cell.length = static_cast<std::uint32_t>(last.size());
  cell.text = last.data();
}

bool EditableRows::SetView(std::size_t row, std::size_t column, const CellView& given) {
  if (given.kind == CellView::Kind::Text) {
    SetText(row, column, given.text);
    return true;
  }
  if (given.kind != CellView::Kind::Number) return false;
  Cell cell;
  switch (fields_[column].type) {
    case ado::kInteger:
      cell.kind = Value::Kind::Int32;
      cell.integer = IntegerFor(fields_[column], given.number);
      break;
    case ado::kDouble:
    case ado::kNumeric:
      cell.kind = Value::Kind::Double;
      cell.number = given.number;
      break;
    default:
      return false;
  }
  At(row, column) = cell;
  return true;
}

void EditableRows::Delete(std::size_t row) {
  if (!live_[row]) return;
  live_[row] = false;
  for (std::size_t column = 0; column < fields_.size(); ++column) At(row, column) = {};
  --liveCount_;
}

}  // namespace workbench
