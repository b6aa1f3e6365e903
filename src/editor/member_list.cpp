// The fifteen fields: the suite's lookups and the save rely on their types and sizes.
#include "editor/member_list.h"

#include <array>

#include "store/tables.h"

namespace pricedown {
namespace {

struct MemberField {
  std::u16string_view name;
  std::int32_t type;
  std::int32_t size;
};

constexpr std::int32_t kModelSize = 255;
constexpr std::int32_t kTextSize = 80;

constexpr std::array<MemberField, 15> kMemberFields{{
    {columns::kItemId, ado::kInteger, 0},
    {columns::kNumber, ado::kVarWChar, kTextSize},
    {columns::kShortNumber, ado::kVarWChar, kTextSize},
    {columns::kName, ado::kVarWChar, kTextSize},
    {columns::kModel, ado::kVarWChar, kModelSize},
    {columns::kItemClassId, ado::kInteger, 0},
    {columns::kItemClassNumber, ado::kVarWChar, kTextSize},
    {columns::kItemClassName, ado::kVarWChar, kTextSize},
    {columns::kLossAccountId, ado::kInteger, 0},
    {columns::kLossAccountNumber, ado::kVarWChar, kTextSize},
    {columns::kReserveAccountId, ado::kInteger, 0},
    {columns::kReserveAccountNumber, ado::kVarWChar, kTextSize},
    {columns::kPercentage, ado::kDouble, 0},
    {columns::kYear, ado::kInteger, 0},
    {columns::kPeriod, ado::kInteger, 0},
}};

}  // namespace

void AppendMemberFields(const Recordset& recordset) {
  for (const MemberField& field : kMemberFields) {
    // Nullable: an added item leaves most of the columns empty.
    recordset.AppendField(
        {std::u16string(field.name), field.type, field.size, ado::kFieldIsNullable, 0, 0});
  }
}

std::int32_t RowCountOf(const Recordset& recordset) {
  return recordset ? recordset.RecordCount() : 0;
}

}  // namespace pricedown
