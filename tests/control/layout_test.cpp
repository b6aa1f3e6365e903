// The layout's arithmetic and the splitter's limits.
#include "control/layout.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "tests/control/recording_control_views.h"

namespace pricedown {

// Found by GoogleTest when a comparison fails.
static void PrintTo(const Rectangle& rectangle, std::ostream* stream) {
  *stream << testing::InLog(rectangle);
}

namespace testing {
namespace {

constexpr std::int32_t kMaximum = std::numeric_limits<std::int32_t>::max();

TEST(Layout, PlacesTheWholeViewOfAnOrdinaryWindow) {
  const Layout layout = ComputeLayout({{12000, 8000}, 3600, true, true});
  EXPECT_EQ(layout.title, (Rectangle{120, 75, 9360, 510}));
  EXPECT_EQ(layout.period, (Rectangle{9480, 330, 2400, 255}));
  EXPECT_EQ(layout.firstLabel, (Rectangle{9480, 75, 1200, 255}));
  EXPECT_EQ(layout.secondLabel, (Rectangle{10680, 75, 1200, 255}));
  EXPECT_EQ(layout.upperLine, (Rectangle{0, 660, 12000, 30}));
  EXPECT_EQ(layout.toolStrip, (Rectangle{0, 690, 12000, 450}));
  EXPECT_EQ(layout.lowerLine, (Rectangle{0, 1140, 12000, 30}));
  EXPECT_EQ(layout.classHeading, (Rectangle{0, 1170, 3600, 300}));
  EXPECT_EQ(layout.tree, (Rectangle{0, 1470, 3600, 6200}));
  EXPECT_EQ(layout.splitter, (Rectangle{3600, 1170, 75, 6500}));
  EXPECT_EQ(layout.itemHeading, (Rectangle{3675, 1170, 8325, 300}));
  EXPECT_EQ(layout.gridPane, (Rectangle{3675, 1470, 8325, 6200}));
  EXPECT_EQ(layout.grid, (Rectangle{3675, 1470, 8275, 6200}));
  EXPECT_EQ(layout.statusBar, (Rectangle{0, 7670, 12000, 330}));
  EXPECT_EQ(layout.progressBar, (Rectangle{9945, 7715, 2010, 240}));
}

TEST(Layout, ExtendsThePanesOverAHiddenToolStrip) {
  const Layout shown = ComputeLayout({{12000, 8000}, 3600, true, true});
  const Layout hidden = ComputeLayout({{12000, 8000}, 3600, false, true});
  EXPECT_EQ(hidden.toolStrip.height, 0);
  EXPECT_EQ(hidden.lowerLine.height, 0);
  EXPECT_EQ(hidden.classHeading.top, 690);
  EXPECT_EQ(hidden.tree.height, shown.tree.height + 480);
  EXPECT_EQ(hidden.grid.height, shown.grid.height + 480);
  EXPECT_EQ(hidden.statusBar, shown.statusBar);
}

TEST(Layout, ExtendsThePanesOverAHiddenStatusBar) {
  const Layout hidden = ComputeLayout({{12000, 8000}, 3600, true, false});
  EXPECT_EQ(hidden.statusBar.height, 0);
  EXPECT_EQ(hidden.progressBar.height, 0);
  EXPECT_EQ(hidden.tree.top + hidden.tree.height, 8000);
  EXPECT_EQ(hidden.grid.top + hidden.grid.height, 8000);
}

TEST(Layout, KeepsTheGridFiftyTwipsNarrowerThanItsPane) {
  for (const std::int32_t width : {5000, 9001, 20000, 100000}) {
    const Layout layout = ComputeLayout({{width, 8000}, 2000, true, true});
    EXPECT_EQ(layout.grid.width, layout.gridPane.width - 50) << width;
  }
}

TEST(Layout, ShowsASplitterInsideTheLimitsOfANarrowControl) {
  EXPECT_EQ(ComputeLayout({{5000, 8000}, 3600, true, true}).splitter.left, 3320);
  EXPECT_EQ(ComputeLayout({{12000, 8000}, 100, true, true}).splitter.left, 1680);
  EXPECT_EQ(ComputeLayout({{2000, 8000}, 3600, true, true}).splitter.left, 320);
}

struct SizeCase {
  std::int32_t width;
  std::int32_t height;
};

std::vector<SizeCase> Sizes() {
  const std::vector<std::int32_t> lengths{
      -kMaximum, -1,   0,    1,    10,   49,   50,   75,   100,  119,  240,   585,    660,
      700,       1140, 1500, 1680, 1755, 2400, 3360, 3435, 5000, 9000, 12000, 100000, kMaximum};
  std::vector<SizeCase> sizes;
  for (const std::int32_t width : lengths) {
    for (const std::int32_t height : lengths) sizes.push_back({width, height});
  }
  return sizes;
}

bool Overlap(const Rectangle& a, const Rectangle& b) {
  const auto meets = [](std::int64_t begin, std::int64_t length, std::int64_t otherBegin,
                        std::int64_t otherLength) {
    return begin < otherBegin + otherLength && otherBegin < begin + length;
  };
  return a.width > 0 && a.height > 0 && b.width > 0 && b.height > 0 &&
         meets(a.left, a.width, b.left, b.width) && meets(a.top, a.height, b.top, b.height);
}

bool Holds(const Rectangle& outer, const Rectangle& inner) {
  return inner.left >= outer.left && inner.top >= outer.top &&
         std::int64_t{inner.left} + inner.width <= std::int64_t{outer.left} + outer.width &&
         std::int64_t{inner.top} + inner.height <= std::int64_t{outer.top} + outer.height;
}

TEST(Layout, KeepsRectanglesInsideAndSeparateAtEverySize) {
  for (const SizeCase& size : Sizes()) {
    for (const std::int32_t splitter : {-5, 0, 1680, 3600, 50000, kMaximum}) {
      for (const int visible : {0, 1, 2, 3}) {
        const Layout layout = ComputeLayout(
            {{size.width, size.height}, splitter, (visible & 1) != 0, (visible & 2) != 0});
        const std::vector<Rectangle> apart{layout.title,      layout.period,    layout.upperLine,
                                           layout.toolStrip,  layout.lowerLine, layout.classHeading,
                                           layout.tree,       layout.splitter,  layout.itemHeading,
                                           layout.gridPane,   layout.statusBar, layout.firstLabel,
                                           layout.secondLabel};
        const Rectangle control{0, 0, std::max(size.width, 0), std::max(size.height, 0)};
        SCOPED_TRACE(::testing::Message() << size.width << "x" << size.height << " splitter "
                                          << splitter << " visible " << visible);
        for (std::size_t i = 0; i < apart.size(); ++i) {
          ASSERT_GE(apart[i].width, 0) << i;
          ASSERT_GE(apart[i].height, 0) << i;
          ASSERT_TRUE(Holds(control, apart[i])) << i;
          for (std::size_t j = 0; j < i; ++j) ASSERT_FALSE(Overlap(apart[i], apart[j])) << i << j;
        }
        for (const auto& [outer, inner] : {std::pair{layout.gridPane, layout.grid},
                                           std::pair{layout.statusBar, layout.progressBar}}) {
          ASSERT_GE(inner.width, 0);
          ASSERT_GE(inner.height, 0);
          ASSERT_TRUE(Holds(outer, inner));
        }
      }
    }
  }
}

TEST(Layout, LeavesNoGapBetweenThePanesAndTheirNeighbours) {
  for (const SizeCase& size : Sizes()) {
    if (size.width < 4000 || size.height < 3000) continue;
    const Layout layout = ComputeLayout({{size.width, size.height}, 2000, true, true});
    EXPECT_EQ(layout.splitter.left, layout.tree.width);
    EXPECT_EQ(layout.gridPane.left, layout.splitter.left + layout.splitter.width);
    EXPECT_EQ(layout.gridPane.left + layout.gridPane.width, size.width);
    EXPECT_EQ(layout.tree.top, layout.classHeading.top + layout.classHeading.height);
    EXPECT_EQ(layout.tree.top + layout.tree.height, layout.statusBar.top);
    EXPECT_EQ(layout.statusBar.top + layout.statusBar.height, size.height);
  }
}

struct ClampCase {
  std::int32_t proposed;
  std::int32_t width;
  std::int32_t expected;
};

TEST(ClampSplitter, KeepsBothPanesAtTheirMinimumWidth) {
  for (const ClampCase& clamp : std::vector<ClampCase>{
           {100, 12000, 1680},
           {1679, 12000, 1680},
           {1680, 12000, 1680},
           {5000, 12000, 5000},
           {10320, 12000, 10320},
           {10321, 12000, 10320},
           {99999, 12000, 10320},
           {-kMaximum, 12000, 1680},
           {kMaximum, kMaximum, kMaximum - 1680},
           // The widths are equal.
           {0, 3360, 1680},
           {9999, 3360, 1680},
           // Too narrow for both: the right pane's limit comes last.
           {0, 3000, 1320},
           {2000, 3000, 1320},
           {2000, 1680, 0},
           {2000, 1000, 0},
           {2000, 0, 0},
           {2000, -kMaximum, 0},
       }) {
    EXPECT_EQ(ClampSplitter(clamp.proposed, clamp.width), clamp.expected)
        << clamp.proposed << " in " << clamp.width;
  }
}

}  // namespace
}  // namespace testing
}  // namespace pricedown
