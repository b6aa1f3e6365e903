// Texts of the member list: reading, searching and copying them.
#include "editor/member_rows.h"

#include <algorithm>
#include <string>
#include <utility>

#include "env/translation.h"
#include "platform/cell_text.h"
#include "platform/row_reader.h"
#include "platform/text.h"
#include "store/tables.h"

namespace pricedown {
namespace {

constexpr std::size_t kColumns = member_columns::kCount;
constexpr std::uint32_t kNoText = 0xFFFFFFFF;  // in place of a row

}  // namespace

void MemberRows::SetCount(std::int32_t count) {
  count_ = std::max(count, std::int32_t{0});
  isDue_ = true;
}

void MemberRows::Read(const Recordset& items) {
  isDue_ = false;
  if (IsReadButForRemoved()) {
    DropRemoved();
  } else {
    ReadAll(items);
  }
}

void MemberRows::Remove(std::int32_t row) {
  if (row >= kFirstItem && std::cmp_less_equal(row, order_.size())) removed_.push_back(row);
}

bool MemberRows::IsReadButForRemoved() const {
  return !removed_.empty() && std::cmp_equal(order_.size() - removed_.size(), count_);
}

void MemberRows::DropRemoved() {
  for (const std::int32_t row : removed_) order_[static_cast<std::size_t>(row) - 1] = kNoText;
  std::erase(order_, kNoText);
  removed_.clear();
}

void MemberRows::ReadAll(const Recordset& items) {
  texts_.Clear();
  order_.clear();
  removed_.clear();
  const auto addRow = [&](auto&& textOf) {
    for (std::size_t column = 0; column < kColumns; ++column) texts_.Add(textOf(column));
    order_.push_back(static_cast<std::uint32_t>(order_.size()));
  };
  const std::u16string titles[] = {Translate(u"物料代码"), Translate(u"物料名称"),
                                   Translate(u"规格型号")};
  addRow([&](std::size_t column) -> std::u16string_view { return titles[column]; });
  RowReader reader(items, {columns::kNumber, columns::kName, columns::kModel},
                   NullCells::AsEmptyText);
  std::u16string scratch;
  while (std::cmp_less(order_.size(), count_) && reader.Next()) {
    addRow([&](std::size_t column) { return CellText(reader.Field(column), scratch); });
  }
}

std::int32_t MemberRows::Items() const {
  return std::max(static_cast<std::int32_t>(order_.size()) - 1, std::int32_t{0});
}

std::u16string_view MemberRows::Text(std::int32_t column, std::int32_t row) const {
  const bool exists = column >= 1 && column <= member_columns::kCount && row >= 1 &&
                      std::cmp_less_equal(row, order_.size());
  if (!exists) return {};
  return texts_.At(order_[static_cast<std::size_t>(row) - 1] * kColumns +
                   static_cast<std::size_t>(column) - 1);
}

std::optional<std::int32_t> MemberRows::Find(std::u16string_view text, std::int32_t first) const {
  for (std::int32_t i = 0; i < Items(); ++i) {
    const std::int32_t row = (first - kFirstItem + i) % Items() + kFirstItem;
    const std::u16string_view code = Text(member_columns::kCode, row);
    if (EqualsIgnoringCase(code.substr(0, text.size()), text)) return row;
  }
  return std::nullopt;
}

CopiedCells MemberRows::Copied(std::span<const std::int32_t> rows, bool titled) const {
  CellCopier copier;
  const auto addRow = [&](std::int32_t row) {
    for (std::int32_t column = 1; column <= member_columns::kCount; ++column) {
      copier.Add(Text(column, row), CellKind::Text);
    }
    copier.EndRow();
  };
  if (titled) addRow(kTitleRow);
  for (const std::int32_t row : rows) addRow(row);
  return copier.Finish();
}

}  // namespace pricedown
