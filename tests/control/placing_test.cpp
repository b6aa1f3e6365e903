// When the control updates its layout, and its splitter.
#include "control/price_down.h"
#include "tests/control/control_fixture.h"
#include "tests/support/failure.h"

namespace pricedown::testing {
namespace {

class Placing : public ::testing::Test {
 protected:
  Placing() {
    world_.CreateAndInitialize();
    world_.log.Clear();
  }
  PriceDown& Control() { return *world_.control; }
  std::int32_t SplitterLeft() const { return world_.view.placed.splitter.left; }

  ControlWorld world_;
};

TEST_F(Placing, FollowsTheSizeOfTheControl) {
  world_.view.size = {20000, 9000};
  Control().Resized();
  EXPECT_EQ(world_.view.placed, ComputeLayout({{20000, 9000}, kDefaultSplitter, true, true}));
}

TEST_F(Placing, MovesTheSplitterWhereItsBarWasLeft) {
  Control().SplitterDown();
  Control().SplitterMoved(500);
  Control().SplitterMoved(1000);
  Control().SplitterUp();
  EXPECT_EQ(world_.log.Text(), Lines(R"(
      view bar 3600,1170 75x6500
      view bar 4100,1170 75x6500
      view bar 4600,1170 75x6500
      view place
      view bar hidden
      )"));
  EXPECT_EQ(world_.view.placed, ComputeLayout({{12000, 8000}, 4600, true, true}));
}

TEST_F(Placing, EndsADragOnlyAfterItsBarIsHidden) {
  Control().SplitterDown();
  Control().SplitterMoved(500);
  world_.log.Clear();
  world_.view.whenBarHides = [&] { Control().SplitterMoved(600); };
  Control().SplitterUp();
  Control().SplitterMoved(700);
  EXPECT_EQ(world_.log.Text(), Lines(R"(
      view place
      view bar hidden
      view bar 4700,1170 75x6500
      )"));
}

TEST_F(Placing, HidesTheBarAndEndsTheDragWhenTheLayoutFails) {
  Control().SplitterDown();
  Control().SplitterMoved(500);
  world_.log.Clear();
  world_.factory.FailCall(2);  // the place, behind the size
  EXPECT_EQ(ErrorOf([&] { Control().SplitterUp(); }), kInjectedFailure);
  Control().SplitterMoved(700);
  EXPECT_EQ(world_.log.Text(), Lines(R"(
      view place fails
      view bar hidden
      )"));
}

TEST_F(Placing, KeepsTheSplitterInsideItsLimits) {
  Control().SplitterDown();
  Control().SplitterMoved(100 - kDefaultSplitter);
  EXPECT_EQ(world_.log.Lines().back(), "view bar 1680,1170 75x6500");
  Control().SplitterMoved(50000);
  EXPECT_EQ(world_.log.Lines().back(), "view bar 10320,1170 75x6500");
  Control().SplitterUp();
  EXPECT_EQ(SplitterLeft(), 12000 - 1680);
}

TEST_F(Placing, MovesNothingWithoutADrag) {
  Control().SplitterMoved(500);
  Control().SplitterUp();
  EXPECT_EQ(world_.log.Text(), "");
}

TEST_F(Placing, RepeatsTheLayoutAtTheSamePositionAfterAClickOnTheSplitter) {
  Control().SplitterDown();
  Control().SplitterUp();
  EXPECT_EQ(SplitterLeft(), kDefaultSplitter);
}

TEST_F(Placing, RestoresTheSplitterWhenANarrowControlGrows) {
  world_.view.size = {4000, 8000};
  Control().Resized();
  EXPECT_EQ(SplitterLeft(), 2320);
  world_.view.size = {12000, 8000};
  Control().Resized();
  EXPECT_EQ(SplitterLeft(), kDefaultSplitter);
}

TEST_F(Placing, AnotherResolutionChangesTheGridsHeightsWithoutACallToTheSuite) {
  Control().Show(nullptr);
  world_.log.Clear();
  const double before = Control().GetGrid().RowHeight();
  world_.screen.twipsPerPixel /= 2;
  Control().ResolutionChanged();
  EXPECT_DOUBLE_EQ(Control().GetGrid().RowHeight(), before * 2);
  for (const std::string& line : world_.log.Lines()) {
    EXPECT_TRUE(line.starts_with("font ") || line.starts_with("view ") ||
                line.starts_with("screen "))
        << line;
  }
}

TEST_F(Placing, AnotherResolutionPlacesThePanesInTheNewSize) {
  // As many pixels are fewer twips.
  world_.view.size = {6000, 4000};
  Control().ResolutionChanged();
  EXPECT_EQ(world_.view.placed, ComputeLayout({{6000, 4000}, kDefaultSplitter, true, true}));
}

TEST_F(Placing, BeginsADragWhereANarrowControlShowsTheSplitter) {
  world_.view.size = {4000, 8000};
  Control().Resized();
  Control().SplitterDown();
  EXPECT_EQ(world_.log.Lines().back(), "view bar 2320,1170 75x6500");
  Control().SplitterMoved(-300);
  Control().SplitterUp();
  EXPECT_EQ(SplitterLeft(), 2020);
}

TEST_F(Placing, MovesTheSplitterFromTheKeyboardWithoutABar) {
  Control().StepSplitter(true);
  EXPECT_EQ(SplitterLeft(), 3750);
  EXPECT_EQ(world_.log.Text(), "view place\n");
  for (int step = 0; step < 13; ++step) Control().StepSplitter(false);
  EXPECT_EQ(SplitterLeft(), 1800);
  for (int step = 0; step < 2; ++step) Control().StepSplitter(false);
  EXPECT_EQ(SplitterLeft(), 1680);
}

TEST_F(Placing, ShowsStripAndBarOnlyWhileTheirToolsAreChecked) {
  const auto& bar = Control().BarList();
  bar->Add({u"iToolBar", {}, {}, {}})->SetChecked(true);
  bar->Add({u"mnuViewStatusBar", {}, {}, {}})->SetChecked(false);
  Control().Resized();
  EXPECT_EQ(world_.view.placed, ComputeLayout({{12000, 8000}, kDefaultSplitter, true, false}));
  bar->Tool(u"iToolBar")->SetChecked(false);
  bar->Tool(u"mnuViewStatusBar")->SetChecked(true);
  Control().Resized();
  EXPECT_EQ(world_.view.placed, ComputeLayout({{12000, 8000}, kDefaultSplitter, false, true}));
}

}  // namespace
}  // namespace pricedown::testing
