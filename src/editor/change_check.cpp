// Field by field for the header, item by item for the members.
// Only a save keeps a copy of the members; before it the grid's row count stands for them.
#include "editor/change_check.h"

#include "editor/member_list.h"
#include "platform/convert.h"
#include "platform/row_reader.h"
#include "store/tables.h"

namespace pricedown {
namespace {

// The grid shows the title row alone.
constexpr std::int32_t kNoItems = 1;

bool IsText(const Value& value, const std::u16string& text) {
  return !value.Is(Value::Kind::Null) && ToText(value) == text;
}

bool SameCell(const CellView& left, const CellView& right) {
  return left.kind == right.kind && left.number == right.number && left.text == right.text;
}

// Requires: both have the same, positive number of rows.
bool SameItems(const Recordset& left, const Recordset& right) {
  left.MoveFirst();
  right.MoveFirst();
  RowReader leftRows(left, {columns::kItemId});
  RowReader rightRows(right, {columns::kItemId});
  while (leftRows.Next() && rightRows.Next()) {
    if (!SameCell(leftRows.Field(0), rightRows.Field(0))) return false;
  }
  return true;
}

}  // namespace

bool Check(const FormParts& form) {
  const Recordset& members = form.state.memberList;
  if (members.RecordCount() == 0) return false;
  members.MoveFirst();
  const auto holds = [&](std::u16string_view column, FormField field) {
    return IsText(members.Field(column), form.view.Text(field));
  };
  if (!holds(columns::kItemClassNumber, FormField::ClassNumber) ||
      !holds(columns::kItemClassName, FormField::ClassName) ||
      !holds(columns::kLossAccountNumber, FormField::LossAccount) ||
      !holds(columns::kReserveAccountNumber, FormField::ReserveAccount)) {
    return false;
  }
  const Value percentage = members.Field(columns::kPercentage);
  return !percentage.IsNothing() &&
         EqualsNumber(ToDouble(percentage), form.view.Text(FormField::Percentage));
}

void CheckTextSave(FormParts& form) {
  form.state.textsUnchanged = ReadHeader(form.view) == form.state.savedValues;
}

void CheckRecord(FormParts& form) {
  FormState& state = form.state;
  if (state.saved) {
    CheckTextSave(form);
    state.unchanged = state.textsUnchanged;
    return;
  }
  const std::int32_t kept = RowCountOf(state.keptCopy);
  if (kept == 0) {
    CheckTextSave(form);
    state.unchanged = form.grid.RowCount() == kNoItems && state.textsUnchanged;
    return;
  }
  if (state.memberList.RecordCount() != kept) {
    state.unchanged = false;
    return;
  }
  CheckTextSave(form);
  state.unchanged = SameItems(state.memberList, state.keptCopy) && state.textsUnchanged;
}

}  // namespace pricedown
