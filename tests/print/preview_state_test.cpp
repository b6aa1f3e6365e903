// Page, size and scrolling of a preview.
#include "print/preview_state.h"

#include <gtest/gtest.h>

#include <string>

namespace pricedown::testing {
namespace {

// Ten pages of 10 by 20 inches in an area of 524 by 524 pixels, of which 24 are border.
class Preview : public ::testing::Test {
 protected:
  Preview() {
    state_.SetArea({524, 524, 96});
    state_.SetPages(10, {2540, 5080, {}});
  }
  std::string Box() const {
    const Rectangle box = state_.PaperBox();
    return std::to_string(box.left) + "," + std::to_string(box.top) + " " +
           std::to_string(box.width) + "x" + std::to_string(box.height);
  }

  PreviewState state_;
};

TEST_F(Preview, BeginsWithTheWholeFirstPage) {
  EXPECT_EQ(state_.Page(), 1);
  EXPECT_TRUE(state_.FitsPage());
  EXPECT_EQ(Box(), "137,12 250x500");
  EXPECT_NEAR(state_.Percent(), 500.0 / 1920 * 100, 1E-9);
  EXPECT_LE(state_.ContentWidth(), 524);
  EXPECT_LE(state_.ContentHeight(), 524);
}

TEST_F(Preview, FollowsTheAreaWhileItFits) {
  state_.SetArea({1024, 1024, 96});
  EXPECT_EQ(Box(), "262,12 500x1000");
  state_.SetArea({274, 2024, 96});
  EXPECT_EQ(Box(), "12,762 250x500");
}

TEST_F(Preview, FitsTheWidth) {
  state_.FitWidth();
  EXPECT_TRUE(state_.FitsWidth());
  EXPECT_EQ(state_.PaperBox().width, 500);
  EXPECT_EQ(state_.PaperBox().height, 1000);
  EXPECT_EQ(state_.PaperBox().left, 12);
  EXPECT_EQ(state_.ContentHeight(), 1024);
}

TEST_F(Preview, ShowsTheSameAtTwiceTheResolution) {
  state_.SetArea({1048, 1048, 192});
  EXPECT_EQ(Box(), "274,24 500x1000");
  EXPECT_NEAR(state_.Percent(), 500.0 / 1920 * 100, 1E-9);
  EXPECT_NEAR(state_.Pixels(254), 50, 1E-9);
}

TEST_F(Preview, IsAsLargeAsPaperAtOneHundredPercent) {
  state_.SetPercent(100);
  EXPECT_FALSE(state_.FitsPage());
  EXPECT_EQ(state_.PaperBox().width, 960);
  EXPECT_EQ(state_.PaperBox().height, 1920);
  state_.SetArea({2000, 3000, 96});
  EXPECT_EQ(Box(), "520,540 960x1920");
}

TEST_F(Preview, ZoomsThroughTheUsualSizes) {
  std::string sizes;
  state_.SetPercent(30);
  for (int i = 0; i < 11; ++i) {
    state_.ZoomIn();
    sizes += std::to_string(static_cast<int>(state_.Percent())) + " ";
  }
  EXPECT_EQ(sizes, "50 75 100 125 150 200 300 400 500 500 500 ");
  sizes.clear();
  for (int i = 0; i < 10; ++i) {
    state_.ZoomOut();
    sizes += std::to_string(static_cast<int>(state_.Percent())) + " ";
  }
  EXPECT_EQ(sizes, "400 300 200 150 125 100 75 50 25 25 ");
}

TEST_F(Preview, KeepsItsSizeInBounds) {
  state_.SetPercent(1);
  EXPECT_EQ(state_.Percent(), 10);
  state_.ZoomOut();
  EXPECT_EQ(state_.Percent(), 10);
  state_.SetPercent(1E9);
  EXPECT_EQ(state_.Percent(), 500);
  state_.FitPage();
  state_.SetArea({0, 0, 96});
  EXPECT_EQ(state_.Percent(), 10);
}

TEST_F(Preview, KeepsTheMiddleWhenItZooms) {
  state_.SetPercent(100);
  // The area's middle lies in that of the content.
  EXPECT_EQ(state_.ScrollX(), (984 - 524) / 2);
  state_.ScrollBy(-1000, -10000);
  state_.ScrollBy(98, 98);
  state_.SetPercent(200);
  // 360 of 984 and 360 of 1944 pixels, of 1944 and 3864.
  EXPECT_EQ(state_.ScrollX(), 711 - 262);
  EXPECT_EQ(state_.ScrollY(), 716 - 262);
}

TEST_F(Preview, ScrollsNoFurtherThanTheContent) {
  EXPECT_FALSE(state_.ScrollBy(10, 10));
  state_.SetPercent(100);
  EXPECT_TRUE(state_.ScrollBy(2147483647, 2147483647));
  EXPECT_EQ(state_.ScrollX(), 984 - 524);
  EXPECT_EQ(state_.ScrollY(), 1944 - 524);
  EXPECT_EQ(Box(), "-448,-1408 960x1920");
  EXPECT_FALSE(state_.ScrollBy(1, 1));
  EXPECT_TRUE(state_.ScrollBy(-2147483647, -2147483647));
  EXPECT_EQ(Box(), "12,12 960x1920");
}

TEST_F(Preview, GoesToExistingPagesOnly) {
  EXPECT_TRUE(state_.GoTo(7));
  EXPECT_EQ(state_.Page(), 7);
  EXPECT_FALSE(state_.GoTo(7));
  EXPECT_TRUE(state_.GoTo(999));
  EXPECT_EQ(state_.Page(), 10);
  EXPECT_TRUE(state_.GoTo(-1));
  EXPECT_EQ(state_.Page(), 1);
}

TEST_F(Preview, ShowsTheTopOfThePageItGoesTo) {
  state_.SetPercent(100);
  state_.ScrollBy(0, 10000);
  state_.GoTo(2);
  EXPECT_EQ(state_.ScrollY(), 0);
}

TEST_F(Preview, TurnsThePageWithTheWheelWhereItEnds) {
  state_.SetPercent(100);
  state_.GoTo(1);
  state_.Wheel(1000);
  EXPECT_EQ(state_.Page(), 1);
  EXPECT_EQ(state_.ScrollY(), 1000);
  state_.Wheel(1000);
  EXPECT_EQ(state_.ScrollY(), 1420);
  state_.Wheel(100);
  EXPECT_EQ(state_.Page(), 2);
  EXPECT_EQ(state_.ScrollY(), 0);
  state_.Wheel(-100);
  EXPECT_EQ(state_.Page(), 1);
  EXPECT_EQ(state_.ScrollY(), 1420);
}

TEST_F(Preview, StaysWhereItIsWhenTheWheelDoesNotTurn) {
  state_.GoTo(2);
  state_.Wheel(0);
  EXPECT_EQ(state_.Page(), 2);
}

TEST_F(Preview, StaysAtTheFirstTopAndTheLastBottom) {
  state_.SetPercent(100);
  state_.GoTo(1);
  state_.Wheel(-100);
  EXPECT_EQ(state_.Page(), 1);
  EXPECT_EQ(state_.ScrollY(), 0);
  state_.GoTo(10);
  state_.Wheel(5000);
  state_.Wheel(5000);
  EXPECT_EQ(state_.Page(), 10);
  EXPECT_EQ(state_.ScrollY(), 1420);
}

TEST_F(Preview, TurnsAtOnceWhereAWholePageIsVisible) {
  state_.Wheel(120);
  EXPECT_EQ(state_.Page(), 2);
  state_.Wheel(-120);
  EXPECT_EQ(state_.Page(), 1);
}

TEST_F(Preview, StaysOnItsPageWhenPagesAreRebuilt) {
  state_.GoTo(8);
  state_.SetPages(9, {5080, 2540, {}});
  EXPECT_EQ(state_.Page(), 8);
  EXPECT_EQ(Box(), "12,137 500x250");
  state_.SetPages(3, {2540, 5080, {}});
  EXPECT_EQ(state_.Page(), 3);
  state_.SetPages(0, {});
  EXPECT_EQ(state_.Page(), 1);
  EXPECT_EQ(state_.PageCount(), 1);
}

}  // namespace
}  // namespace pricedown::testing
