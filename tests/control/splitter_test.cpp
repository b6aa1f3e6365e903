// Dragging the splitter.
#include "control/splitter.h"

#include <gtest/gtest.h>

#include <limits>

namespace pricedown {
namespace {

constexpr std::int32_t kWidth = 12000;

TEST(Splitter, StartsAtItsDefaultPositionWithoutADrag) {
  const Splitter splitter;
  EXPECT_EQ(splitter.Position(), kDefaultSplitter);
  EXPECT_FALSE(splitter.Dragging());
}

TEST(Splitter, MovesItsBarFromTheEdgeWhereTheDragBegan) {
  Splitter splitter;
  splitter.SetPosition(4000);
  splitter.Begin();
  EXPECT_EQ(splitter.BarPosition(), 4000);
  splitter.MoveTo(500, kWidth);
  splitter.MoveTo(300, kWidth);
  EXPECT_EQ(splitter.BarPosition(), 4300);
  EXPECT_EQ(splitter.Position(), 4000);
  splitter.End();
  EXPECT_EQ(splitter.Position(), 4300);
  EXPECT_FALSE(splitter.Dragging());
}

TEST(Splitter, StaysInsideItsLimits) {
  Splitter splitter;
  splitter.Begin();
  splitter.MoveTo(100 - kDefaultSplitter, kWidth);
  EXPECT_EQ(splitter.BarPosition(), 1680);
  splitter.MoveTo(kWidth, kWidth);
  EXPECT_EQ(splitter.BarPosition(), kWidth - 1680);
  splitter.MoveTo(std::numeric_limits<std::int32_t>::max(), kWidth);
  EXPECT_EQ(splitter.BarPosition(), kWidth - 1680);
  splitter.MoveTo(std::numeric_limits<std::int32_t>::min(), kWidth);
  EXPECT_EQ(splitter.BarPosition(), 1680);
}

TEST(Splitter, KeepsAPositionThatWasSetWhenNoDragEnds) {
  Splitter splitter;
  splitter.SetPosition(5000);
  splitter.End();
  EXPECT_EQ(splitter.Position(), 5000);
}

TEST(Splitter, IgnoresMovesWithoutADrag) {
  Splitter splitter;
  splitter.MoveTo(500, kWidth);
  splitter.End();
  EXPECT_EQ(splitter.Position(), kDefaultSplitter);
  splitter.Begin();
  splitter.MoveTo(500, kWidth);
  splitter.End();
  splitter.MoveTo(900, kWidth);
  splitter.End();
  EXPECT_EQ(splitter.Position(), kDefaultSplitter + 500);
}

}  // namespace
}  // namespace pricedown
