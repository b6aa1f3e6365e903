// Sizes and rectangles; the unit is that of the declaration that uses them.
#pragma once

#include <cstdint>

namespace pricedown {

struct Rectangle {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool operator==(const Rectangle&) const = default;
};

struct Size {
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool operator==(const Size&) const = default;
};

}  // namespace pricedown
