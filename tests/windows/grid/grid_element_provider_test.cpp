// The providers of cells, rows and titles: properties, selection, values, focus.
#include <array>

#include "tests/windows/grid/provider_fixture.h"
#include "windows/com/bstr.h"

namespace pricedown::testing {
namespace {

using windows::SafeArray;

std::array<int, 3> RuntimeIdOf(const Element& element) {
  SafeArray array;
  std::array<int, 3> id{};
  EXPECT_EQ(element.As<IRawElementProviderFragment>()->GetRuntimeId(array.put()), S_OK);
  for (LONG i = 0; i < 3; ++i) {
    EXPECT_EQ(SafeArrayGetElement(array.get(), &i, &id[static_cast<std::size_t>(i)]), S_OK);
  }
  return id;
}

TEST_F(GridProviderTest, ElementsHaveTypesNamesAndFlags) {
  struct Case {
    Element element;
    const char* name;
    int type;
    const char* focusable;
    const char* content;
  };
  const Element titles = Neighbour(root_, NavigateDirection_FirstChild);
  const std::array cases{
      Case{titles.Copy(), "列标题", UIA_HeaderControlTypeId, "false", "false"},
      Case{Neighbour(titles, NavigateDirection_FirstChild), "列1", UIA_HeaderItemControlTypeId,
           "false", "false"},
      Case{Row(3), "第 3 行，共 100 行", UIA_DataItemControlTypeId, "false", "true"},
      Case{Cell(1, 3), "甲", UIA_DataItemControlTypeId, "true", "true"},
      Case{Cell(4, 3), "列4", UIA_DataItemControlTypeId, "true", "true"}};
  for (const Case& c : cases) {
    EXPECT_EQ(Name(c.element), c.name);
    EXPECT_EQ(PropertyOf(c.element.get(), UIA_ControlTypePropertyId), std::to_string(c.type));
    EXPECT_EQ(PropertyOf(c.element.get(), UIA_IsKeyboardFocusablePropertyId), c.focusable);
    EXPECT_EQ(PropertyOf(c.element.get(), UIA_IsContentElementPropertyId), c.content);
    EXPECT_EQ(PropertyOf(c.element.get(), UIA_IsEnabledPropertyId), "true");
    EXPECT_EQ(PropertyOf(c.element.get(), UIA_IsOffscreenPropertyId), "false");
  }
}

TEST_F(GridProviderTest, ElementsHaveTheSameRuntimeIdWheneverTheyAreMade) {
  EXPECT_EQ(RuntimeIdOf(Cell(2, 3)), RuntimeIdOf(Cell(2, 3)));
  EXPECT_NE(RuntimeIdOf(Cell(2, 3)), RuntimeIdOf(Cell(3, 2)));
  EXPECT_NE(RuntimeIdOf(Row(2)), RuntimeIdOf(Cell(1, 2)));
  EXPECT_EQ(RuntimeIdOf(Cell(2, 3))[0], UiaAppendRuntimeId);
}

TEST_F(GridProviderTest, ACellKnowsItsPlaceAndItsHeader) {
  const Element cell = Cell(3, 5);
  const auto item = PatternOf<IGridItemProvider>(cell, UIA_GridItemPatternId);
  int number = 0;
  EXPECT_EQ(item->get_Row(&number), S_OK);
  EXPECT_EQ(number, 4);
  EXPECT_EQ(item->get_Column(&number), S_OK);
  EXPECT_EQ(number, 2);
  EXPECT_EQ(item->get_RowSpan(&number), S_OK);
  EXPECT_EQ(number, 1);
  Element grid;
  EXPECT_EQ(item->get_ContainingGrid(grid.put()), S_OK);
  EXPECT_EQ(grid.get(), root_.get());
  const auto tableItem = PatternOf<ITableItemProvider>(cell, UIA_TableItemPatternId);
  SafeArray headers;
  EXPECT_EQ(tableItem->GetColumnHeaderItems(headers.put()), S_OK);
  EXPECT_EQ(IdsIn(headers), std::vector<std::string>{"title3"});
  EXPECT_EQ(tableItem->GetRowHeaderItems(headers.put()), S_OK);
  EXPECT_TRUE(IdsIn(headers).empty());
}

TEST_F(GridProviderTest, RowsAndTitlesHaveOnlyTheirPatterns) {
  EXPECT_TRUE(PatternOf<IUnknown>(Row(2), UIA_SelectionItemPatternId));
  EXPECT_TRUE(PatternOf<IUnknown>(Row(2), UIA_ScrollItemPatternId));
  EXPECT_FALSE(PatternOf<IUnknown>(Row(2), UIA_ValuePatternId));
  EXPECT_FALSE(PatternOf<IUnknown>(Row(2), UIA_GridItemPatternId));
  const Element titles = Neighbour(root_, NavigateDirection_FirstChild);
  EXPECT_FALSE(PatternOf<IUnknown>(titles, UIA_SelectionItemPatternId));
  EXPECT_EQ(titles.As<ISelectionItemProvider>()->Select(), UIA_E_INVALIDOPERATION);
}

TEST_F(GridProviderTest, SelectingACellMakesItTheCurrentOneInTheWindow) {
  const auto item = PatternOf<ISelectionItemProvider>(Cell(2, 80), UIA_SelectionItemPatternId);
  ASSERT_EQ(item->Select(), S_OK);
  EXPECT_EQ(Current(), "2,80");
  EXPECT_EQ(PropertyOf(Cell(2, 80).get(), UIA_IsOffscreenPropertyId), "false");
  BOOL selected = FALSE;
  EXPECT_EQ(item->get_IsSelected(&selected), S_OK);
  EXPECT_TRUE(selected);
}

TEST_F(GridProviderTest, SelectionGrowsByRowsAndCellsAndNeverShrinks) {
  ASSERT_EQ(PatternOf<ISelectionItemProvider>(Row(3), UIA_SelectionItemPatternId)->Select(), S_OK);
  EXPECT_EQ(Range(), (CellRange{1, 3, 4, 3}));
  const auto row = PatternOf<ISelectionItemProvider>(Row(5), UIA_SelectionItemPatternId);
  ASSERT_EQ(row->AddToSelection(), S_OK);
  EXPECT_EQ(Range(), (CellRange{1, 3, 4, 5}));
  EXPECT_EQ(row->RemoveFromSelection(), UIA_E_INVALIDOPERATION);
  const auto other = PatternOf<ISelectionItemProvider>(Row(9), UIA_SelectionItemPatternId);
  EXPECT_EQ(other->RemoveFromSelection(), S_OK) << "it is not selected";
  EXPECT_EQ(Range(), (CellRange{1, 3, 4, 5}));
}

TEST_F(GridProviderTest, SetsThePriceOfAnOpenCell) {
  const auto price = PatternOf<IValueProvider>(Cell(4, 2), UIA_ValuePatternId);
  BOOL readOnly = TRUE;
  ASSERT_EQ(price->get_IsReadOnly(&readOnly), S_OK);
  EXPECT_FALSE(readOnly);
  ASSERT_EQ(price->SetValue(L"12.5"), S_OK);
  EXPECT_EQ(GridWindow::Cell(4, 2), "12.50");
  EXPECT_EQ(ValueOf(Cell(4, 2)), "12.50");
  ASSERT_EQ(price->SetValue(L""), S_OK);
  EXPECT_EQ(GridWindow::Cell(4, 2), "");
}

TEST_F(GridProviderTest, RefusesPricesThatCannotBeTyped) {
  const auto price = PatternOf<IValueProvider>(Cell(4, 2), UIA_ValuePatternId);
  for (const wchar_t* text : {L"abc", L"1.234", L"100000000000", L"-"}) {
    EXPECT_EQ(price->SetValue(text), E_INVALIDARG);
  }
  EXPECT_EQ(price->SetValue(nullptr), E_INVALIDARG);
  EXPECT_EQ(GridWindow::Cell(4, 2), "");
}

TEST_F(GridProviderTest, RefusesValuesOfLockedCells) {
  const auto code = PatternOf<IValueProvider>(Cell(1, 2), UIA_ValuePatternId);
  BOOL readOnly = FALSE;
  ASSERT_EQ(code->get_IsReadOnly(&readOnly), S_OK);
  EXPECT_TRUE(readOnly);
  EXPECT_EQ(code->SetValue(L"1"), UIA_E_INVALIDOPERATION);
  const auto price = PatternOf<IValueProvider>(Cell(4, 2), UIA_ValuePatternId);
  grid_.LockColumns(4);
  EXPECT_EQ(price->SetValue(L"1"), UIA_E_INVALIDOPERATION);
  EXPECT_EQ(GridWindow::Cell(4, 2), "");
}

TEST_F(GridProviderTest, AValueFromOutsideReplacesWhatIsBeingTyped) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"7");
  ASSERT_NE(Editor(), nullptr);
  ASSERT_EQ(PatternOf<IValueProvider>(Cell(4, 2), UIA_ValuePatternId)->SetValue(L"8"), S_OK);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(GridWindow::Cell(4, 2), "8.00");
}

