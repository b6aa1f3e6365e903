// Moving, selecting and copying in the grid, by keyboard and mouse.
#include "tests/windows/base/clipboard_table.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/grid/grid_world.h"
#include "windows/base/clipboard.h"

namespace pricedown::testing {
namespace {

TEST_F(GridWindow, MovesTheCurrentCellByArrowKeys) {
  input_.Press(VK_RIGHT);
  input_.Press(VK_DOWN);
  input_.Press(VK_DOWN);
  EXPECT_EQ(Current(), "2,3");
  input_.Press(VK_LEFT);
  input_.Press(VK_LEFT);
  input_.Press(VK_UP);
  EXPECT_EQ(Current(), "1,2");
}

TEST_F(GridWindow, ScrollsToTheCurrentCell) {
  input_.PressWith(VK_CONTROL, VK_DOWN);
  EXPECT_EQ(Current(), "1,100");
  EXPECT_GT(window_.Viewport().TopRow(), 80);
  input_.PressWith(VK_CONTROL, VK_HOME);
  EXPECT_EQ(window_.Viewport().TopRow(), 1);
}

TEST_F(GridWindow, MovesByPages) {
  input_.Press(VK_NEXT);
  const std::int32_t row = window_.Selection().row;
  EXPECT_GT(row, 8);
  input_.Press(VK_NEXT);
  EXPECT_EQ(window_.Selection().row, 2 * row - 1);
  input_.Press(VK_PRIOR);
  EXPECT_EQ(window_.Selection().row, row);
}

TEST_F(GridWindow, SelectsABlockWithShift) {
  input_.Press(VK_RIGHT);
  input_.PressWith(VK_SHIFT, VK_DOWN);
  input_.PressWith(VK_SHIFT, VK_RIGHT);
  EXPECT_EQ(Range(), (CellRange{2, 1, 3, 2}));
  KeepPicture(host_.Handle(), "grid block");
  input_.Press(VK_DOWN);
  EXPECT_EQ(Range(), (CellRange{3, 3, 3, 3}));
}

TEST_F(GridWindow, SelectsRowsAndEverything) {
  input_.PressWith(VK_SHIFT, VK_DOWN);
  input_.PressWith(VK_SHIFT, VK_SPACE);
  EXPECT_EQ(Range(), (CellRange{1, 1, 4, 2}));
  input_.PressWith(VK_CONTROL, 'A');
  EXPECT_EQ(Range(), (CellRange{1, 1, 4, 100}));
}

TEST_F(GridWindow, SelectsByMouse) {
  input_.Click(Handle(), CellPoint(2, 4));
  EXPECT_EQ(Current(), "2,4");
  input_.Click(Handle(), CellPoint(3, 6), MK_SHIFT);
  EXPECT_EQ(Range(), (CellRange{2, 4, 3, 6}));
  input_.Drag(Handle(), CellPoint(1, 2), CellPoint(2, 5));
  EXPECT_EQ(Range(), (CellRange{1, 2, 2, 5}));
}

TEST_F(GridWindow, ATitleSelectsItsColumn) {
  input_.Click(Handle(), {CellPoint(3, 1).x, 5});
  EXPECT_EQ(Range(), (CellRange{3, 1, 3, 100}));
}

TEST_F(GridWindow, DraggingBelowTheEdgeScrolls) {
  RECT client{};
  GetClientRect(Handle(), &client);
  input_.Drag(Handle(), CellPoint(1, 2), {CellPoint(1, 2).x, client.bottom + 20});
  EXPECT_GT(window_.Viewport().TopRow(), 1);
  EXPECT_EQ(Range().row, 2);
}

TEST_F(GridWindow, CopiesTheSelectedCellsAsATableToo) {
  input_.PressWith(VK_SHIFT, VK_RIGHT);
  window_.Copy(false);
  const std::string plain = ClipboardTable(Handle());
  EXPECT_LT(plain.find("甲"), plain.find("乙")) << plain;
  EXPECT_NE(plain.find("乙"), std::string::npos) << plain;
  EXPECT_EQ(plain.find("列"), std::string::npos) << plain;
  window_.Copy(true);
  const std::string titled = ClipboardTable(Handle());
  EXPECT_LT(titled.find("列2"), titled.find("甲")) << titled;
  EXPECT_NE(titled.find("甲"), std::string::npos) << titled;
}

TEST_F(GridWindow, CopiesTheSelectedCellsAsTabbedText) {
  input_.PressWith(VK_SHIFT, VK_RIGHT);
  input_.PressWith(VK_SHIFT, VK_DOWN);
  SendMessageW(Handle(), WM_COPY, 0, 0);
  EXPECT_EQ(Utf8(windows::ClipboardText(Handle())), "甲\t乙\r\n甲\t乙\r\n");
}

TEST_F(GridWindow, CopiesOneCellAsItsText) {
  SendMessageW(Handle(), WM_COPY, 0, 0);
  EXPECT_EQ(Utf8(windows::ClipboardText(Handle())), "甲");
}

TEST_F(GridWindow, CopiesNothingWithoutRows) {
  ASSERT_TRUE(windows::CopyToClipboard(Handle(), u"before"));
  grid_.SetMaxRows(0);
  SendMessageW(Handle(), WM_COPY, 0, 0);
  EXPECT_EQ(Utf8(windows::ClipboardText(Handle())), "before");
}

TEST_F(GridWindow, PassesTabToTheControl) {
  input_.Press(VK_TAB);
  input_.PressWith(VK_SHIFT, VK_TAB);
  EXPECT_EQ(tabs_, "><");
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"6");
  input_.Press(VK_TAB);
  EXPECT_EQ(Cell(4, 1), "6.00");
  EXPECT_EQ(tabs_, "><>");
}

}  // namespace
}  // namespace pricedown::testing
