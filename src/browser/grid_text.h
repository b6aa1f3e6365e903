// The texts of grid cells for the clipboard.
#pragma once

#include <string>

#include "browser/grid.h"

namespace pricedown {

// The cells of a range: tabs between columns, a line break behind each row.
std::u16string TabbedText(const Grid& grid, const CellRange& range);

}  // namespace pricedown
