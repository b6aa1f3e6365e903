// Texts of the grid for the clipboard and for the width of a column.
#pragma once

#include <optional>
#include <vector>

#include "browser/grid_selection.h"
#include "platform/copied_cells.h"

namespace pricedown {

// What copying the selection puts on the clipboard, `titled` with the titles of its columns above.
// Nothing without rows.
std::optional<CopiedCells> Copied(const Grid& grid, const GridSelection& selection, bool titled);

// The rows, titles included, whose texts in that column may be the widest; at least the title.
// Measuring every text of a long grid would take seconds.
std::vector<std::int32_t> RowsOfLongestTexts(const Grid& grid, std::int32_t column);

}  // namespace pricedown
