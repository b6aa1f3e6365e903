// Rows that a client creates, with ADO's conversions to the column types.
#include "workbench/suite/row_store.h"

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

Value ConvertTo(const FieldDefinition& field, const Value& given) {
  const Value& value = given.Resolved();
  if (value.IsNothing()) return value;
  try {
    switch (field.type) {
      case ado::kInteger:
        return pricedown::ToInt32(value);
      case ado::kDouble:
      case ado::kNumeric:
        return pricedown::ToDouble(value);
      case ado::kVarWChar: {
        std::u16string text = pricedown::ToText(value);
        const auto limit = static_cast<std::size_t>(field.definedSize);
        if (field.definedSize > 0 && text.size() > limit) ThrowValueDoesNotFit(field.name);
        return text;
      }
      default:
        return value;
    }
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
  const Value& value = rows_[row].cells[column];
  CellView view;
  switch (value.GetKind()) {
    case Value::Kind::Empty:
    case Value::Kind::Null:
    case Value::Kind::Missing:
      return view;
    case Value::Kind::Text:
      view.kind = CellView::Kind::Text;
      view.text = value.Text();
      return view;
    case Value::Kind::Int32:
      view.kind = CellView::Kind::Number;
      view.number = value.Int32();
      return view;
    case Value::Kind::Double:
      view.kind = CellView::Kind::Number;
      view.number = value.Double();
      return view;
    default:
      view.kind = CellView::Kind::Other;
      return view;
  }
}

Value EditableRows::Get(std::size_t row, std::size_t column) const {
  return rows_[row].cells[column];
}

void EditableRows::AppendField(const FieldDefinition& field) {
  fields_.push_back(field);
  for (Row& row : rows_) row.cells.emplace_back();
}

void EditableRows::DescribeNumeric(std::size_t column, std::int32_t precision, std::int32_t scale) {
  fields_[column].precision = precision;
  fields_[column].scale = scale;
}

std::size_t EditableRows::AddRow() {
  rows_.push_back(Row{std::vector<Value>(fields_.size()), true});
  ++live_;
  return rows_.size() - 1;
}

void EditableRows::Set(std::size_t row, std::size_t column, const Value& value) {
  rows_[row].cells[column] = ConvertTo(fields_[column], value);
}

void EditableRows::Delete(std::size_t row) {
  if (!rows_[row].live) return;
  rows_[row].live = false;
  rows_[row].cells.clear();
  rows_[row].cells.shrink_to_fit();
  --live_;
}

}  // namespace workbench
