// The events that the grid raises for listening clients, and the end of its provider.
#include <algorithm>

#include "tests/windows/grid/provider_fixture.h"
#include "windows/com/bstr.h"

namespace pricedown::testing {
namespace {

using Log = std::vector<std::string>;

TEST_F(GridProviderTest, AMoveRaisesFocusAndSelectionOnce) {
  input_.Press(VK_DOWN);
  EXPECT_EQ(Events(), (Log{"focus row2.column1", "selected row2.column1"}));
  input_.Press(VK_RIGHT);
  EXPECT_EQ(Events(), (Log{"focus row2.column2", "selected row2.column2"}));
  input_.Click(Handle(), CellPoint(3, 4));
  EXPECT_EQ(Events(), (Log{"focus row4.column3", "selected row4.column3"}));
}

TEST_F(GridProviderTest, AKeyThatMovesNothingRaisesNothing) {
  input_.Press(VK_UP);
  input_.Press(VK_LEFT);
  InvalidateRect(Handle(), nullptr, FALSE);
  RunMessages();
  EXPECT_EQ(Events(), Log{});
}

TEST_F(GridProviderTest, AMoveThatScrollsRaisesEachEventOnce) {
  input_.PressWith(VK_CONTROL, VK_DOWN);
  EXPECT_EQ(Events(),
            (Log{"focus row100.column1", "selected row100.column1", "vertical 112 = 100"}));
}

TEST_F(GridProviderTest, ABlockRaisesTheSelectionOfTheGrid) {
  input_.PressWith(VK_SHIFT, VK_DOWN);
  EXPECT_EQ(Events(), (Log{"focus row2.column1", "selection 112"}));
  input_.PressWith(VK_CONTROL, 'A');
  EXPECT_EQ(Events(), (Log{"focus row1.column1", "selection 112"}));
}

TEST_F(GridProviderTest, TheFocusOfTheWindowRaisesTheCellOnceAndWithoutFocusNothing) {
  SetFocus(host_.Handle());
  EXPECT_EQ(Events(), Log{});
  PatternOf<ISelectionItemProvider>(Cell(1, 2), UIA_SelectionItemPatternId)->Select();
  EXPECT_EQ(Events(), Log{"selected row2.column1"});
  SetFocus(Handle());
  RunMessages();
  EXPECT_EQ(Events(), Log{"focus row2.column1"});
}

TEST_F(GridProviderTest, FocusOnACellFromOutsideRaisesItOnce) {
  SetFocus(host_.Handle());
  ASSERT_EQ(Cell(1, 5).As<IRawElementProviderFragment>()->SetFocus(), S_OK);
  EXPECT_EQ(GetFocus(), Handle());
  EXPECT_EQ(Events(), (Log{"selected row5.column1", "focus row5.column1"}));
}

TEST_F(GridProviderTest, AClickFromAnotherWindowRaisesItsCellAlone) {
  for (const UINT message : std::initializer_list<UINT>{WM_LBUTTONDOWN, WM_RBUTTONDOWN}) {
    const int row = message == WM_LBUTTONDOWN ? 3 : 5;
    SetFocus(host_.Handle());
    Events();
    const POINT point = CellPoint(2, row);
    SendMessageW(Handle(), message, 0, MAKELPARAM(point.x, point.y));
    const std::string cell = "row" + std::to_string(row) + ".column2";
    EXPECT_EQ(Events(), (Log{"focus " + cell, "selected " + cell}));
    SendMessageW(Handle(), WM_LBUTTONUP, 0, 0);
  }
}

TEST_F(GridProviderTest, ALoadDuringAWaitRaisesItsEndAlone) {
  // The second load has as many rows as the first one.
  for (const char16_t* const status : {u"原材料", u"辅助材料"}) {
    waiting_ = true;
    Fill(50);
    EXPECT_EQ(Events(), Log{});
    waiting_ = false;
    window_.Announce(status);
    EXPECT_EQ(Events(), (Log{"children 112", "focus row1.column1", "selected row1.column1",
                             "speak 112 = " + Utf8(status)}));
  }
}

TEST_F(GridProviderTest, ALoadRaisesTheChildrenAndTheNewCurrentCell) {
  Fill(50);
  EXPECT_EQ(Events(),
            (Log{"children 112", "children 112", "focus row1.column1", "selected row1.column1"}));
}

TEST_F(GridProviderTest, APriceRaisesItsValue) {
  input_.Click(Handle(), CellPoint(4, 2));
  Events();
  input_.Type(u"12.5");
  EXPECT_EQ(Events(), Log{}) << "the field has the focus";
  input_.Press(VK_RETURN);
  EXPECT_EQ(Events(),
            (Log{"value row2.column4 = 12.50", "focus row3.column4", "selected row3.column4"}));
}

TEST_F(GridProviderTest, AClientMayTakeTheGridAwayInsideAnEvent) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.PressWith(VK_SHIFT, VK_DOWN);
  automation_.onEvent = [this] { window_.Show(nullptr); };
  input_.Type(u"1");
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(GetFocus(), Handle());
}

TEST_F(GridProviderTest, AClientMayDestroyTheWindowInsideTheEventOfALoad) {
  automation_.onEvent = [this] { DestroyWindow(Handle()); };
  itemsChanged_ = 0;
  grid_.SetMaxRows(50);
  EXPECT_EQ(Handle(), nullptr);
  EXPECT_EQ(itemsChanged_, 0);
}

TEST_F(GridProviderTest, AClientMayDestroyTheWindowInsideTheEventOfItsFocus) {
  SetFocus(host_.Handle());
  bool entered = false;
  whenFocused_ = [&entered] { entered = true; };
  automation_.onEvent = [this] { DestroyWindow(Handle()); };
  SetFocus(Handle());
  EXPECT_EQ(Handle(), nullptr);
  EXPECT_FALSE(entered);
}

TEST_F(GridProviderTest, APriceFromOutsideRaisesItsValue) {
  PatternOf<IValueProvider>(Cell(4, 9), UIA_ValuePatternId)->SetValue(L"3");
  EXPECT_EQ(Events(), Log{"value row9.column4 = 3.00"});
}

TEST_F(GridProviderTest, RaisesNothingWithoutListeners) {
  automation_.listening = false;
  const long before = windows::Counts().objects;
  input_.Press(VK_DOWN);
  Fill(20);
  EXPECT_EQ(Events(), Log{});
  EXPECT_EQ(windows::Counts().objects, before);
  automation_.listening = true;
  input_.Press(VK_DOWN);
  EXPECT_EQ(Events(), (Log{"focus row2.column1", "selected row2.column1"}));
}

TEST_F(GridProviderTest, AStatusIsSpokenOnceUntilAnotherFollows) {
  window_.Announce(u"原材料，8 种物料");
  window_.Announce(u"原材料，8 种物料");
  EXPECT_EQ(Events(), Log{"speak 112 = 原材料，8 种物料"});
  window_.Announce({});
  EXPECT_EQ(Events(), Log{});
  window_.Announce(u"原材料，8 种物料");
  EXPECT_EQ(Events().size(), 1u);
  automation_.listening = false;
  window_.Announce(u"辅助材料");
  EXPECT_EQ(Events(), Log{});
}

TEST_F(GridWindow, MakesNoProviderAndRaisesNothingBeforeAClientAsks) {
  const long before = windows::Counts().objects;
  input_.Press(VK_DOWN);
  Fill(20);
  EXPECT_TRUE(automation_.log.empty());
  EXPECT_EQ(windows::Counts().objects, before);
  DestroyWindow(Handle());
  EXPECT_TRUE(automation_.log.empty());
}

TEST_F(GridProviderTest, KeptAfterTheWindowsEndIsNotAvailableAndThenFreed) {
  const long before = windows::Counts().objects;
  Element cell = Cell(2, 3);
  const auto value = PatternOf<IValueProvider>(cell, UIA_ValuePatternId);
  const auto fragment = root_.As<IRawElementProviderFragment>();
  DestroyWindow(Handle());
  EXPECT_EQ(Events(), (Log{"return nothing", "disconnect"})) << "and no call for any row";
  VARIANT name{};
  EXPECT_EQ(root_->GetPropertyValue(UIA_NamePropertyId, &name), UIA_E_ELEMENTNOTAVAILABLE);
  EXPECT_EQ(cell->GetPropertyValue(UIA_NamePropertyId, &name), UIA_E_ELEMENTNOTAVAILABLE);
  EXPECT_EQ(value->SetValue(L"1"), UIA_E_ELEMENTNOTAVAILABLE);
  EXPECT_EQ(fragment->SetFocus(), UIA_E_ELEMENTNOTAVAILABLE);
  ComPtr<IRawElementProviderFragment> child;
  EXPECT_EQ(fragment->Navigate(NavigateDirection_FirstChild, child.put()),
            UIA_E_ELEMENTNOTAVAILABLE);
  EXPECT_EQ(windows::Counts().objects, before + 1) << "the cell; the grid is counted before";
  cell.attach(nullptr);
}

TEST_F(GridProviderTest, LeavesNothingWhenTheClientLetsGoAfterTheWindow) {
  DestroyWindow(Handle());
  root_.attach(nullptr);
  EXPECT_EQ(windows::Counts().objects, 0);
}

TEST_F(GridProviderTest, LeavesNothingWhenTheClientLetsGoBeforeTheWindow) {
  root_.attach(nullptr);
  EXPECT_EQ(windows::Counts().objects, 1) << "the window's own";
  DestroyWindow(Handle());
  EXPECT_EQ(windows::Counts().objects, 0);
}

TEST_F(GridProviderTest, EndsWithTheObjectOfItsWindow) {
  auto second = std::make_unique<windows::GridWindow>(*this, automation_);
  second->Create(host_.Handle(), GetModuleHandleW(nullptr), u"另一");
  const Element kept = automation_.ProviderOf(second->Handle());
  second.reset();
  EXPECT_EQ(Events(), (Log{"return nothing", "disconnect"}));
  VARIANT name{};
  EXPECT_EQ(kept->GetPropertyValue(UIA_NamePropertyId, &name), UIA_E_ELEMENTNOTAVAILABLE);
}

TEST_F(GridProviderTest, HasNoCellsWhileTheWindowShowsNoGrid) {
  const Element cell = Cell(1, 1);
  window_.Show(nullptr);
  int rows = 1;
  EXPECT_EQ(RootPattern<IGridProvider>(UIA_GridPatternId)->get_RowCount(&rows), S_OK);
  EXPECT_EQ(rows, 0);
  windows::Bstr value;
  EXPECT_EQ(cell.As<IValueProvider>()->get_Value(value.put()), UIA_E_ELEMENTNOTAVAILABLE);
  EXPECT_EQ(IdOfNeighbour(root_, NavigateDirection_FirstChild), "none");
}

}  // namespace
}  // namespace pricedown::testing
