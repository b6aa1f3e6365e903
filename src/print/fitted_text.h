// Shortens a text to the available width.
#pragma once

#include <string_view>

#include "print/page.h"
#include "print/text_measurer.h"

namespace pricedown {

// The text itself where it fits and can be shown as it is, else a text kept in `made`: control
// characters become blanks, and what does not fit ends in "…"; empty when not even that fits.
// Costs what fits, however long the text is.
std::u16string_view FitText(TextMeasurer& measurer, const Font& font, std::u16string_view text,
                            Tenths available, TextArena& made);

}  // namespace pricedown
