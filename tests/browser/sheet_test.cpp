// The cells of the item grid and what the window is told of them.
#include "browser/sheet.h"

#include <gtest/gtest.h>

#include "tests/browser/recording_views.h"
#include "tests/support/call_log.h"

namespace pricedown::testing {
namespace {

class SheetTest : public ::testing::Test {
 protected:
  std::string TextAt(std::int32_t column, std::int32_t row) const {
    return Utf8(sheet_.Text(column, row));
  }
  // Which cells are locked, row by row, as L and -.
  std::string Locks() const {
    std::string map;
    for (std::int32_t row = 1; row <= sheet_.MaxRows(); ++row) {
      for (std::int32_t column = 1; column <= sheet_.MaxColumns(); ++column) {
        map += sheet_.IsLocked(column, row) ? 'L' : '-';
      }
      map += ' ';
    }
    return map;
  }
  void SelectBlock(std::int32_t column, std::int32_t column2, std::int32_t row, std::int32_t row2) {
    sheet_.SetBlock({column, row, column2, row2});
  }

  CallLog log_;
  RecorderPtr recorder_ = std::make_shared<Recorder>(log_);
  Sheet sheet_{4};
  RecordingSheetView view_{recorder_, sheet_};
};

TEST_F(SheetTest, HoldsTextsCellByCell) {
  sheet_.SetMaxRows(3);
  sheet_.SetText(1, 1, u"甲");
  sheet_.SetText(4, 3, u"末");
  sheet_.SetText(1, 1, u"较长的新文本");
  sheet_.SetText(2, 1, u"");
  EXPECT_EQ(TextAt(1, 1), "较长的新文本");
  EXPECT_EQ(TextAt(4, 3), "末");
  EXPECT_EQ(TextAt(2, 1), "");
  EXPECT_EQ(TextAt(3, 2), "");
}

TEST_F(SheetTest, CopiesATextOntoAnotherCell) {
  sheet_.SetMaxRows(2);
  sheet_.SetText(1, 1, std::u16string(100, u'x'));
  for (int i = 0; i < 20; ++i) sheet_.SetText(1 + i % 4, 2, sheet_.Text(1, 1));
  EXPECT_EQ(TextAt(4, 2), std::string(100, 'x'));
}

TEST_F(SheetTest, IgnoresCellsOutside) {
  sheet_.SetMaxRows(2);
  for (const auto& [column, row] :
       {std::pair{0, 1}, {5, 1}, {1, 3}, {-1, -1}, {1, -1}, {0, 0}, {5, 0}}) {
    sheet_.SetText(column, row, u"外");
    sheet_.SetUpperBound(column, row, 5);
    EXPECT_EQ(TextAt(column, row), "") << column << "," << row;
    EXPECT_FALSE(sheet_.UpperBound(column, row)) << column << "," << row;
  }
  EXPECT_EQ(sheet_.MaxRows(), 2);
  EXPECT_EQ(sheet_.MaxColumns(), 4);
}

TEST_F(SheetTest, KeepsTitlesInRowZeroWhateverTheRowCount) {
  sheet_.SetText(2, kTitleRow, u"物料名称");
  sheet_.SetMaxRows(3);
  sheet_.SetMaxRows(0);
  EXPECT_EQ(TextAt(2, kTitleRow), "物料名称");
}

TEST_F(SheetTest, LosesTheContentsOfRowsTakenAway) {
  sheet_.SetMaxRows(3);
  sheet_.SetText(1, 2, u"二");
  sheet_.SetText(1, 3, u"三");
  sheet_.SetUpperBound(4, 2, 9);
  sheet_.SetUpperBound(4, 3, 9);
  sheet_.SetBlockMode(true);
  SelectBlock(1, 4, 2, 3);
  sheet_.LockBlock(true);
  sheet_.SetMaxRows(2);
  sheet_.SetMaxRows(3);
  EXPECT_EQ(TextAt(1, 2), "二");
  EXPECT_EQ(TextAt(1, 3), "");
  EXPECT_EQ(sheet_.UpperBound(4, 2), 9);
  EXPECT_FALSE(sheet_.UpperBound(4, 3));
  EXPECT_EQ(Locks(), "---- LLLL ---- ");
  sheet_.SetMaxRows(0);
  sheet_.SetMaxRows(2);
  EXPECT_EQ(TextAt(1, 2), "");
  EXPECT_FALSE(sheet_.UpperBound(4, 2));
  EXPECT_EQ(Locks(), "---- ---- ");
}

TEST_F(SheetTest, TakesANegativeRowCountForNone) {
  sheet_.SetMaxRows(2);
  sheet_.SetMaxRows(-1);
  EXPECT_EQ(sheet_.MaxRows(), 0);
}

TEST_F(SheetTest, BoundsOnlyTheCellsThatWereBounded) {
  sheet_.SetMaxRows(5);
  for (const std::int32_t row : {1, 2, 3, 5}) sheet_.SetUpperBound(4, row, 100);
  sheet_.SetUpperBound(4, 2, 7);
  EXPECT_EQ(sheet_.UpperBound(4, 1), 100);
  EXPECT_EQ(sheet_.UpperBound(4, 2), 7);
  EXPECT_EQ(sheet_.UpperBound(4, 3), 100);
  EXPECT_FALSE(sheet_.UpperBound(4, 4));
  EXPECT_EQ(sheet_.UpperBound(4, 5), 100);
  EXPECT_FALSE(sheet_.UpperBound(3, 1));
}

TEST_F(SheetTest, BoundsColumnsApartAndLeavesABoundThatIsSetAgain) {
  sheet_.SetMaxRows(3);
  sheet_.SetUpperBound(3, 1, 100);
  sheet_.SetUpperBound(4, 2, 100);
  sheet_.SetUpperBound(3, 1, 100);
  EXPECT_EQ(sheet_.UpperBound(3, 1), 100);
  EXPECT_FALSE(sheet_.UpperBound(3, 2));
  EXPECT_FALSE(sheet_.UpperBound(4, 1));
  EXPECT_EQ(sheet_.UpperBound(4, 2), 100);
}

TEST_F(SheetTest, LocksTheWholeBlockOnlyInBlockMode) {
  sheet_.SetMaxRows(3);
  SelectBlock(2, 3, 1, 2);
  sheet_.LockBlock(true);
  EXPECT_EQ(Locks(), "-L-- ---- ---- ");
  sheet_.SetBlockMode(true);
  sheet_.LockBlock(true);
  EXPECT_EQ(Locks(), "-LL- -LL- ---- ");
}

TEST_F(SheetTest, LetsTheLastAttributeOfACellWin) {
  sheet_.SetMaxRows(2);
  sheet_.SetBlockMode(true);
  SelectBlock(1, 4, 1, 2);
  sheet_.LockBlock(true);
  sheet_.ColourBlock(0x11);
  SelectBlock(2, 2, 1, 1);
  sheet_.LockBlock(false);
  sheet_.ColourBlock(0x22);
  EXPECT_EQ(Locks(), "L-LL LLLL ");
  EXPECT_EQ(sheet_.Colour(2, 1), 0x22u);
  EXPECT_EQ(sheet_.Colour(2, 2), 0x11u);
  SelectBlock(1, 4, 1, 2);
  sheet_.LockBlock(false);
  EXPECT_EQ(Locks(), "---- ---- ");
  // Unlocking takes no colour away.
  EXPECT_EQ(sheet_.Colour(2, 1), 0x22u);
}

TEST_F(SheetTest, ClipsABlockToItsCells) {
  sheet_.SetMaxRows(2);
  sheet_.SetBlockMode(true);
  SelectBlock(3, 99, 2, 99);
  sheet_.LockBlock(true);
  sheet_.SetMaxRows(3);
  EXPECT_EQ(Locks(), "---- --LL ---- ");
}

TEST_F(SheetTest, TakesMinusOneForAllRowsOrColumns) {
  sheet_.SetMaxRows(2);
  SelectBlock(kAll, kAll, 2, 2);
  sheet_.LockBlock(true);
  EXPECT_EQ(Locks(), "---- LLLL ");
  SelectBlock(1, 1, kAll, kAll);
  sheet_.LockBlock(true);
  EXPECT_EQ(Locks(), "L--- LLLL ");
}

TEST_F(SheetTest, TakesMinusOneAtTheEndOfABlockForTheLastRowOrColumn) {
  sheet_.SetMaxRows(3);
  sheet_.SetBlockMode(true);
  SelectBlock(3, kAll, 2, kAll);
  sheet_.LockBlock(true);
  EXPECT_EQ(Locks(), "---- --LL --LL ");
}

TEST_F(SheetTest, GivesNoAttributeToABlockWithoutCells) {
  sheet_.SetBlockMode(true);
  SelectBlock(1, 3, 1, 0);
  sheet_.LockBlock(true);
  sheet_.ColourBlock(kTooltipBackground);
  sheet_.SetMaxRows(2);
  EXPECT_EQ(Locks(), "---- ---- ");
  EXPECT_FALSE(sheet_.Colour(1, 1));
  SelectBlock(3, 1, 1, 2);
  sheet_.LockBlock(true);
  EXPECT_EQ(Locks(), "---- ---- ");
}

TEST_F(SheetTest, TellsTheWindowOfEachChange) {
  sheet_.Attach(&view_);
  sheet_.SetMaxRows(2);
  sheet_.SetText(1, 1, u"甲");
  sheet_.SetColumnWidth(1, 12);
  sheet_.SetRowHeight(kAll, 20);
  sheet_.SetFont({u"宋体", 12, true, false});
  sheet_.SetBlock({1, 1, 4, 2});
  sheet_.LockBlock(true);
  sheet_.Repaint();
  EXPECT_EQ(log_.Text(), Lines(R"(
      sheet changed 2 rows
      sheet changed 2 rows
      sheet metrics
      sheet metrics
      sheet metrics
      sheet changed 2 rows
      sheet changed 2 rows
      )"));
}

TEST_F(SheetTest, TellsTheWindowOnceWhenRedrawingComesBack) {
  sheet_.Attach(&view_);
  sheet_.SetRedraw(false);
  sheet_.SetMaxRows(2);
  sheet_.SetText(1, 1, u"甲");
  sheet_.SetFont({u"宋体", 12, false, false});
  sheet_.SetFont({u"宋体", 14, false, false});
  EXPECT_EQ(log_.Text(), "");
  sheet_.SetRedraw(true);
  EXPECT_EQ(log_.Text(), Lines(R"(
      sheet changed 2 rows
      sheet metrics
      )"));
  sheet_.SetRedraw(true);
  sheet_.SetRedraw(false);
  sheet_.SetRedraw(true);
  EXPECT_EQ(log_.Size(), 2u);
}

TEST_F(SheetTest, TellsNothingToAWindowThatWasDetached) {
  sheet_.Attach(&view_);
  sheet_.Attach(nullptr);
  sheet_.SetMaxRows(2);
  EXPECT_EQ(log_.Text(), "");
}

TEST_F(SheetTest, TellsNothingMoreToAWindowThatLeavesWhenItIsTold) {
  struct LeavingView : SheetView {
    explicit LeavingView(Sheet& theSheet) : sheet(theSheet) {}
    void SheetChanged() override { sheet.Attach(nullptr); }
    void SheetMetricsChanged() override { ++metrics; }
    Sheet& sheet;
    int metrics = 0;
  } view(sheet_);
  sheet_.Attach(&view);
  sheet_.SetRedraw(false);
  sheet_.SetMaxRows(2);
  sheet_.SetColumnWidth(1, 12);
  sheet_.SetRedraw(true);
  EXPECT_EQ(view.metrics, 0);
}

TEST_F(SheetTest, TellsOfALongFillNobodyWhoDoesNotShowOne) {
  sheet_.TellFilling();
  sheet_.Attach(&view_);
  sheet_.TellFilling();
  EXPECT_EQ(log_.Text(), "");
}

TEST_F(SheetTest, KeepsWidthsAndHeights) {
  EXPECT_EQ(sheet_.ColumnWidth(1), kDefaultColumnWidth);
  sheet_.SetColumnWidth(4, 12.5);
  sheet_.SetColumnWidth(1, -3);
  sheet_.SetColumnWidth(5, 3);
  sheet_.SetColumnWidth(0, 3);
  EXPECT_EQ(sheet_.ColumnWidth(4), 12.5);
  EXPECT_EQ(sheet_.ColumnWidth(1), 0);
  EXPECT_EQ(sheet_.ColumnWidth(5), 0);
  EXPECT_EQ(sheet_.ColumnWidth(0), 0);
  sheet_.SetRowHeight(kTitleRow, 25.5);
  sheet_.SetRowHeight(kAll, 18);
  sheet_.SetRowHeight(3, 99);
  EXPECT_EQ(sheet_.TitleHeight(), 25.5);
  EXPECT_EQ(sheet_.RowHeight(), 18);
}

}  // namespace
}  // namespace pricedown::testing
