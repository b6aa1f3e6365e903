// Dragging columns and scrolling into view, up to a million rows.
#include <chrono>

#include "tests/windows/grid/grid_world.h"

namespace pricedown::testing {
namespace {

TEST_F(GridWindow, DragsAColumnWider) {
  const double before = grid_.ColumnWidth(2);
  const POINT edge = EdgePoint(2);
  input_.Drag(Handle(), edge, {edge.x + Scale(50), edge.y});
  EXPECT_DOUBLE_EQ(grid_.ColumnWidth(2), before + 5);
  const POINT narrow = EdgePoint(2);
  input_.Drag(Handle(), narrow, {0, narrow.y});
  EXPECT_DOUBLE_EQ(grid_.ColumnWidth(2), 1.2);
}

TEST_F(GridWindow, EscapeRestoresTheWidthOfADraggedColumn) {
  const POINT edge = EdgePoint(1);
  input_.MoveCursor(Handle(), {edge.x + 40, edge.y});
  PostMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(edge.x, edge.y));
  PostMessageW(Handle(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(edge.x + 40, edge.y));
  RunMessages();
  EXPECT_GT(grid_.ColumnWidth(1), 10);
  input_.Press(VK_ESCAPE);
  EXPECT_DOUBLE_EQ(grid_.ColumnWidth(1), 10);
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GridWindow, ADoubleClickFitsAColumnToItsTexts) {
  grid_.SetText(2, 90, u"一段很长很长的规格型号文字需要更宽的列才能完整显示");
  input_.DoubleClick(Handle(), EdgePoint(2));
  const double wide = grid_.ColumnWidth(2);
  EXPECT_GT(wide, 20);
  grid_.SetText(2, 90, u"短");
  input_.DoubleClick(Handle(), EdgePoint(2));
  EXPECT_LT(grid_.ColumnWidth(2), 6);
}

TEST_F(GridWindow, ShowsTheSizePointerOverColumnEdges) {
  const auto cursorAt = [&](POINT point) {
    ClientToScreen(Handle(), &point);
    SetCursorPos(point.x, point.y);
    SetCursor(nullptr);
    SendMessageW(Handle(), WM_SETCURSOR, reinterpret_cast<WPARAM>(Handle()),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    return GetCursor();
  };
  EXPECT_EQ(cursorAt(EdgePoint(2)), LoadCursorW(nullptr, IDC_SIZEWE));
  EXPECT_EQ(cursorAt(CellPoint(2, 3)), LoadCursorW(nullptr, IDC_ARROW));
}

TEST_F(GridWindow, ScrollsByTheWheel) {
  SendMessageW(Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
  EXPECT_EQ(window_.Viewport().TopRow(), 4);
  // A fine wheel's small turns add up.
  for (int i = 0; i < 4; ++i) {
    SendMessageW(Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(WHEEL_DELTA / 4)), 0);
  }
  EXPECT_EQ(window_.Viewport().TopRow(), 1);
}

TEST_F(GridWindow, ScrollsSidewaysWhenColumnsDoNotFit) {
  EXPECT_EQ(window_.Viewport().Left(), 0);
  grid_.SetColumnWidth(1, 60);
  input_.Press(VK_END);
  EXPECT_GT(window_.Viewport().Left(), 0);
  input_.Press(VK_HOME);
  EXPECT_EQ(window_.Viewport().Left(), 0);
  SendMessageW(Handle(), WM_HSCROLL, SB_PAGERIGHT, 0);
  EXPECT_GT(window_.Viewport().Left(), 0);
}

bool HasVerticalBar(HWND window) {
  return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VSCROLL) != 0;
}

TEST_F(GridWindow, KeepsItsScrollBarWhenALoadEmptiesAndFillsIt) {
  ASSERT_TRUE(HasVerticalBar(Handle()));
  grid_.SetMaxRows(0);
  EXPECT_TRUE(HasVerticalBar(Handle()));
  EXPECT_EQ(window_.Viewport().Rows(), 0);
  Fill(200);
  EXPECT_TRUE(HasVerticalBar(Handle()));
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE;
  GetScrollInfo(Handle(), SB_VERT, &info);
  EXPECT_EQ(info.nMax, 199);
}

TEST_F(GridWindow, HidesItsScrollBarOnceItIsPaintedEmpty) {
  grid_.SetMaxRows(0);
  UpdateWindow(Handle());
  EXPECT_FALSE(HasVerticalBar(Handle()));
  Fill(100);
  EXPECT_TRUE(HasVerticalBar(Handle()));
}

TEST_F(GridWindow, HoldsAMillionRows) {
  grid_.SetMaxRows(0);
  grid_.SetMaxRows(1000000);
  grid_.SetText(1, 1000000, u"最后一行");
  const auto begin = std::chrono::steady_clock::now();
  input_.PressWith(VK_CONTROL, VK_END);
  EXPECT_EQ(Current(), "4,1000000");
  for (int i = 0; i < 20; ++i) {
    input_.Press(i % 2 == 0 ? VK_PRIOR : VK_NEXT);
    UpdateWindow(Handle());
  }
  SendMessageW(Handle(), WM_VSCROLL, SB_TOP, 0);
  EXPECT_EQ(window_.Viewport().TopRow(), 1);
  // Painting costs only the visible rows, far less than a million.
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(Handle(), SB_VERT, &info);
  EXPECT_EQ(info.nMax, 999999);
}

}  // namespace
}  // namespace pricedown::testing
