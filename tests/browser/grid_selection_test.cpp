// The selection of cells, its keys, and the texts that are copied from it.
#include "browser/grid_selection.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "browser/grid_text.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

class GridSelectionTest : public ::testing::Test {
 protected:
  GridSelectionTest() { grid_.SetMaxRows(50); }

  // Presses the key as the grid's window does, with pages of ten rows.
  void Press(const KeyPress& press) { selection_.Move(GridKeyOf(press), press.shift, 10, grid_); }
  void Press(Key key) { Press(KeyPress{key}); }
  void PressControl(Key key) { Press(KeyPress{.key = key, .control = true}); }
  void PressShift(Key key) { Press(KeyPress{.key = key, .shift = true}); }
  CellRange Range() const { return selection_.Range(); }
  static CellRange Cell(std::int32_t column, std::int32_t row) {
    return {column, row, column, row};
  }

  Grid grid_{4};
  GridSelection selection_;
};

TEST_F(GridSelectionTest, MovesByArrowKeys) {
  Press(Key::Right);
  Press(Key::Down);
  Press(Key::Down);
  EXPECT_EQ(Range(), Cell(2, 3));
  Press(Key::Left);
  Press(Key::Up);
  EXPECT_EQ(Range(), Cell(1, 2));
}

TEST_F(GridSelectionTest, MovesByPages) {
  Press(Key::PageDown);
  EXPECT_EQ(Range(), Cell(1, 11));
  for (int i = 0; i < 9; ++i) Press(Key::PageDown);
  EXPECT_EQ(Range(), Cell(1, 50));
  Press(Key::PageUp);
  EXPECT_EQ(Range(), Cell(1, 40));
}

TEST_F(GridSelectionTest, MovesToTheEndsOfRowColumnAndGrid) {
  Press(Key::Down);
  Press(Key::End);
  EXPECT_EQ(Range(), Cell(4, 2));
  Press(Key::Home);
  EXPECT_EQ(Range(), Cell(1, 2));
  PressControl(Key::Right);
  EXPECT_EQ(Range(), Cell(4, 2));
  PressControl(Key::Down);
  EXPECT_EQ(Range(), Cell(4, 50));
  PressControl(Key::Left);
  EXPECT_EQ(Range(), Cell(1, 50));
  PressControl(Key::Up);
  EXPECT_EQ(Range(), Cell(1, 1));
  PressControl(Key::End);
  EXPECT_EQ(Range(), Cell(4, 50));
  PressControl(Key::Home);
  EXPECT_EQ(Range(), Cell(1, 1));
}

TEST_F(GridSelectionTest, StaysInsideTheGrid) {
  Press(Key::Up);
  Press(Key::PageUp);
  Press(Key::Left);
  EXPECT_EQ(Range(), Cell(1, 1));
  PressControl(Key::End);
  Press(Key::PageDown);
  Press(Key::Right);
  Press(Key::Down);
  EXPECT_EQ(Range(), Cell(4, 50));
  selection_.MoveTo(9, 99, false, grid_);
  EXPECT_EQ(Range(), Cell(4, 50));
  selection_.MoveTo(0, -3, true, grid_);
  EXPECT_EQ(Range(), (CellRange{1, 1, 4, 50}));
}

TEST_F(GridSelectionTest, ExtendsABlockWithShiftFromWhereItBegan) {
  Press(Key::Right);
  PressShift(Key::Down);
  PressShift(Key::Right);
  EXPECT_EQ(Range(), (CellRange{2, 1, 3, 2}));
  EXPECT_TRUE(selection_.IsBlock());
  EXPECT_TRUE(selection_.Highlights(2, 1));
  EXPECT_FALSE(selection_.Highlights(3, 2));  // the current cell
  EXPECT_FALSE(selection_.Highlights(1, 1));
  PressShift(Key::Up);
  PressShift(Key::Left);
  EXPECT_FALSE(selection_.IsBlock());
  EXPECT_FALSE(selection_.Highlights(2, 1));
  PressShift(Key::Left);
  EXPECT_EQ(Range(), (CellRange{1, 1, 2, 1}));
  Press(Key::Down);
  EXPECT_EQ(Range(), Cell(1, 2));
}

TEST_F(GridSelectionTest, SelectsColumnsRowsAndEverything) {
  selection_.SelectColumn(3, grid_);
  EXPECT_EQ(Range(), (CellRange{3, 1, 3, 50}));
  selection_.MoveTo(2, 4, false, grid_);
  selection_.MoveTo(2, 6, true, grid_);
  selection_.SelectRows(grid_);
  EXPECT_EQ(Range(), (CellRange{1, 4, 4, 6}));
  selection_.SelectAll(grid_);
  EXPECT_EQ(Range(), (CellRange{1, 1, 4, 50}));
}

TEST_F(GridSelectionTest, CoversALockAndFadesWithoutTheFocus) {
  grid_.LockColumns(3);
  selection_.MoveTo(2, 1, false, grid_);
  selection_.MoveTo(4, 1, true, grid_);  // the current cell of the block 2 to 4
  EXPECT_EQ(LookOf(grid_, selection_, 1, 1, true), CellLook::Locked);
  EXPECT_EQ(LookOf(grid_, selection_, 2, 1, true), CellLook::Selected);
  EXPECT_EQ(LookOf(grid_, selection_, 2, 1, false), CellLook::SelectedUnfocused);
  EXPECT_EQ(LookOf(grid_, selection_, 4, 1, true), CellLook::Open);
  EXPECT_EQ(LookOf(grid_, selection_, 4, 2, false), CellLook::Open);
}

