// Sizes and rectangles; the unit is that of the declaration that uses them.
#pragma once

#include <algorithm>
#include <cstdint>

namespace pricedown {

struct Size {
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool operator==(const Size&) const = default;
};

struct Rectangle {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;

  constexpr std::int32_t Right() const { return left + width; }
  constexpr std::int32_t Bottom() const { return top + height; }
  constexpr bool IsEmpty() const { return width <= 0 || height <= 0; }
  bool operator==(const Rectangle&) const = default;
};

// The middle of `area`, at most `height` high.
constexpr Rectangle MiddleOf(const Rectangle& area, std::int32_t height) {
  const std::int32_t rest = area.height > height ? area.height - height : 0;
  return {area.left, area.top + rest / 2, area.width, area.height - rest};
}

// `size` over the middle of `over`, made smaller and moved where it would leave `screen`.
constexpr Rectangle CentredOver(const Size& size, const Rectangle& over, const Rectangle& screen) {
  const std::int32_t width = std::min(size.width, screen.width);
  const std::int32_t height = std::min(size.height, screen.height);
  return {std::clamp(over.left + (over.width - width) / 2, screen.left, screen.Right() - width),
          std::clamp(over.top + (over.height - height) / 2, screen.top, screen.Bottom() - height),
          width, height};
}

inline constexpr std::int32_t kTwipsPerInch = 1440;
inline constexpr std::int32_t kHimetricPerInch = 2540;  // hundredths of a millimetre
inline constexpr std::int32_t kDesignDotsPerInch = 96;

// Pixels of a design at 96 dpi in pixels at `dotsPerInch`, rounded to the nearest. Requires:
// positive values.
constexpr std::int32_t ScalePixels(std::int32_t pixels, std::int32_t dotsPerInch) {
  return (pixels * dotsPerInch + kDesignDotsPerInch / 2) / kDesignDotsPerInch;
}

}  // namespace pricedown
