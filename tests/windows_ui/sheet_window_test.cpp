// The grid as users meet it: keys, clicks, drags, typing, copying.
#include <gtest/gtest.h>

#include <chrono>
#include <set>

#include "tests/windows_ui/picture.h"
#include "tests/windows_ui/ui_world.h"
#include "windows/ui/clipboard.h"
#include "windows/ui/control_ids.h"
#include "windows/ui/dpi.h"
#include "windows/ui/plain_control.h"
#include "windows/ui/sheet_window.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

// A sheet's window alone, in a host window.
class SheetWindow : public ::testing::Test, private windows::ChildEvents {
 protected:
  SheetWindow() {
    for (std::int32_t column = 1; column <= 4; ++column) {
      sheet_.SetText(column, kTitleRow,
                     std::u16string(u"列") + static_cast<char16_t>(u'0' + column));
      sheet_.SetColumnWidth(column, 10);
    }
    Fill(100);
    window_.Create(host_.Handle(), GetModuleHandleW(nullptr), u"物料明细");
    window_.Show(&sheet_);
    SetWindowPos(window_.Handle(), nullptr, 0, 0, Scale(460), Scale(300), SWP_NOZORDER);
    SetFocus(window_.Handle());
    RunMessages();
  }

  void Fill(std::int32_t rows) {
    sheet_.SetMaxRows(0);
    sheet_.SetRedraw(false);
    sheet_.SetMaxRows(rows);
    for (std::int32_t row = 1; row <= rows; ++row) {
      for (std::int32_t column = 1; column <= 3; ++column) {
        sheet_.SetText(column, row, column == 1 ? u"甲" : u"乙");
      }
      sheet_.SetUpperBound(4, row, 99999999999.99);
    }
    sheet_.SetRedraw(true);
    sheet_.SetBlockMode(true);
    sheet_.SetBlock({1, 1, 3, rows});
    sheet_.LockBlock(true);
    sheet_.SetBlockMode(false);
  }

  int Scale(int pixels) const { return windows::Dpi::Of(host_.Handle()).Scale(pixels); }
  HWND Handle() const { return window_.Handle(); }
  HWND Editor() const { return GetDlgItem(Handle(), ids::kCellEditor); }

  POINT CellPoint(std::int32_t column, std::int32_t row) const {
    const auto& geometry = window_.Geometry();
    return {(geometry.Left(column) + geometry.Right(column)) / 2 - window_.Scroll().Left(),
            geometry.TitleHeight() + (row - window_.Scroll().TopRow()) * geometry.RowHeight() +
                geometry.RowHeight() / 2};
  }
  POINT EdgePoint(std::int32_t column) const {
    return {window_.Geometry().Right(column) - window_.Scroll().Left(), 5};
  }

  std::string Current() const {
    const auto& selection = window_.Selection();
    return std::to_string(selection.column) + "," + std::to_string(selection.row);
  }
  CellRange Range() const { return window_.Selection().Range(); }
  std::string Cell(std::int32_t column, std::int32_t row) const {
    return Utf8(sheet_.Text(column, row));
  }

  // ChildEvents
  void NodeClicked(NodeIndex) override {}
  void StripButtonClicked(std::size_t) override {}
  void CommandChosen(windows::UserCommand command) override { commands_.push_back(command); }
  void MenuRequested(HWND, POINT) override { ++menus_; }
  void SplitterEvent(windows::SplitterAction, std::int32_t) override {}
  void TabPressed(bool backwards) override { tabs_ += backwards ? "<" : ">"; }
  void FocusEntered(HWND) override {}
  void ItemsChanged() override {}
  void ItemsFilling() override {}
  bool Waiting() const override { return false; }

  HostWindow host_{700, 500};
  Input input_;
  Sheet sheet_{4};
  windows::SheetWindow window_{*this};
  std::string tabs_;
  std::vector<windows::UserCommand> commands_;
  int menus_ = 0;
};

TEST_F(SheetWindow, MovesTheCurrentCellByArrowKeys) {
  input_.Press(VK_RIGHT);
  input_.Press(VK_DOWN);
  input_.Press(VK_DOWN);
  EXPECT_EQ(Current(), "2,3");
  input_.Press(VK_LEFT);
  input_.Press(VK_LEFT);
  input_.Press(VK_UP);
  EXPECT_EQ(Current(), "1,2");
}

