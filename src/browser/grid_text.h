// Texts of the grid for the clipboard and for the width of a column.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "browser/grid_selection.h"

namespace pricedown {

// The text that copying the selection puts on the clipboard: of one cell its text, of a block one
// line per row with tabs between the columns. Nothing without rows.
std::optional<std::u16string> CopiedText(const Grid& grid, const GridSelection& selection);

// The rows, titles included, whose texts in that column may be the widest; at least the title.
// Measuring every text of a long grid would take seconds.
std::vector<std::int32_t> RowsOfLongestTexts(const Grid& grid, std::int32_t column);

}  // namespace pricedown
