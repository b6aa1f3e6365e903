// All cells are in one text, so that filling the table copies each of them once.
#include "print/print_document.h"

#include <algorithm>

namespace pricedown {

void PrintTable::Clear() {
  columns_.clear();
  texts_.clear();
  ends_.clear();
}

void PrintTable::AddColumn(std::u16string_view title, std::int32_t twips) {
  columns_.push_back({std::u16string(title), std::max(twips, 0)});
}

void PrintTable::AddCell(std::u16string_view text) {
  texts_.append(text);
  ends_.push_back(texts_.size());
}

std::int32_t PrintTable::RowCount() const {
  return columns_.empty() ? 0 : static_cast<std::int32_t>(ends_.size() / columns_.size());
}

std::u16string_view PrintTable::Cell(std::int32_t row, std::size_t column) const {
  const std::size_t cell = static_cast<std::size_t>(row) * columns_.size() + column;
  const std::size_t begin = cell == 0 ? 0 : ends_[cell - 1];
  return std::u16string_view(texts_).substr(begin, ends_[cell] - begin);
}

}  // namespace pricedown
