// Geometry of columns and rows, and the part of them that a window shows.
#include "browser/grid_viewport.h"

#include <gtest/gtest.h>

namespace pricedown::testing {
namespace {

// Three columns of 100, 0 and 55 pixels at 96 dpi, rows of 19 and titles of 24.
class GridViewportTest : public ::testing::Test {
 protected:
  GridViewportTest() {
    grid_.SetColumnWidth(1, 10);
    grid_.SetColumnWidth(2, 0);
    grid_.SetColumnWidth(3, 5.5);
    Geometry().Update(grid_, 96, 15);
  }

  GridGeometry& Geometry() { return viewport_.Geometry(); }
  // Room for `rows` whole rows and `width` pixels, with a hundred rows in the grid.
  void Show(std::int32_t rows, int width) { viewport_.Resize({width, 24 + rows * 19 + 5}, 100); }

  Grid grid_{3};
  GridViewport viewport_;
};

TEST_F(GridViewportTest, FindsColumnsByPosition) {
  EXPECT_EQ(Geometry().Width(), 155);
  EXPECT_EQ(Geometry().ColumnAt(0), 1);
  EXPECT_EQ(Geometry().ColumnAt(99), 1);
  EXPECT_EQ(Geometry().ColumnAt(100), 3);
  EXPECT_EQ(Geometry().ColumnAt(154), 3);
  EXPECT_EQ(Geometry().ColumnAt(155), 0);
  EXPECT_EQ(Geometry().ColumnAt(-1), 0);
  EXPECT_EQ(Geometry().NearestColumn(-5), 1);
  EXPECT_EQ(Geometry().NearestColumn(1000), 3);
}

TEST_F(GridViewportTest, HasNoColumnsWhenCleared) {
  Geometry().Clear();
  EXPECT_EQ(Geometry().Columns(), 0);
  EXPECT_EQ(Geometry().Width(), 0);
  EXPECT_EQ(Geometry().NearestColumn(5), 0);
  EXPECT_EQ(viewport_.HitTest(5, 5, 4).edge, 0);
}

TEST_F(GridViewportTest, FindsTheColumnWithoutWidthAtItsEdge) {
  EXPECT_EQ(Geometry().EdgeAt(98, 4), 2);
  EXPECT_EQ(Geometry().EdgeAt(104, 4), 2);
  EXPECT_EQ(Geometry().EdgeAt(105, 4), 0);
  EXPECT_EQ(Geometry().EdgeAt(155, 4), 3);
}

TEST_F(GridViewportTest, FindsEachColumnAtItsEdge) {
  grid_.SetColumnWidth(2, 5.5);
  Geometry().Update(grid_, 96, 15);
  EXPECT_EQ(Geometry().EdgeAt(100, 4), 1);
  EXPECT_EQ(Geometry().EdgeAt(155, 4), 2);
  EXPECT_EQ(Geometry().EdgeAt(210, 4), 3);
}

TEST_F(GridViewportTest, MakesRowsAndTitlesHighEnoughForTheirText) {
  grid_.SetRowHeight(4);
  grid_.SetTitleHeight(4);
  Geometry().Update(grid_, 96, 15);
  EXPECT_EQ(Geometry().RowHeight(), 17);
  EXPECT_EQ(Geometry().TitleHeight(), 19);
  grid_.SetRowHeight(16.33);
  Geometry().Update(grid_, 96, 12);
  EXPECT_EQ(Geometry().RowHeight(), 17);
}

TEST_F(GridViewportTest, KeepsWidthsThroughPixels) {
  EXPECT_EQ(ColumnPixels(12, 96), 120);
  EXPECT_EQ(ColumnPixels(12, 192), 240);
  for (const int dpi : {96, 120, 144, 192}) {
    for (int pixels = 0; pixels < 500; ++pixels) {
      EXPECT_EQ(ColumnPixels(ColumnWidthUnits(pixels, dpi), dpi), pixels);
    }
  }
}

TEST_F(GridViewportTest, CountsWholeRowsAndAtLeastOne) {
  Show(10, 200);
  EXPECT_EQ(viewport_.PageRows(), 10);
  viewport_.Resize({0, 0}, 100);
  EXPECT_EQ(viewport_.PageRows(), 1);
  EXPECT_EQ(viewport_.PageWidth(), 1);
}

TEST_F(GridViewportTest, ScrollsAsFarAsTheGridGoes) {
  Show(10, 120);
  EXPECT_TRUE(viewport_.ScrollTo(1000, 1000));
  EXPECT_EQ(viewport_.TopRow(), 91);
  EXPECT_EQ(viewport_.Left(), 35);
  EXPECT_FALSE(viewport_.ScrollTo(2000, 2000));
  EXPECT_TRUE(viewport_.ScrollTo(-5, -5));
  EXPECT_EQ(viewport_.TopRow(), 1);
  EXPECT_EQ(viewport_.Left(), 0);
}

TEST_F(GridViewportTest, ScrollsBackWhenRowsOrColumnsGetFewer) {
  Show(10, 120);
  viewport_.ScrollTo(91, 35);
  EXPECT_TRUE(viewport_.Resize({120, 24 + 190}, 15));
  EXPECT_EQ(viewport_.TopRow(), 6);
  Geometry().Clear();
  EXPECT_TRUE(viewport_.Resize({120, 24 + 190}, 0));
  EXPECT_EQ(viewport_.TopRow(), 1);
  EXPECT_EQ(viewport_.Left(), 0);
}

TEST_F(GridViewportTest, ScrollsRowsByTheBarsSteps) {
  Show(10, 200);
  viewport_.ScrollRows(ScrollStep::LineForward, 0);
  EXPECT_EQ(viewport_.TopRow(), 2);
  viewport_.ScrollRows(ScrollStep::PageForward, 0);
  EXPECT_EQ(viewport_.TopRow(), 11);  // one row stays in sight
  viewport_.ScrollRows(ScrollStep::PageBack, 0);
  viewport_.ScrollRows(ScrollStep::LineBack, 0);
  EXPECT_EQ(viewport_.TopRow(), 1);
  viewport_.ScrollRows(ScrollStep::Track, 40);
  EXPECT_EQ(viewport_.TopRow(), 41);
  viewport_.ScrollRows(ScrollStep::End, 0);
  EXPECT_EQ(viewport_.TopRow(), 91);
  viewport_.ScrollRows(ScrollStep::Start, 0);
  EXPECT_EQ(viewport_.TopRow(), 1);
}

TEST_F(GridViewportTest, ScrollsColumnsByPixels) {
  Show(10, 60);
  viewport_.ScrollColumns(ScrollStep::LineForward, 0);
  EXPECT_EQ(viewport_.Left(), 24);
  viewport_.ScrollColumns(ScrollStep::PageForward, 0);
  EXPECT_EQ(viewport_.Left(), 84);
  viewport_.ScrollColumns(ScrollStep::Track, 7);
  EXPECT_EQ(viewport_.Left(), 7);
  viewport_.ScrollColumns(ScrollStep::End, 0);
  EXPECT_EQ(viewport_.Left(), 95);
  EXPECT_EQ(viewport_.TopRow(), 1);
}

TEST_F(GridViewportTest, AddsUpSmallTurnsOfTheWheel) {
  Show(10, 60);
  viewport_.TurnWheel(-120, 3, false);
  EXPECT_EQ(viewport_.TopRow(), 4);
  for (int i = 0; i < 4; ++i) viewport_.TurnWheel(30, 3, false);
  EXPECT_EQ(viewport_.TopRow(), 1);
  viewport_.TurnWheel(-120, GridViewport::kWheelPage, false);
  EXPECT_EQ(viewport_.TopRow(), 11);
  viewport_.TurnWheel(120, 1, true);
  EXPECT_EQ(viewport_.Left(), 24);
}

TEST_F(GridViewportTest, DropsASmallTurnOfTheWheelWhenTheDirectionChanges) {
  Show(10, 60);
  viewport_.ScrollTo(5, 0);
  viewport_.TurnWheel(90, 1, false);
  viewport_.TurnWheel(-120, 1, false);
  EXPECT_EQ(viewport_.TopRow(), 6);
}

TEST_F(GridViewportTest, AddsUpTurnsOfEachWheelAlone) {
  Show(10, 60);
  viewport_.TurnWheel(90, 1, true);
  viewport_.TurnWheel(90, 1, false);
  EXPECT_EQ(viewport_.Left(), 0);
  viewport_.TurnWheel(30, 1, true);
  EXPECT_EQ(viewport_.Left(), 24);
}

TEST_F(GridViewportTest, RevealsACellWithMinimalScrolling) {
  Show(10, 60);
  EXPECT_FALSE(viewport_.Reveal(1, 10));
  EXPECT_TRUE(viewport_.Reveal(3, 11));
  EXPECT_EQ(viewport_.TopRow(), 2);
  EXPECT_EQ(viewport_.Left(), 95);
  EXPECT_TRUE(viewport_.Reveal(1, 1));  // wider than the window: its left edge
  EXPECT_EQ(viewport_.TopRow(), 1);
  EXPECT_EQ(viewport_.Left(), 0);
}

TEST_F(GridViewportTest, PlacesCellsInTheWindow) {
  Show(10, 120);
  viewport_.ScrollTo(5, 20);
  EXPECT_EQ(viewport_.CellArea(3, 6), (Rectangle{80, 24 + 19, 55, 19}));
  EXPECT_EQ(viewport_.CellArea(1, 4), (Rectangle{-20, 24 - 19, 100, 19}));
  EXPECT_EQ(viewport_.CellArea(4, 5), (Rectangle{0, 24, 0, 19}));
}

TEST_F(GridViewportTest, FindsWhatIsUnderAPoint) {
  Show(10, 120);
  viewport_.ScrollTo(5, 20);
  const GridHit cell = viewport_.HitTest(100, 24 + 20, 4);
  EXPECT_EQ(cell.column, 3);
  EXPECT_EQ(cell.row, 6);
  EXPECT_EQ(cell.edge, 0);
  EXPECT_FALSE(cell.title);
  const GridHit edge = viewport_.HitTest(133, 5, 4);
  EXPECT_EQ(edge.edge, 3);
  EXPECT_TRUE(edge.title);
  // Edges are dragged in the titles only.
  EXPECT_EQ(viewport_.HitTest(133, 24, 4).edge, 0);
  EXPECT_EQ(viewport_.HitTest(133, -1, 4).edge, 0);
  EXPECT_EQ(viewport_.HitTest(136, 30, 4).column, 0);
  // A drag may go above and below the rows.
  EXPECT_EQ(viewport_.RowAt(-3), 4);
  EXPECT_EQ(viewport_.RowAt(24 + 19 * 200), 205);
}

}  // namespace
}  // namespace pricedown::testing
