// The header is compared field by field, the members item by item.
#include "editor/change_check.h"

#include "editor/member_list.h"
#include "platform/convert.h"
#include "platform/row_reader.h"
#include "store/tables.h"

namespace pricedown {
namespace {

// The title row alone.
constexpr std::int32_t kNoItems = 1;

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

// Only a save keeps a copy of the members; before it the count of rows is compared.
bool MembersUnchanged(const FormState& state) {
  const std::int32_t kept = RowCountOf(state.keptCopy);
  if (kept == 0) return state.rows.Count() == kNoItems;
  return state.memberList.RecordCount() == kept && SameItems(state.memberList, state.keptCopy);
}

}  // namespace

bool CarriesHeader(const Recordset& members, const TypedHeader& header) {
  if (members.RecordCount() == 0) return false;
  members.MoveFirst();
  const auto holds = [&](std::u16string_view column, const std::u16string& text) {
    const Value value = members.Field(column);
    return !value.Is(Value::Kind::Null) && ToText(value) == text;
  };
  if (!holds(columns::kItemClassNumber, header.number) ||
      !holds(columns::kItemClassName, header.name) ||
      !holds(columns::kLossAccountNumber, header.lossAccount) ||
      !holds(columns::kReserveAccountNumber, header.reserveAccount)) {
    return false;
  }
  const Value percentage = members.Field(columns::kPercentage);
  return header.wholePercentage && !percentage.IsNothing() &&
         ToDouble(percentage) == *header.wholePercentage;
}

bool IsUnchanged(const FormState& state, const ClassHeader& header) {
  return (state.saved || MembersUnchanged(state)) && header == state.savedValues;
}

}  // namespace pricedown
