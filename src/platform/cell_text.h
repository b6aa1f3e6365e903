// The text of a result's cell, as it is shown and put into statements.
#pragma once

#include <string>
#include <string_view>

#include "platform/cell_block.h"
#include "platform/convert.h"

namespace pricedown {

// Texts as they are, numbers as their default text, null as the empty text. The result is valid as
// long as the cell and `scratch` are.
inline std::u16string_view CellText(const CellView& cell, std::u16string& scratch) {
  if (cell.kind == CellView::Kind::Text) return cell.text;
  if (cell.kind != CellView::Kind::Number) return {};
  scratch = NumberText(cell.number);
  return scratch;
}

}  // namespace pricedown