TEST_F(SheetWindow, StaysInsideTheSheet) {
  input_.Press(VK_UP);
  input_.Press(VK_PRIOR);
  EXPECT_EQ(Current(), "1,1");
  input_.PressWith(VK_CONTROL, VK_END);
  EXPECT_EQ(Current(), "4,100");
  input_.Press(VK_NEXT);
  input_.Press(VK_RIGHT);
  EXPECT_EQ(Current(), "4,100");
}

TEST_F(SheetWindow, ScrollsToTheCurrentCell) {
  input_.PressWith(VK_CONTROL, VK_DOWN);
  EXPECT_EQ(Current(), "1,100");
  EXPECT_GT(window_.Scroll().TopRow(), 80);
  input_.PressWith(VK_CONTROL, VK_HOME);
  EXPECT_EQ(window_.Scroll().TopRow(), 1);
}

TEST_F(SheetWindow, MovesByPages) {
  input_.Press(VK_NEXT);
  const std::int32_t row = window_.Selection().row;
  EXPECT_GT(row, 8);
  input_.Press(VK_NEXT);
  EXPECT_EQ(window_.Selection().row, 2 * row - 1);
  input_.Press(VK_PRIOR);
  EXPECT_EQ(window_.Selection().row, row);
}

TEST_F(SheetWindow, SelectsABlockWithShift) {
  input_.Press(VK_RIGHT);
  input_.PressWith(VK_SHIFT, VK_DOWN);
  input_.PressWith(VK_SHIFT, VK_RIGHT);
  EXPECT_EQ(Range(), (CellRange{2, 1, 3, 2}));
  KeepPicture(host_.Handle(), "sheet block");
  input_.Press(VK_DOWN);
  EXPECT_EQ(Range(), (CellRange{3, 3, 3, 3}));
}

TEST_F(SheetWindow, SelectsRowsAndEverything) {
  input_.PressWith(VK_SHIFT, VK_DOWN);
  input_.PressWith(VK_SHIFT, VK_SPACE);
  EXPECT_EQ(Range(), (CellRange{1, 1, 4, 2}));
  input_.PressWith(VK_CONTROL, 'A');
  EXPECT_EQ(Range(), (CellRange{1, 1, 4, 100}));
}

TEST_F(SheetWindow, SelectsByMouse) {
  input_.Click(Handle(), CellPoint(2, 4));
  EXPECT_EQ(Current(), "2,4");
  input_.Click(Handle(), CellPoint(3, 6), MK_SHIFT);
  EXPECT_EQ(Range(), (CellRange{2, 4, 3, 6}));
  input_.Drag(Handle(), CellPoint(1, 2), CellPoint(2, 5));
  EXPECT_EQ(Range(), (CellRange{1, 2, 2, 5}));
}

TEST_F(SheetWindow, ATitleSelectsItsColumn) {
  input_.Click(Handle(), {CellPoint(3, 1).x, 5});
  EXPECT_EQ(Range(), (CellRange{3, 1, 3, 100}));
}

TEST_F(SheetWindow, DraggingBelowTheEdgeScrolls) {
  RECT client{};
  GetClientRect(Handle(), &client);
  input_.Drag(Handle(), CellPoint(1, 2), {CellPoint(1, 2).x, client.bottom + 20});
  EXPECT_GT(window_.Scroll().TopRow(), 1);
  EXPECT_EQ(Range().row, 2);
}

TEST_F(SheetWindow, CopiesTheSelectedCellsAsTabbedText) {
  input_.PressWith(VK_SHIFT, VK_RIGHT);
  input_.PressWith(VK_SHIFT, VK_DOWN);
  input_.PressWith(VK_CONTROL, 'C');
  EXPECT_EQ(Utf8(windows::ClipboardText(Handle())), "甲\t乙\r\n甲\t乙\r\n");
}

TEST_F(SheetWindow, CopiesOneCellAsItsText) {
  input_.PressWith(VK_CONTROL, VK_INSERT);
  EXPECT_EQ(Utf8(windows::ClipboardText(Handle())), "甲");
}

