// Page, size and scrolling of a preview.
#include "print/preview_state.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>

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

TEST_F(Preview, HasAtLeastOneDotPerInch) {
  state_.SetPercent(100);
  state_.SetArea({524, 524, 0});
  EXPECT_NEAR(state_.Pixels(2540), 10, 1E-9);
}

TEST_F(Preview, IsNotScrolledOnceThePageFits) {
  state_.SetPercent(100);
  state_.ScrollBy(0, 5000);
  state_.FitPage();
  EXPECT_EQ(state_.ScrollY(), 0);
}

TEST_F(Preview, IsAsLargeAsPaperAtOneHundredPercent) {
  state_.SetPercent(100);
  EXPECT_EQ(state_.PaperBox().width, 960);
  EXPECT_EQ(state_.PaperBox().height, 1920);
  state_.SetArea({2000, 3000, 96});
  EXPECT_EQ(Box(), "520,540 960x1920");
}

TEST_F(Preview, ZoomsThroughTheListedSizes) {
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
  state_.Advance(1000);
  EXPECT_EQ(state_.Page(), 1);
  EXPECT_EQ(state_.ScrollY(), 1000);
  state_.Advance(1000);
  EXPECT_EQ(state_.ScrollY(), 1420);
  state_.Advance(100);
  EXPECT_EQ(state_.Page(), 2);
  EXPECT_EQ(state_.ScrollY(), 0);
  state_.Advance(-100);
  EXPECT_EQ(state_.Page(), 1);
  EXPECT_EQ(state_.ScrollY(), 1420);
}

TEST_F(Preview, StaysWhereItIsWhenTheWheelDoesNotTurn) {
  state_.GoTo(2);
  state_.Advance(0);
  EXPECT_EQ(state_.Page(), 2);
}

TEST_F(Preview, StaysAtTheFirstTopAndTheLastBottom) {
  state_.SetPercent(100);
  state_.GoTo(1);
  state_.Advance(-100);
  EXPECT_EQ(state_.Page(), 1);
  EXPECT_EQ(state_.ScrollY(), 0);
  state_.GoTo(10);
  state_.Advance(5000);
  state_.Advance(5000);
  EXPECT_EQ(state_.Page(), 10);
  EXPECT_EQ(state_.ScrollY(), 1420);
}

