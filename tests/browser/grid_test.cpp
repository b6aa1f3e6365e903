// The cells of the item grid and the notifications of its window.
#include "browser/grid.h"

#include <gtest/gtest.h>

#include <array>
#include <span>

#include "tests/browser/recording_views.h"
#include "tests/support/call_log.h"

namespace pricedown::testing {
namespace {

class GridTest : public ::testing::Test {
 protected:
  std::string TextAt(std::int32_t column, std::int32_t row) const {
    return Utf8(grid_.Text(column, row));
  }
  // Which cells are locked, row by row, as L and -.
  std::string Locks() const {
    std::string map;
    for (std::int32_t row = 1; row <= grid_.MaxRows(); ++row) {
      for (std::int32_t column = 1; column <= grid_.MaxColumns(); ++column) {
        map += grid_.IsLocked(column, row) ? 'L' : '-';
      }
      map += ' ';
    }
    return map;
  }
  CallLog log_;
  RecorderPtr recorder_ = std::make_shared<Recorder>(log_);
  Grid grid_{4};
  RecordingGridView view_{recorder_, grid_};
};

TEST_F(GridTest, HoldsTextsCellByCell) {
  grid_.SetMaxRows(3);
  grid_.SetText(1, 1, u"甲");
  grid_.SetText(4, 3, u"末");
  grid_.SetText(1, 1, u"较长的新文本");
  grid_.SetText(2, 1, u"");
  EXPECT_EQ(TextAt(1, 1), "较长的新文本");
  EXPECT_EQ(TextAt(4, 3), "末");
  EXPECT_EQ(TextAt(2, 1), "");
  EXPECT_EQ(TextAt(3, 2), "");
}

TEST(Grid, MayHaveASingleColumn) {
  Grid grid(1);
  grid.SetMaxRows(1);
  grid.SetText(1, 1, u"甲");
  grid.SetText(2, 1, u"外");
  EXPECT_EQ(grid.MaxColumns(), 1);
  EXPECT_EQ(Utf8(grid.Text(1, 1)), "甲");
}

TEST_F(GridTest, CopiesATextOntoAnotherCell) {
  grid_.SetMaxRows(2);
  grid_.SetText(1, 1, std::u16string(100, u'x'));
  for (int i = 0; i < 20; ++i) grid_.SetText(1 + i % 4, 2, grid_.Text(1, 1));
  EXPECT_EQ(TextAt(4, 2), std::string(100, 'x'));
}

TEST_F(GridTest, SetsTheTextsOfARowAtOnce) {
  grid_.SetMaxRows(2);
  const std::array<std::u16string_view, 3> texts{u"甲", u"", u"丙"};
  grid_.SetText(4, 2, u"丁");
  grid_.SetRowTexts(2, texts);
  EXPECT_EQ(TextAt(1, 2) + TextAt(2, 2) + TextAt(3, 2) + TextAt(4, 2), "甲丙丁");
  EXPECT_EQ(TextAt(1, 1), "");
}

TEST_F(GridTest, IgnoresARowThatDoesNotFit) {
  grid_.SetMaxRows(2);
  const std::array<std::u16string_view, 5> tooMany{u"a", u"b", u"c", u"d", u"e"};
  grid_.SetRowTexts(1, tooMany);
  for (const std::int32_t row : {-1, 0, 3}) grid_.SetRowTexts(row, std::span(tooMany).first(4));
  EXPECT_EQ(TextAt(1, 1) + TextAt(1, 2) + TextAt(1, 0), "");
}

TEST_F(GridTest, IgnoresCellsOutside) {
  grid_.SetMaxRows(2);
  for (const auto& [column, row] :
       {std::pair{0, 1}, {5, 1}, {1, 3}, {-1, -1}, {1, -1}, {0, 0}, {5, 0}}) {
    grid_.SetText(column, row, u"外");
    grid_.SetUpperBound(column, row, 5);
    EXPECT_EQ(TextAt(column, row), "") << column << "," << row;
    EXPECT_FALSE(grid_.UpperBound(column, row)) << column << "," << row;
  }
  EXPECT_EQ(grid_.MaxRows(), 2);
  EXPECT_EQ(grid_.MaxColumns(), 4);
}

TEST_F(GridTest, KeepsTitlesInRowZeroForAnyRowCount) {
  grid_.SetText(2, kTitleRow, u"物料名称");
  grid_.SetMaxRows(3);
  grid_.SetMaxRows(0);
  EXPECT_EQ(TextAt(2, kTitleRow), "物料名称");
}

TEST_F(GridTest, LosesTheContentsOfRemovedRows) {
  grid_.SetMaxRows(3);
  grid_.SetText(1, 2, u"二");
  grid_.SetText(1, 3, u"三");
  grid_.SetUpperBound(4, 3, 9);
  grid_.LockColumns(3);
  grid_.SetMaxRows(2);
  grid_.SetMaxRows(3);
  EXPECT_EQ(TextAt(1, 2), "二");
  EXPECT_EQ(TextAt(1, 3), "");
  EXPECT_EQ(grid_.UpperBound(4, 2), 9);
  EXPECT_FALSE(grid_.UpperBound(4, 3));
  grid_.SetMaxRows(0);
  grid_.SetMaxRows(2);
  EXPECT_EQ(TextAt(1, 2), "");
  EXPECT_FALSE(grid_.UpperBound(4, 2));
  EXPECT_EQ(Locks(), "---- ---- ");
}

TEST_F(GridTest, HasNoRowsForANegativeCount) {
  grid_.SetMaxRows(2);
  grid_.SetMaxRows(-1);
  EXPECT_EQ(grid_.MaxRows(), 0);
}

TEST_F(GridTest, BoundsAColumnDownToARow) {
  grid_.SetMaxRows(5);
  grid_.SetUpperBound(4, 3, 100);
  EXPECT_EQ(grid_.UpperBound(4, 1), 100);
  EXPECT_EQ(grid_.UpperBound(4, 3), 100);
  EXPECT_FALSE(grid_.UpperBound(4, 4));
  EXPECT_FALSE(grid_.UpperBound(3, 1));
  grid_.SetUpperBound(4, 99, 7);
  EXPECT_EQ(grid_.UpperBound(4, 1), 7);
  EXPECT_EQ(grid_.UpperBound(4, 5), 7);
  EXPECT_FALSE(grid_.UpperBound(4, 6));
  grid_.SetUpperBound(1, 2, 8);
  EXPECT_EQ(grid_.UpperBound(1, 2), 8);
}

TEST_F(GridTest, LocksColumnsOfAllRowsUntilItIsEmptied) {
  grid_.LockColumns(4);
  grid_.SetMaxRows(2);
  EXPECT_EQ(Locks(), "---- ---- ");  // there was no row to lock
  grid_.LockColumns(3);
  EXPECT_EQ(Locks(), "LLL- LLL- ");
  grid_.LockColumns(1);
  EXPECT_EQ(Locks(), "LLL- LLL- ");
  grid_.LockColumns(4);
  EXPECT_EQ(Locks(), "LLLL LLLL ");
  EXPECT_FALSE(grid_.IsLocked(1, 3));
  EXPECT_FALSE(grid_.IsLocked(5, 1));
  grid_.SetMaxRows(0);
  grid_.SetMaxRows(1);
  EXPECT_EQ(Locks(), "---- ");
}

TEST_F(GridTest, EditsCellsWithABoundThatAreNotLocked) {
  grid_.SetMaxRows(2);
  grid_.SetUpperBound(3, 2, 100);
  grid_.SetUpperBound(4, 1, 100);
  grid_.LockColumns(3);
  EXPECT_TRUE(grid_.IsEditable(4, 1));
  EXPECT_FALSE(grid_.IsEditable(4, 2));
  EXPECT_FALSE(grid_.IsEditable(3, 1));
}

TEST_F(GridTest, NotifiesTheWindowOfEachChange) {
  grid_.Attach(&view_);
  grid_.SetMaxRows(2);
  grid_.SetText(1, 1, u"甲");
  grid_.SetColumnWidth(1, 12);
  grid_.SetTitleHeight(30);
  grid_.SetRowHeight(20);
  grid_.SetFont({u"宋体", 12, true, false});
  grid_.LockColumns(2);
  grid_.Repaint();
  EXPECT_EQ(log_.Text(), Lines(R"(
      grid changed 2 rows
      grid changed 2 rows
      grid metrics
      grid metrics
      grid metrics
      grid metrics
      grid changed 2 rows
      grid changed 2 rows
      )"));
}

TEST_F(GridTest, NotifiesTheWindowOnceWhenRedrawingIsSwitchedOn) {
  grid_.Attach(&view_);
  grid_.SetRedraw(false);
  grid_.SetMaxRows(2);
  grid_.SetText(1, 1, u"甲");
  grid_.SetFont({u"宋体", 12, false, false});
  grid_.SetFont({u"宋体", 14, false, false});
  EXPECT_EQ(log_.Text(), "");
  grid_.SetRedraw(true);
  EXPECT_EQ(log_.Text(), Lines(R"(
      grid changed 2 rows
      grid metrics
      )"));
  grid_.SetRedraw(true);
  grid_.SetRedraw(false);
  grid_.SetRedraw(true);
  EXPECT_EQ(log_.Size(), 2u);
}

TEST_F(GridTest, NotifiesNoDetachedWindow) {
  grid_.Attach(&view_);
  grid_.Attach(nullptr);
  grid_.SetMaxRows(2);
  EXPECT_EQ(log_.Text(), "");
}

TEST_F(GridTest, StopsNotifyingAWindowThatDetachesInItsCallback) {
  struct LeavingView : GridView {
    explicit LeavingView(Grid& theGrid) : grid(theGrid) {}
    void GridChanged() override { grid.Attach(nullptr); }
    void GridMetricsChanged() override { ++metrics; }
    Grid& grid;
    int metrics = 0;
  } view(grid_);
  grid_.Attach(&view);
  grid_.SetRedraw(false);
  grid_.SetMaxRows(2);
  grid_.SetColumnWidth(1, 12);
  grid_.SetRedraw(true);
  EXPECT_EQ(view.metrics, 0);
}

TEST_F(GridTest, ReportsALongFillToAnAttachedWindowOnly) {
  struct CountingView : GridView {
    void GridChanged() override {}
    void GridMetricsChanged() override {}
    void GridFilling() override { ++fills; }
    int fills = 0;
  } view;
  grid_.NotifyFilling();
  grid_.Attach(&view);
  grid_.NotifyFilling();
  EXPECT_EQ(view.fills, 1);
}

TEST_F(GridTest, KeepsWidthsAndHeights) {
  EXPECT_EQ(grid_.ColumnWidth(1), kDefaultColumnWidth);
  grid_.SetColumnWidth(4, 12.5);
  grid_.SetColumnWidth(1, -3);
  grid_.SetColumnWidth(5, 3);
  grid_.SetColumnWidth(0, 3);
  EXPECT_EQ(grid_.ColumnWidth(4), 12.5);
  EXPECT_EQ(grid_.ColumnWidth(1), 0);
  EXPECT_EQ(grid_.ColumnWidth(5), 0);
  EXPECT_EQ(grid_.ColumnWidth(0), 0);
  grid_.SetTitleHeight(25.5);
  grid_.SetRowHeight(18);
  EXPECT_EQ(grid_.TitleHeight(), 25.5);
  EXPECT_EQ(grid_.RowHeight(), 18);
  grid_.SetRowHeight(-1);
  EXPECT_EQ(grid_.RowHeight(), 0);
}

TEST_F(GridTest, ClearsNumbersOnlyWhereTheyMayBeTyped) {
  grid_.SetMaxRows(3);
  for (std::int32_t row = 1; row <= 3; ++row) {
    grid_.SetText(1, row, u"甲");
    grid_.SetText(4, row, u"1.00");
  }
  grid_.SetUpperBound(1, 3, 9);
  grid_.SetUpperBound(4, 3, 9);
  grid_.LockColumns(1);
  grid_.ClearNumbers({1, 2, 99, 99});
  EXPECT_EQ(TextAt(1, 2), "甲");
  EXPECT_EQ(TextAt(4, 1), "1.00");
  EXPECT_EQ(TextAt(4, 2), "");
  EXPECT_EQ(TextAt(4, 3), "");
}

}  // namespace
}  // namespace pricedown::testing