TEST_F(GridSelectionTest, FitsAGridWithFewerRows) {
  selection_.MoveTo(3, 40, false, grid_);
  grid_.SetMaxRows(45);
  selection_.Fit(grid_);
  EXPECT_EQ(Range(), Cell(3, 40));
  grid_.SetMaxRows(30);
  selection_.Fit(grid_);
  EXPECT_EQ(Range(), Cell(3, 30));
  grid_.SetMaxRows(0);
  selection_.Fit(grid_);
  EXPECT_EQ(selection_, GridSelection{});
}

TEST_F(GridSelectionTest, MovesNothingByOtherKeys) {
  selection_.MoveTo(2, 2, false, grid_);
  const GridSelection before = selection_;
  for (const GridKey key : {GridKey::None, GridKey::SelectAll, GridKey::SelectRows}) {
    EXPECT_FALSE(selection_.Move(key, false, 10, grid_));
  }
  EXPECT_EQ(selection_, before);
}

TEST(GridKeys, NeedTheirModifiers) {
  EXPECT_EQ(GridKeyOf({.key = Key::Insert}), GridKey::None);
  EXPECT_EQ(GridKeyOf({.key = Key::A, .control = true}), GridKey::SelectAll);
  EXPECT_EQ(GridKeyOf({.key = Key::Space}), GridKey::None);
  EXPECT_EQ(GridKeyOf({.key = Key::Space, .shift = true}), GridKey::SelectRows);
  EXPECT_EQ(GridKeyOf({.key = Key::PageUp, .control = true}), GridKey::None);
  EXPECT_EQ(GridKeyOf({.key = Key::Enter}), GridKey::None);
}

TEST_F(GridSelectionTest, CopiesABlockAsOneLinePerRow) {
  grid_.SetText(1, 1, u"甲");
  grid_.SetText(2, 2, u"2.00");
  selection_ = {1, 1, 2, 2};
  EXPECT_EQ(Utf8(Copied(grid_, selection_, false)->text), "甲\t\r\n\t2.00\r\n");
}

TEST_F(GridSelectionTest, CopiesABlockBelowItsTitles) {
  grid_.SetText(2, kTitleRow, u"名称");
  grid_.SetText(3, kTitleRow, u"型号");
  grid_.SetText(2, 1, u"螺栓");
  selection_ = {2, 1, 3, 1};
  EXPECT_EQ(Utf8(Copied(grid_, selection_, true)->text), "名称\t型号\r\n螺栓\t\r\n");
  selection_.MoveTo(2, 1, false, grid_);
  EXPECT_EQ(Utf8(Copied(grid_, selection_, true)->text), "名称\r\n螺栓\r\n");
}

TEST_F(GridSelectionTest, CopiesAPriceAsANumberAndACodeAsText) {
  grid_.SetText(3, 1, u"001000");
  grid_.SetUpperBound(4, 50, 100);
  grid_.SetText(4, 1, u"2.00");
  selection_ = {3, 1, 4, 1};
  EXPECT_THAT(Copied(grid_, selection_, false)->html,
              ::testing::HasSubstr("<tr><td class=t>001000</td><td>2.00</td></tr>"));
}

TEST_F(GridSelectionTest, CopiesOneCellAsItsTextAlone) {
  grid_.SetText(2, 3, u"螺栓");
  selection_.MoveTo(2, 3, false, grid_);
  EXPECT_EQ(Utf8(Copied(grid_, selection_, false)->text), "螺栓");
  selection_.MoveTo(2, 4, false, grid_);
  EXPECT_EQ(Utf8(Copied(grid_, selection_, false)->text), "");
}

TEST_F(GridSelectionTest, CopiesNothingWithoutRows) {
  grid_.SetMaxRows(0);
  EXPECT_FALSE(Copied(grid_, selection_, true));
}

TEST_F(GridSelectionTest, MeasuresTheTitleAndTheLongestTextsOfAColumn) {
  grid_.SetMaxRows(1000);
  for (std::int32_t row = 1; row <= 1000; ++row) grid_.SetText(2, row, u"ab");
  grid_.SetText(2, 1000, u"abcde");
  grid_.SetText(2, 1, u"中文");  // as wide as four Latin letters
  const std::vector<std::int32_t> rows = RowsOfLongestTexts(grid_, 2);
  EXPECT_EQ(rows.size(), 65u);
  EXPECT_EQ(rows.front(), kTitleRow);
  EXPECT_EQ(std::count(rows.begin(), rows.end(), 1000), 1);
  EXPECT_EQ(std::count(rows.begin(), rows.end(), 1), 1);
  grid_.SetMaxRows(0);
  EXPECT_EQ(RowsOfLongestTexts(grid_, 2), std::vector<std::int32_t>{kTitleRow});
}

}  // namespace
}  // namespace pricedown::testing
