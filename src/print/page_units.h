// Lengths and boxes on paper, in tenths of a millimetre.
// Twips are turned into them here and nowhere else; pixels are a device's matter.
#pragma once

#include <algorithm>
#include <cstdint>

namespace pricedown {

using Tenths = std::int32_t;

// To the nearest tenth; nothing is shorter than 0.
constexpr Tenths TenthsOfTwips(std::int32_t twips) {
  // 1440 twips are 25.4 mm.
  return static_cast<Tenths>((std::max<std::int64_t>(twips, 0) * 254 + 720) / 1440);
}

// From the top left corner of the paper.
struct PageBox {
  Tenths left = 0;
  Tenths top = 0;
  Tenths right = 0;
  Tenths bottom = 0;

  Tenths Width() const { return right - left; }
  Tenths Height() const { return bottom - top; }
  bool IsEmpty() const { return right <= left || bottom <= top; }
  bool operator==(const PageBox&) const = default;
};

}  // namespace pricedown