TEST_F(GridProviderTest, SelectingElsewhereKeepsWhatIsBeingTyped) {
  input_.Click(Handle(), CellPoint(4, 2));
  input_.Type(u"7");
  ASSERT_EQ(PatternOf<ISelectionItemProvider>(Cell(1, 1), UIA_SelectionItemPatternId)->Select(),
            S_OK);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(GridWindow::Cell(4, 2), "7.00");
}

TEST_F(GridProviderTest, ChangesNothingBehindAModalWindow) {
  EnableWindow(host_.Handle(), FALSE);
  const Element cell = Cell(4, 2);
  EXPECT_EQ(PropertyOf(cell.get(), UIA_IsEnabledPropertyId), "false");
  EXPECT_EQ(PatternOf<IValueProvider>(cell, UIA_ValuePatternId)->SetValue(L"1"),
            UIA_E_ELEMENTNOTENABLED);
  EXPECT_EQ(PatternOf<ISelectionItemProvider>(cell, UIA_SelectionItemPatternId)->Select(),
            UIA_E_ELEMENTNOTENABLED);
  EXPECT_EQ(cell.As<IRawElementProviderFragment>()->SetFocus(), UIA_E_ELEMENTNOTENABLED);
  EnableWindow(host_.Handle(), TRUE);
  EXPECT_EQ(Current(), "1,1");
}

TEST_F(GridProviderTest, FocusOnACellMovesThere) {
  SetFocus(host_.Handle());
  ASSERT_EQ(Cell(3, 4).As<IRawElementProviderFragment>()->SetFocus(), S_OK);
  EXPECT_EQ(GetFocus(), Handle());
  EXPECT_EQ(Current(), "3,4");
}

TEST_F(GridProviderTest, AnElementThatIsGoneAfterALoadIsNotAvailable) {
  const Element cell = Cell(1, 90);
  Fill(10);
  windows::Bstr value;
  EXPECT_EQ(cell.As<IValueProvider>()->get_Value(value.put()), UIA_E_ELEMENTNOTAVAILABLE);
  EXPECT_EQ(cell.As<ISelectionItemProvider>()->Select(), UIA_E_ELEMENTNOTAVAILABLE);
  Fill(100);
  EXPECT_EQ(ValueOf(cell), "甲");
}

}  // namespace
}  // namespace pricedown::testing
