// The cells of the item grid and the notifications to its window.
#include "browser/grid.h"

#include <gtest/gtest.h>

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
  void SelectBlock(std::int32_t column, std::int32_t column2, std::int32_t row, std::int32_t row2) {
    grid_.SetBlock({column, row, column2, row2});
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

TEST_F(GridTest, CopiesATextOntoAnotherCell) {
  grid_.SetMaxRows(2);
  grid_.SetText(1, 1, std::u16string(100, u'x'));
  for (int i = 0; i < 20; ++i) grid_.SetText(1 + i % 4, 2, grid_.Text(1, 1));
  EXPECT_EQ(TextAt(4, 2), std::string(100, 'x'));
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

TEST_F(GridTest, KeepsTitlesInRowZeroWhateverTheRowCount) {
  grid_.SetText(2, kTitleRow, u"物料名称");
  grid_.SetMaxRows(3);
  grid_.SetMaxRows(0);
  EXPECT_EQ(TextAt(2, kTitleRow), "物料名称");
}

TEST_F(GridTest, LosesTheContentsOfRowsTakenAway) {
  grid_.SetMaxRows(3);
  grid_.SetText(1, 2, u"二");
  grid_.SetText(1, 3, u"三");
  grid_.SetUpperBound(4, 2, 9);
  grid_.SetUpperBound(4, 3, 9);
  grid_.SetBlockMode(true);
  SelectBlock(1, 4, 2, 3);
  grid_.LockBlock(true);
  grid_.SetMaxRows(2);
  grid_.SetMaxRows(3);
  EXPECT_EQ(TextAt(1, 2), "二");
  EXPECT_EQ(TextAt(1, 3), "");
  EXPECT_EQ(grid_.UpperBound(4, 2), 9);
  EXPECT_FALSE(grid_.UpperBound(4, 3));
  EXPECT_EQ(Locks(), "---- LLLL ---- ");
  grid_.SetMaxRows(0);
  grid_.SetMaxRows(2);
  EXPECT_EQ(TextAt(1, 2), "");
  EXPECT_FALSE(grid_.UpperBound(4, 2));
  EXPECT_EQ(Locks(), "---- ---- ");
}

TEST_F(GridTest, TreatsANegativeRowCountAsZero) {
  grid_.SetMaxRows(2);
  grid_.SetMaxRows(-1);
  EXPECT_EQ(grid_.MaxRows(), 0);
}

TEST_F(GridTest, BoundsOnlyTheCellsThatWereBounded) {
  grid_.SetMaxRows(5);
  for (const std::int32_t row : {1, 2, 3, 5}) grid_.SetUpperBound(4, row, 100);
  grid_.SetUpperBound(4, 2, 7);
  EXPECT_EQ(grid_.UpperBound(4, 1), 100);
  EXPECT_EQ(grid_.UpperBound(4, 2), 7);
  EXPECT_EQ(grid_.UpperBound(4, 3), 100);
  EXPECT_FALSE(grid_.UpperBound(4, 4));
  EXPECT_EQ(grid_.UpperBound(4, 5), 100);
  EXPECT_FALSE(grid_.UpperBound(3, 1));
}

TEST_F(GridTest, BoundsColumnsApartAndLeavesABoundThatIsSetAgain) {
  grid_.SetMaxRows(3);
  grid_.SetUpperBound(3, 1, 100);
  grid_.SetUpperBound(4, 2, 100);
  grid_.SetUpperBound(3, 1, 100);
  EXPECT_EQ(grid_.UpperBound(3, 1), 100);
  EXPECT_FALSE(grid_.UpperBound(3, 2));
  EXPECT_FALSE(grid_.UpperBound(4, 1));
  EXPECT_EQ(grid_.UpperBound(4, 2), 100);
}

TEST_F(GridTest, LocksTheWholeBlockOnlyInBlockMode) {
  grid_.SetMaxRows(3);
  SelectBlock(2, 3, 1, 2);
  grid_.LockBlock(true);
  EXPECT_EQ(Locks(), "-L-- ---- ---- ");
  grid_.SetBlockMode(true);
  grid_.LockBlock(true);
  EXPECT_EQ(Locks(), "-LL- -LL- ---- ");
}

TEST_F(GridTest, LetsTheLastAttributeOfACellWin) {
  grid_.SetMaxRows(2);
  grid_.SetBlockMode(true);
  SelectBlock(1, 4, 1, 2);
  grid_.LockBlock(true);
  grid_.ColourBlock(0x11);
  SelectBlock(2, 2, 1, 1);
  grid_.LockBlock(false);
  grid_.ColourBlock(0x22);
  EXPECT_EQ(Locks(), "L-LL LLLL ");
  EXPECT_EQ(grid_.Colour(2, 1), 0x22u);
  EXPECT_EQ(grid_.Colour(2, 2), 0x11u);
  SelectBlock(1, 4, 1, 2);
  grid_.LockBlock(false);
  EXPECT_EQ(Locks(), "---- ---- ");
  // Unlocking keeps the colour.
  EXPECT_EQ(grid_.Colour(2, 1), 0x22u);
}

TEST_F(GridTest, ClipsABlockToItsCells) {
  grid_.SetMaxRows(2);
  grid_.SetBlockMode(true);
  SelectBlock(3, 99, 2, 99);
  grid_.LockBlock(true);
  grid_.SetMaxRows(3);
  EXPECT_EQ(Locks(), "---- --LL ---- ");
}

TEST_F(GridTest, TreatsMinusOneAsAllRowsOrColumns) {
  grid_.SetMaxRows(2);
  SelectBlock(kAll, kAll, 2, 2);
  grid_.LockBlock(true);
  EXPECT_EQ(Locks(), "---- LLLL ");
  SelectBlock(1, 1, kAll, kAll);
  grid_.LockBlock(true);
  EXPECT_EQ(Locks(), "L--- LLLL ");
}

TEST_F(GridTest, TreatsMinusOneAtTheEndOfABlockAsTheLastRowOrColumn) {
  grid_.SetMaxRows(3);
  grid_.SetBlockMode(true);
  SelectBlock(3, kAll, 2, kAll);
  grid_.LockBlock(true);
  EXPECT_EQ(Locks(), "---- --LL --LL ");
}

TEST_F(GridTest, SetsNoAttributeOnABlockWithoutCells) {
  grid_.SetBlockMode(true);
  SelectBlock(1, 3, 1, 0);
  grid_.LockBlock(true);
  grid_.ColourBlock(kTooltipBackground);
  grid_.SetMaxRows(2);
  EXPECT_EQ(Locks(), "---- ---- ");
  EXPECT_FALSE(grid_.Colour(1, 1));
  SelectBlock(3, 1, 1, 2);
  grid_.LockBlock(true);
  EXPECT_EQ(Locks(), "---- ---- ");
}

TEST_F(GridTest, NotifiesTheWindowOfEachChange) {
  grid_.Attach(&view_);
  grid_.SetMaxRows(2);
  grid_.SetText(1, 1, u"甲");
  grid_.SetColumnWidth(1, 12);
  grid_.SetRowHeight(kAll, 20);
  grid_.SetFont({u"宋体", 12, true, false});
  grid_.SetBlock({1, 1, 4, 2});
  grid_.LockBlock(true);
  grid_.Repaint();
  EXPECT_EQ(log_.Text(), Lines(R"(
      grid changed 2 rows
      grid changed 2 rows
      grid metrics
      grid metrics
      grid metrics
      grid changed 2 rows
      grid changed 2 rows
      )"));
}

TEST_F(GridTest, NotifiesTheWindowOnceWhenRedrawResumes) {
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

TEST_F(GridTest, StopsNotifyingAWindowThatDetachesInANotification) {
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

TEST_F(GridTest, ReportsNoProgressToAWindowThatShowsNone) {
  grid_.NotifyFilling();
  grid_.Attach(&view_);
  grid_.NotifyFilling();
  EXPECT_EQ(log_.Text(), "");
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
  grid_.SetRowHeight(kTitleRow, 25.5);
  grid_.SetRowHeight(kAll, 18);
  grid_.SetRowHeight(3, 99);
  EXPECT_EQ(grid_.TitleHeight(), 25.5);
  EXPECT_EQ(grid_.RowHeight(), 18);
}

}  // namespace
}  // namespace pricedown::testing
