#include "browser/grid_text.h"

#include "platform/text.h"

namespace pricedown {

std::u16string TabbedText(const Grid& grid, const CellRange& range) {
  std::u16string text;
  for (std::int32_t row = range.row; row <= range.row2 && row <= grid.MaxRows(); ++row) {
    for (std::int32_t column = range.column; column <= range.column2; ++column) {
      if (column > range.column) text += u'\t';
      text += grid.Text(column, row);
    }
    text += kLineBreak;
  }
  return text;
}

}  // namespace pricedown
