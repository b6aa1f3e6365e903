// Texts of the member list: reading, searching and copying them.
#include "editor/member_rows.h"

#include <algorithm>

#include "env/translation.h"
#include "platform/cell_text.h"
#include "platform/row_reader.h"
#include "platform/text.h"
#include "store/tables.h"

namespace pricedown {

void MemberRows::SetCount(std::int32_t count) {
  count_ = std::max(count, std::int32_t{0});
  isDue_ = true;
}

void MemberRows::Read(const Recordset& items) {
  isDue_ = false;
  rows_.clear();
  rows_.reserve(static_cast<std::size_t>(count_));
  rows_.push_back({Translate(u"物料代码"), Translate(u"物料名称"), Translate(u"规格型号")});
  RowReader reader(items, {columns::kNumber, columns::kName, columns::kModel},
                   NullCells::AsEmptyText);
  std::u16string scratch;
  while (static_cast<std::int32_t>(rows_.size()) < count_ && reader.Next()) {
    Row row;
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = CellText(reader.Field(i), scratch);
    rows_.push_back(std::move(row));
  }
}

std::int32_t MemberRows::Items() const {
  return std::max(static_cast<std::int32_t>(rows_.size()) - 1, std::int32_t{0});
}

std::u16string_view MemberRows::Text(std::int32_t column, std::int32_t row) const {
  const bool exists = column >= 1 && column <= member_columns::kCount && row >= 1 &&
                      row <= static_cast<std::int32_t>(rows_.size());
  if (!exists) return {};
  return rows_[static_cast<std::size_t>(row) - 1][static_cast<std::size_t>(column) - 1];
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
