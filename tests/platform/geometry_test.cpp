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

TEST(Geometry, CentresAWindowOverItsOwner) {
  constexpr Rectangle screen{0, 0, 1000, 800};
  EXPECT_EQ(CentredOver({100, 50}, {300, 200, 400, 300}, screen), (Rectangle{450, 325, 100, 50}));
  EXPECT_EQ(CentredOver({100, 50}, screen, screen), (Rectangle{450, 375, 100, 50}));
}

TEST(Geometry, KeepsACentredWindowOnItsScreen) {
  constexpr Rectangle screen{1000, 40, 1000, 760};  // the second monitor, below a taskbar
  EXPECT_EQ(CentredOver({100, 50}, {900, 0, 120, 20}, screen), (Rectangle{1000, 40, 100, 50}));
  EXPECT_EQ(CentredOver({100, 50}, {1980, 790, 120, 20}, screen), (Rectangle{1900, 750, 100, 50}));
  EXPECT_EQ(CentredOver({5000, 4000}, {1200, 100, 50, 50}, screen), screen);
}

}  // namespace
}  // namespace pricedown::testing
