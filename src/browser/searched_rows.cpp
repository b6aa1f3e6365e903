// Which rows match: an item by code, name or model, a class by its text in the tree.
#include "browser/searched_rows.h"

#include "browser/item_grid.h"

namespace pricedown {

std::int32_t SearchedItems::Match(std::int32_t row, const TextPattern& pattern) const {
  for (std::int32_t column = grid_columns::kCode; column <= grid_columns::kModel; ++column) {
    if (pattern.IsIn(grid_.Text(column, row))) return column;
  }
  return 0;
}

std::int32_t SearchedClasses::Match(std::int32_t row, const TextPattern& pattern) const {
  return row != kRootNode && nodes_.Contains(row) && pattern.IsIn(nodes_.TextOf(row)) ? 1 : 0;
}

}  // namespace pricedown