TEST_F(SheetWindow, CopiesNothingWithoutRows) {
  ASSERT_TRUE(windows::CopyToClipboard(Handle(), u"before"));
  sheet_.SetMaxRows(0);
  input_.PressWith(VK_CONTROL, 'C');
  EXPECT_EQ(Utf8(windows::ClipboardText(Handle())), "before");
}

TEST_F(SheetWindow, TakesNumbersInAnOpenCell) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"12.5");
  ASSERT_NE(Editor(), nullptr);
  KeepPicture(host_.Handle(), "sheet editing");
  input_.Press(VK_RETURN);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 2), "12.50");
  EXPECT_EQ(Current(), "4,3");
  EXPECT_EQ(GetFocus(), Handle());
}

TEST_F(SheetWindow, RefusesWhatIsNoNumberOrAboveTheBound) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"9x9999 9999999");
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "99999999999");
  input_.Type(u".999");
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "99999999999.99");
  input_.Press(VK_RETURN);
  EXPECT_EQ(Cell(4, 1), "99999999999.99");
}

TEST_F(SheetWindow, F2AndEnterTypeInAnOpenCellAndEditTheClassInALockedOne) {
  for (const WPARAM key : std::initializer_list<WPARAM>{VK_F2, VK_RETURN}) {
    input_.Click(Handle(), CellPoint(2, 2));
    input_.Press(key);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(commands_, std::vector{windows::UserCommand::Edit});
    input_.Click(Handle(), CellPoint(4, 2));
    input_.Press(key);
    EXPECT_NE(Editor(), nullptr);
    EXPECT_EQ(commands_.size(), 1u);
    commands_.clear();
    input_.Press(VK_ESCAPE);
  }
}

TEST_F(SheetWindow, KeepsAllKeysButFunctionKeysWhileTyping) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"12");
  for (const WPARAM key : std::initializer_list<WPARAM>{VK_INSERT, VK_DELETE, VK_F2})
    input_.Press(key);
  input_.PressWith(VK_CONTROL, 'P');
  EXPECT_NE(Editor(), nullptr);
  EXPECT_TRUE(commands_.empty());
  input_.Press(VK_F5);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 2), "12.00");
  EXPECT_EQ(commands_, std::vector{windows::UserCommand::Refresh});
}

TEST_F(SheetWindow, EscapeKeepsTheOldNumber) {
  sheet_.SetText(4, 1, u"1.00");
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"7");
  input_.Press(VK_ESCAPE);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 1), "1.00");
  EXPECT_EQ(GetFocus(), Handle());
}

TEST_F(SheetWindow, LeavingTheCellKeepsTheNewNumber) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"7");
  input_.Click(Handle(), CellPoint(1, 3));
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 1), "7.00");
  EXPECT_EQ(Current(), "1,3");
}

TEST_F(SheetWindow, ArrowsEndTypingAndMoveOn) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"3");
  input_.Press(VK_DOWN);
  EXPECT_EQ(Cell(4, 1), "3.00");
  EXPECT_EQ(Current(), "4,2");
}

TEST_F(SheetWindow, ADoubleClickEditsWhatIsThere) {
  sheet_.SetText(4, 2, u"8.25");
  input_.DoubleClick(Handle(), CellPoint(4, 2));
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "8.25");
  SendMessageW(Editor(), WM_CLEAR, 0, 0);
  input_.Press(VK_RETURN);
  EXPECT_EQ(Cell(4, 2), "");
}

TEST_F(SheetWindow, DoesNotEditLockedCells) {
  input_.Click(Handle(), CellPoint(1, 1));
  input_.Type(u"5");
  EXPECT_EQ(Editor(), nullptr);
  sheet_.SetBlockMode(true);
  sheet_.SetBlock({1, 1, 4, 100});
  sheet_.LockBlock(true);
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"5");
  input_.DoubleClick(Handle(), CellPoint(4, 1));
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Cell(4, 1), "");
}

TEST_F(SheetWindow, PastesOnlyNumbers) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"1");
  ASSERT_TRUE(windows::CopyToClipboard(Handle(), u"abc"));
  SendMessageW(Editor(), WM_PASTE, 0, 0);
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "1");
  ASSERT_TRUE(windows::CopyToClipboard(Handle(), u" 23.4 "));
  SendMessageW(Editor(), WM_PASTE, 0, 0);
  EXPECT_EQ(Utf8(windows::TextOf(Editor())), "123.4");
}

