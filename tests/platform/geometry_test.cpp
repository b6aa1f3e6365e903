// Rectangles and the scaling of designs.
#include "platform/geometry.h"

#include <gtest/gtest.h>

namespace pricedown::testing {
namespace {

TEST(Geometry, ScalesToTheNearestPixel) {
  EXPECT_EQ(ScalePixels(10, 96), 10);
  EXPECT_EQ(ScalePixels(1, 144), 2);
  EXPECT_EQ(ScalePixels(1, 120), 1);
  EXPECT_EQ(ScalePixels(2, 120), 3);
}

TEST(Geometry, KnowsEdgesAndEmptiness) {
  constexpr Rectangle area{10, 20, 30, 40};
  EXPECT_EQ(area.Right(), 40);
  EXPECT_EQ(area.Bottom(), 60);
  EXPECT_FALSE(area.IsEmpty());
  EXPECT_TRUE((Rectangle{0, 0, 0, 5}.IsEmpty()));
  EXPECT_TRUE((Rectangle{0, 0, 5, -1}.IsEmpty()));
}

TEST(Geometry, CentresARowInItsArea) {
  constexpr Rectangle area{10, 20, 30, 41};
  EXPECT_EQ(MiddleOf(area, 30), (Rectangle{10, 25, 30, 30}));
  EXPECT_EQ(MiddleOf(area, 41), area);
  EXPECT_EQ(MiddleOf(area, 99), area);
}

}  // namespace
}  // namespace pricedown::testing
