// Fonts as pages name them, and the port that measures texts in them.
// Making and drawing fonts is the device's matter.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "print/page_units.h"

namespace pricedown {

// A font's character set that is left to its name.
inline constexpr std::int32_t kAnyCharset = 1;

struct PageFont {
  std::u16string name;
  double size = 9;  // points
  bool bold = false;
  bool italic = false;
  bool underlined = false;
  std::int32_t charset = kAnyCharset;
  bool operator==(const PageFont&) const = default;
};

// How a header or footer line differs from the others; their font is LineTypeface.
struct LineFont {
  double size = 9;  // points
  bool bold = false;
  bool underlined = false;
  bool operator==(const LineFont&) const = default;
};

// What the header and footer lines are set in.
struct LineTypeface {
  std::u16string name;  // empty: the table's font
  std::int32_t charset = kAnyCharset;
  bool operator==(const LineTypeface&) const = default;
};

// Measures for paper, not for a screen's pixels: screen and printer show the same pages.
// Both throw what the device throws.
class TextMeasurer {
 public:
  virtual ~TextMeasurer() = default;
  // Rounded up. A longer text is never narrower than its beginning.
  virtual Tenths Width(const PageFont& font, std::u16string_view text) = 0;
  virtual Tenths LineHeight(const PageFont& font) = 0;
};

}  // namespace pricedown