TEST_F(Preview, TurnsAtOnceWhereAWholePageIsVisible) {
  state_.Advance(120);
  EXPECT_EQ(state_.Page(), 2);
  state_.Advance(-120);
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

TEST_F(Preview, TurnsAFittingPageByWholeNotchesOfTheWheel) {
  state_.Wheel(-120, 120);
  EXPECT_EQ(state_.Page(), 2);
  state_.Wheel(-40, 120);
  state_.Wheel(-40, 120);
  EXPECT_EQ(state_.Page(), 2);
  state_.Wheel(-40, 120);
  EXPECT_EQ(state_.Page(), 3);
  // The first part of a notch in the other direction resets the sum.
  state_.Wheel(-80, 120);
  state_.Wheel(40, 120);
  state_.Wheel(80, 120);
  EXPECT_EQ(state_.Page(), 2);
}

TEST_F(Preview, ScrollsALargePageByThreeLinesPerNotch) {
  state_.SetPercent(100);
  state_.GoTo(1);
  state_.Wheel(-120, 120);
  EXPECT_EQ(state_.ScrollY(), 3 * state_.LineStep());
  state_.Wheel(40, 120);
  EXPECT_EQ(state_.ScrollY(), 2 * state_.LineStep());
}

TEST_F(Preview, ZoomsByOneSizePerTurnOfTheWheel) {
  EXPECT_EQ(state_.ZoomOfWheel(119, 120), std::nullopt);
  EXPECT_EQ(state_.ZoomOfWheel(1, 120), PreviewCommand::ZoomIn);
  EXPECT_EQ(state_.ZoomOfWheel(-240, 120), PreviewCommand::ZoomOut);
}

// The commands for turning pages that are enabled.
std::string Turning(const PreviewState& state) {
  std::string enabled;
  for (const auto& [name, command] :
       {std::pair{"First ", PreviewCommand::First},
        std::pair{"Previous ", PreviewCommand::Previous}, std::pair{"Next ", PreviewCommand::Next},
        std::pair{"Last ", PreviewCommand::Last}}) {
    if (state.IsEnabled(command)) enabled += name;
  }
  return enabled;
}

TEST_F(Preview, EnablesTurningWhereThereAreMorePages) {
  EXPECT_EQ(Turning(state_), "Next Last ");
  state_.Run(PreviewCommand::Next);
  EXPECT_EQ(state_.Page(), 2);
  EXPECT_EQ(Turning(state_), "First Previous Next Last ");
  state_.Run(PreviewCommand::Last);
  EXPECT_EQ(state_.Page(), 10);
  EXPECT_EQ(Turning(state_), "First Previous ");
  state_.Run(PreviewCommand::Previous);
  EXPECT_EQ(state_.Page(), 9);
  state_.Run(PreviewCommand::First);
  EXPECT_EQ(state_.Page(), 1);
}

TEST_F(Preview, EnablesZoomingUpToTheLargestAndTheSmallestSize) {
  state_.SetPercent(500);
  EXPECT_FALSE(state_.IsEnabled(PreviewCommand::ZoomIn));
  EXPECT_TRUE(state_.IsEnabled(PreviewCommand::ZoomOut));
  state_.SetPercent(25);
  EXPECT_TRUE(state_.IsEnabled(PreviewCommand::ZoomIn));
  EXPECT_FALSE(state_.IsEnabled(PreviewCommand::ZoomOut));
  EXPECT_TRUE(state_.IsEnabled(PreviewCommand::Print));
}

TEST_F(Preview, ZoomsByCommands) {
  state_.SetPercent(100);
  state_.Run(PreviewCommand::ZoomIn);
  EXPECT_EQ(state_.Percent(), 125);
  state_.Run(PreviewCommand::ZoomOut);
  state_.Run(PreviewCommand::ZoomOut);
  EXPECT_EQ(state_.Percent(), 75);
}

TEST_F(Preview, FitsThePageByItsCommand) {
  state_.SetPercent(100);
  state_.Run(PreviewCommand::FitPage);
  EXPECT_EQ(Box(), "137,12 250x500");
}

TEST_F(Preview, FitsTheWidthFromTheTop) {
  state_.SetPercent(100);
  state_.ScrollBy(0, 10000);
  state_.Run(PreviewCommand::FitWidth);
  EXPECT_EQ(state_.PaperBox().width, 500);
  EXPECT_EQ(state_.ScrollY(), 0);
}

TEST_F(Preview, ScrollsByLinesScreensAndToTheEnds) {
  state_.SetPercent(100);
  state_.GoTo(2);
  state_.ScrollBy(-10000, 0);
  state_.Run(PreviewCommand::LineDown);
  state_.Run(PreviewCommand::LineRight);
  EXPECT_EQ(state_.ScrollY(), 24);
  EXPECT_EQ(state_.ScrollX(), 24);
  state_.Run(PreviewCommand::LineUp);
  state_.Run(PreviewCommand::LineLeft);
  EXPECT_EQ(state_.ScrollY(), 0);
  EXPECT_EQ(state_.ScrollX(), 0);
  // A line of the screen before stays in sight.
  state_.Run(PreviewCommand::ScreenDown);
  EXPECT_EQ(state_.ScrollY(), 500);
  state_.Run(PreviewCommand::Bottom);
  EXPECT_EQ(state_.ScrollY(), 1420);
  state_.Run(PreviewCommand::ScreenDown);
  EXPECT_EQ(state_.Page(), 3);
  state_.Run(PreviewCommand::ScreenUp);
  EXPECT_EQ(state_.Page(), 2);
  EXPECT_EQ(state_.ScrollY(), 1420);
  state_.Run(PreviewCommand::Top);
  EXPECT_EQ(state_.ScrollY(), 0);
}

}  // namespace
}  // namespace pricedown::testing
