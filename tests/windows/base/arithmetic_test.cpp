// Geometry and numbers of the windows, without a window.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/support/utf8.h"
#include "windows/base/dpi.h"

namespace pricedown::testing {
namespace {

using windows::Dpi;

TEST(Dpi, KeepsNeighboursTogether) {
  for (const int value : {96, 120, 144, 192, 240}) {
    const Dpi dpi(value);
    for (std::int32_t width = 0; width < 200; width += 7) {
      const RECT left = dpi.ToPixels(Rectangle{0, 0, width, 10});
      const RECT right = dpi.ToPixels(Rectangle{width, 0, 75, 10});
      EXPECT_EQ(left.right, right.left);
    }
  }
}

TEST(Dpi, RestoresASizeInPixelsAfterTwips) {
  for (const int value : {96, 120, 144, 168, 192, 240}) {
    const Dpi dpi(value);
    for (int pixels = 0; pixels < 3000; pixels += 13) {
      EXPECT_NEAR(dpi.ToPixels(dpi.ToTwips(pixels)), pixels, 0) << value;
    }
  }
}

TEST(Dpi, CountsFontHeightsInPoints) {
  EXPECT_EQ(Dpi(96).FontHeight(9), -12);
  EXPECT_EQ(Dpi(144).FontHeight(9), -18);
  EXPECT_EQ(Dpi(192).FontHeight(18), -48);
}

}  // namespace
}  // namespace pricedown::testing