TEST_F(SheetWindow, ALoadEndsTypingAndStartsAtTheTop) {
  input_.PressWith(VK_CONTROL, VK_END);
  input_.Type(u"4");
  Fill(50);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Current(), "1,1");
  EXPECT_EQ(window_.Scroll().TopRow(), 1);
}

TEST_F(SheetWindow, DragsAColumnWider) {
  const double before = sheet_.ColumnWidth(2);
  const POINT edge = EdgePoint(2);
  input_.Drag(Handle(), edge, {edge.x + Scale(50), edge.y});
  EXPECT_DOUBLE_EQ(sheet_.ColumnWidth(2), before + 5);
  const POINT narrow = EdgePoint(2);
  input_.Drag(Handle(), narrow, {0, narrow.y});
  EXPECT_DOUBLE_EQ(sheet_.ColumnWidth(2), 1.2);
}

TEST_F(SheetWindow, EscapeGivesADraggedColumnItsWidthBack) {
  const POINT edge = EdgePoint(1);
  PostMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(edge.x, edge.y));
  PostMessageW(Handle(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(edge.x + 40, edge.y));
  RunMessages();
  EXPECT_GT(sheet_.ColumnWidth(1), 10);
  input_.Press(VK_ESCAPE);
  EXPECT_DOUBLE_EQ(sheet_.ColumnWidth(1), 10);
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(SheetWindow, ADoubleClickFitsAColumnToItsTexts) {
  sheet_.SetText(2, 90, u"一段很长很长的规格型号文字需要更宽的列才能完整显示");
  input_.DoubleClick(Handle(), EdgePoint(2));
  const double wide = sheet_.ColumnWidth(2);
  EXPECT_GT(wide, 20);
  sheet_.SetText(2, 90, u"短");
  input_.DoubleClick(Handle(), EdgePoint(2));
  EXPECT_LT(sheet_.ColumnWidth(2), 6);
}

TEST_F(SheetWindow, ShowsTheSizePointerOverColumnEdges) {
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

TEST_F(SheetWindow, ScrollsByTheWheel) {
  SendMessageW(Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);
  EXPECT_EQ(window_.Scroll().TopRow(), 4);
  // A fine wheel's small turns add up.
  for (int i = 0; i < 4; ++i) {
    SendMessageW(Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(WHEEL_DELTA / 4)), 0);
  }
  EXPECT_EQ(window_.Scroll().TopRow(), 1);
}

TEST_F(SheetWindow, ScrollsSidewaysWhenColumnsDoNotFit) {
  EXPECT_EQ(window_.Scroll().Left(), 0);
  sheet_.SetColumnWidth(1, 60);
  input_.Press(VK_END);
  EXPECT_GT(window_.Scroll().Left(), 0);
  input_.Press(VK_HOME);
  EXPECT_EQ(window_.Scroll().Left(), 0);
  SendMessageW(Handle(), WM_HSCROLL, SB_PAGERIGHT, 0);
  EXPECT_GT(window_.Scroll().Left(), 0);
}

TEST_F(SheetWindow, TakesAMillionRows) {
  sheet_.SetMaxRows(0);
  sheet_.SetMaxRows(1000000);
  sheet_.SetText(1, 1000000, u"最后一行");
  const auto begin = std::chrono::steady_clock::now();
  input_.PressWith(VK_CONTROL, VK_END);
  EXPECT_EQ(Current(), "4,1000000");
  for (int i = 0; i < 20; ++i) {
    input_.Press(i % 2 == 0 ? VK_PRIOR : VK_NEXT);
    UpdateWindow(Handle());
  }
  SendMessageW(Handle(), WM_VSCROLL, SB_TOP, 0);
  EXPECT_EQ(window_.Scroll().TopRow(), 1);
  // Painting costs what is visible: far below what a million rows would take.
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(Handle(), SB_VERT, &info);
  EXPECT_EQ(info.nMax, 999999);
}

TEST_F(SheetWindow, AnEmptySheetShowsTitlesAndGridLines) {
  sheet_.SetMaxRows(0);
  const Picture picture = TakePicture(Handle());
  std::set<int> lines;
  const int middle = CellPoint(2, 1).x;
  const std::uint32_t background = picture.At(middle, picture.height - 2 * Scale(10));
  for (int y = window_.Geometry().TitleHeight(); y < picture.height; ++y) {
    if (picture.At(middle, y) != picture.At(middle, y - 1)) lines.insert(y);
  }
  EXPECT_GT(lines.size(), 10u) << std::hex << background;
  KeepPicture(host_.Handle(), "sheet empty");
}

// The system's tooltip background for a test.
class TooltipColour {
 public:
  explicit TooltipColour(COLORREF colour) : before_(GetSysColor(index_)) { Set(colour); }
  ~TooltipColour() { Set(before_); }
  TooltipColour(const TooltipColour&) = delete;
  TooltipColour& operator=(const TooltipColour&) = delete;

 private:
  static void Set(COLORREF colour) { SetSysColors(1, &index_, &colour); }

  static constexpr int index_ = COLOR_INFOBK;
  COLORREF before_;
};

TEST_F(SheetWindow, ShowsLockedCellsInTheTooltipColour) {
  const TooltipColour yellow(RGB(0xFF, 0xFF, 0xE1));
  sheet_.SetBlockMode(true);
  sheet_.SetBlock({1, 1, 3, 100});
  sheet_.ColourBlock(0x0000FF);  // red, as automation colours have it
  const POINT inside = CellPoint(2, 3);
  EXPECT_EQ(TakePicture(Handle()).At(inside.x, inside.y), 0xFF0000u);
  sheet_.ColourBlock(kTooltipBackground);
  EXPECT_EQ(TakePicture(Handle()).At(inside.x, inside.y), 0xFFFFE1u);
}

TEST_F(SheetWindow, TellsLockedCellsFromOpenOnesWhereTooltipsAreAsWhiteAsWindows) {
  const TooltipColour white(GetSysColor(COLOR_WINDOW));
  sheet_.SetBlockMode(true);
  sheet_.SetBlock({1, 1, 3, 100});
  sheet_.ColourBlock(kTooltipBackground);
  const POINT locked = CellPoint(2, 3);
  const POINT open = CellPoint(4, 3);
  const Picture picture = TakePicture(Handle());
  EXPECT_NE(picture.At(locked.x, locked.y), picture.At(open.x, open.y));
  EXPECT_EQ(sheet_.Colour(2, 3), kTooltipBackground);
  KeepPicture(host_.Handle(), "sheet with white tooltips");
}

TEST_F(SheetWindow, RowsAndTitlesFollowTheSheet) {
  sheet_.SetRowHeight(kAll, 40.2);
  sheet_.SetRowHeight(kTitleRow, 50);
  EXPECT_EQ(window_.Geometry().RowHeight(), 41);
  EXPECT_EQ(window_.Geometry().TitleHeight(), 50);
  sheet_.SetFont(Font{u"宋体", 30, false, false});
  EXPECT_GT(window_.Geometry().RowHeight(), 41);
}

TEST_F(SheetWindow, HandsTabToTheControl) {
  input_.Press(VK_TAB);
  input_.PressWith(VK_SHIFT, VK_TAB);
  EXPECT_EQ(tabs_, "><");
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"6");
  input_.Press(VK_TAB);
  EXPECT_EQ(Cell(4, 1), "6.00");
  EXPECT_EQ(tabs_, "><>");
}

TEST_F(SheetWindow, OutlivesItsSheetWhenTold) {
  window_.Show(nullptr);
  TakePicture(Handle());
  input_.Press(VK_DOWN);
  input_.Type(u"5");
  input_.Click(Handle(), {30, 60});
  EXPECT_EQ(Editor(), nullptr);
  sheet_.SetMaxRows(5);
}

TEST_F(SheetWindow, DiesWhileTyping) {
  input_.Click(Handle(), CellPoint(4, 1));
  input_.Type(u"6");
  ASSERT_NE(Editor(), nullptr);
  DestroyWindow(Handle());
  EXPECT_EQ(Handle(), nullptr);
  EXPECT_FALSE(window_.IsEditing());
  sheet_.SetText(1, 1, u"later");
}

}  // namespace
}  // namespace pricedown::testing
