// Columns and rows of the print table.
#include "print/print_document.h"

#include <algorithm>

namespace pricedown {

void PrintTable::Clear() {
  columns_.clear();
  cells_.Clear();
}

void PrintTable::AddColumn(std::u16string_view title, std::int32_t twips) {
  columns_.push_back({std::u16string(title), std::max(twips, 0)});
}

std::int32_t PrintTable::RowCount() const {
  return columns_.empty() ? 0 : static_cast<std::int32_t>(cells_.Count() / columns_.size());
}

}  // namespace pricedown
