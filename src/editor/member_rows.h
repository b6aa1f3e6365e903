// The member list as the form shows it: the column titles and one row of texts per item.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/cell_texts.h"
#include "platform/copied_cells.h"
#include "platform/recordset.h"

namespace pricedown {

// Columns from 1.
namespace member_columns {
inline constexpr std::int32_t kCode = 1;
inline constexpr std::int32_t kName = 2;
inline constexpr std::int32_t kModel = 3;
inline constexpr std::int32_t kCount = 3;
}  // namespace member_columns

// Rows from 1: row 1 holds the titles, the items begin at row 2.
class MemberRows {
 public:
  static constexpr std::int32_t kTitleRow = 1;
  static constexpr std::int32_t kFirstItem = 2;

  // The rows that are shown, the title row included; their texts follow with the next Read.
  void SetCount(std::int32_t count);
  std::int32_t Count() const { return count_; }
  // The items have changed; their texts follow with the next Read.
  void Reload() { isDue_ = true; }
  bool IsDue() const { return isDue_; }
  // The item of that row has left the recordset; the next Read removes it.
  // No-op for a row without texts.
  void Remove(std::int32_t row);

  // Reads the titles, and the items from the recordset's current row on, up to the count. Where
  // the removed items make up the difference to the count, the others are not read again. Throws
  // AutomationError; the items before the failure are kept.
  void Read(const Recordset& items);

  // The items that have texts: fewer than counted when the recordset ended before.
  std::int32_t Items() const;
  // Empty for a column or row that has no text.
  std::u16string_view Text(std::int32_t column, std::int32_t row) const;
  // The next row from `first` on whose code begins with `text` in any case; the search goes on at
  // the first item. Requires: `first` is an item's row.
  std::optional<std::int32_t> Find(std::u16string_view text, std::int32_t first) const;
  // For the clipboard, `titled` with the titles of the columns above.
  CopiedCells Copied(std::span<const std::int32_t> rows, bool titled) const;

 private:
  // Whether the texts equal the recordset's without the removed rows.
  bool IsReadButForRemoved() const;
  void DropRemoved();
  void ReadAll(const Recordset& items);

  std::int32_t count_ = 0;
  bool isDue_ = false;
  CellTexts texts_;                    // of every row that was read, the title row first
  std::vector<std::uint32_t> order_;   // the rows that are left of them
  std::vector<std::int32_t> removed_;  // since the last Read
};

}  // namespace pricedown
