// The port that measures the texts of pages.
#pragma once

#include <cstddef>
#include <string_view>

#include "env/font.h"
#include "print/page_units.h"

namespace pricedown {

// Measures for paper, so that screen and printer show the same pages. All members throw what the
// device throws.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  // Rounded up. A longer text is never narrower than its beginning.
  virtual Tenths Width(const Font& font, std::u16string_view text) = 0;
  // The length of the longest beginning that is at most `available` wide.
  virtual std::size_t FittingLength(const Font& font, std::u16string_view text,
                                    Tenths available) = 0;
  virtual Tenths LineHeight(const Font& font) = 0;
};

}  // namespace pricedown
