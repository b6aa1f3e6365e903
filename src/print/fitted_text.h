// Shortens a text to the width that is there.
// Where the text stands is decided by its caller.
#pragma once

#include <string>
#include <string_view>

#include "print/page_font.h"

namespace pricedown {

// The text, or as much of its beginning as fits with "…" behind it, or nothing when not even that
// fits; control characters become blanks. Measures a number of beginnings that grows with the
// logarithm of what fits, so that a text of any length costs no more than the cell it stands in.
std::u16string FitText(TextMeasurer& measurer, const PageFont& font, std::u16string_view text,
                       Tenths available);

}  // namespace pricedown
