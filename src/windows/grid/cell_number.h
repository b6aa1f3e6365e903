// The numbers that may be typed into a cell: at most two decimals, up to the cell's bound.
// It works on text alone; the field to type into is grid_editor.h.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pricedown::windows {

// Whether the text is such a number or the beginning of one. Empty is.
bool MayBecomeCellNumber(std::u16string_view text, double upperBound);

// The number with its two decimals, empty for the empty text. Nothing when it is no number or
// above the bound.
std::optional<std::u16string> CellNumber(std::u16string_view text, double upperBound);

}  // namespace pricedown::windows
