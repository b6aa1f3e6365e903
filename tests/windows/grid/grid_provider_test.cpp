// The provider of the grid: tree, patterns, scrolling, finding rows.
#include "tests/windows/grid/provider_fixture.h"
#include "windows/com/bstr.h"
#include "windows/com/variant.h"

namespace pricedown::testing {
namespace {

using windows::SafeArray;

TEST_F(GridProviderTest, IsADataGridWithTheWindowsNameAndPatterns) {
  ASSERT_TRUE(root_);
  EXPECT_EQ(PropertyOf(root_.get(), UIA_ControlTypePropertyId),
            std::to_string(UIA_DataGridControlTypeId));
  EXPECT_EQ(Name(root_), "物料明细");
  EXPECT_EQ(Id(root_), std::to_string(windows::control_ids::kGrid));
  for (const PATTERNID pattern : {UIA_GridPatternId, UIA_TablePatternId, UIA_SelectionPatternId,
                                  UIA_ScrollPatternId, UIA_ItemContainerPatternId}) {
    EXPECT_TRUE(RootPattern<IUnknown>(pattern)) << pattern;
  }
  EXPECT_FALSE(RootPattern<IUnknown>(UIA_ValuePatternId));
}

TEST_F(GridProviderTest, IsCalledOnTheThreadOfItsWindow) {
  ProviderOptions options{};
  ASSERT_EQ(root_->get_ProviderOptions(&options), S_OK);
  EXPECT_EQ(options, ProviderOptions_ServerSideProvider | ProviderOptions_UseComThreading);
}

TEST_F(GridProviderTest, IsTheSameForEveryClient) {
  EXPECT_EQ(automation_.ProviderOf(Handle()).get(), root_.get());
}

TEST_F(GridProviderTest, LeavesOtherObjectsOfTheWindowToTheSystem) {
  SendMessageW(Handle(), WM_GETOBJECT, 0, OBJID_CLIENT);
  SendMessageW(Handle(), WM_GETOBJECT, 0, OBJID_WINDOW);
  EXPECT_TRUE(Events().empty());
}

TEST_F(GridProviderTest, ReachesEveryCellByRowAndColumn) {
  int rows = 0;
  int columns = 0;
  const auto grid = RootPattern<IGridProvider>(UIA_GridPatternId);
  ASSERT_EQ(grid->get_RowCount(&rows), S_OK);
  ASSERT_EQ(grid->get_ColumnCount(&columns), S_OK);
  EXPECT_EQ(rows, 100);
  EXPECT_EQ(columns, 4);
  for (const std::int32_t row : {1, 50, 100}) {
    for (std::int32_t column = 1; column <= 4; ++column) {
      const Element cell = Cell(column, row);
      ASSERT_TRUE(cell);
      EXPECT_EQ(Id(cell), "row" + std::to_string(row) + ".column" + std::to_string(column));
      EXPECT_EQ(ValueOf(cell), GridWindow::Cell(column, row));
    }
  }
}

TEST_F(GridProviderTest, RefusesCellsOutsideTheGrid) {
  const auto grid = RootPattern<IGridProvider>(UIA_GridPatternId);
  Element cell;
  EXPECT_EQ(grid->GetItem(100, 0, cell.put()), E_INVALIDARG);
  EXPECT_EQ(grid->GetItem(0, 4, cell.put()), E_INVALIDARG);
  EXPECT_EQ(grid->GetItem(-1, 0, cell.put()), E_INVALIDARG);
  EXPECT_EQ(grid->GetItem(0, -1, cell.put()), E_INVALIDARG);
  EXPECT_FALSE(cell);
  EXPECT_EQ(grid->GetItem(0, 0, nullptr), E_POINTER);
}

TEST_F(GridProviderTest, HasItsTitlesAsColumnHeadersAndNoRowHeaders) {
  const auto table = RootPattern<ITableProvider>(UIA_TablePatternId);
  SafeArray headers;
  ASSERT_EQ(table->GetColumnHeaders(headers.put()), S_OK);
  EXPECT_EQ(IdsIn(headers), (std::vector<std::string>{"title1", "title2", "title3", "title4"}));
  ASSERT_EQ(table->GetRowHeaders(headers.put()), S_OK);
  EXPECT_TRUE(IdsIn(headers).empty());
  RowOrColumnMajor major{};
  EXPECT_EQ(table->get_RowOrColumnMajor(&major), S_OK);
  EXPECT_EQ(major, RowOrColumnMajor_RowMajor);
}

TEST_F(GridProviderTest, HasTheTitlesAndTheRowsOfTheWindowAsChildren) {
  EXPECT_EQ(IdOfNeighbour(root_, NavigateDirection_FirstChild), "titles");
  EXPECT_EQ(IdOfNeighbour(root_, NavigateDirection_Parent), "none") << "the window's";
  std::vector<std::string> ids;
  for (Element child = Neighbour(root_, NavigateDirection_FirstChild); child;
       child = Neighbour(child, NavigateDirection_NextSibling)) {
    EXPECT_EQ(IdOfNeighbour(child, NavigateDirection_Parent), "root");
    ids.push_back(Id(child));
  }
  ASSERT_GT(ids.size(), 5u);
  EXPECT_LT(ids.size(), 30u);
  EXPECT_EQ(ids[1], "row1");
  EXPECT_EQ(IdOfNeighbour(root_, NavigateDirection_LastChild), ids.back());
}

TEST_F(GridProviderTest, HasTheCellsOfARowAsItsChildren) {
  const Element row = Row(2);
  EXPECT_EQ(Name(row), "第 2 行，共 100 行");
  EXPECT_EQ(IdOfNeighbour(row, NavigateDirection_PreviousSibling), "row1");
  EXPECT_EQ(IdOfNeighbour(row, NavigateDirection_FirstChild), "row2.column1");
  EXPECT_EQ(IdOfNeighbour(row, NavigateDirection_LastChild), "row2.column4");
  const Element cell = Cell(2, 2);
  EXPECT_EQ(IdOfNeighbour(cell, NavigateDirection_Parent), "row2");
  EXPECT_EQ(IdOfNeighbour(cell, NavigateDirection_NextSibling), "row2.column3");
  EXPECT_EQ(IdOfNeighbour(cell, NavigateDirection_FirstChild), "none");
}

TEST_F(GridProviderTest, FindsTheElementAtAPointOfTheScreen) {
  POINT point = CellPoint(2, 3);
  ClientToScreen(Handle(), &point);
  const auto root = root_.As<IRawElementProviderFragmentRoot>();
  ComPtr<IRawElementProviderFragment> found;
  ASSERT_EQ(root->ElementProviderFromPoint(point.x, point.y, found.put()), S_OK);
  EXPECT_EQ(Id(found.As<IRawElementProviderSimple>()), "row3.column2");
  UiaRect area{};
  ASSERT_EQ(found->get_BoundingRectangle(&area), S_OK);
  EXPECT_LE(area.left, point.x);
  EXPECT_GT(area.left + area.width, point.x);
  EXPECT_LE(area.top, point.y);
  EXPECT_GT(area.top + area.height, point.y);
  ASSERT_EQ(root->ElementProviderFromPoint(point.x + 4000, point.y, found.put()), S_OK);
  EXPECT_EQ(found.As<IRawElementProviderSimple>().get(), root_.get()) << "no element is there";
}

TEST_F(GridProviderTest, FocusReachesTheCurrentCell) {
  input_.Press(VK_DOWN);
  input_.Press(VK_RIGHT);
  const auto root = root_.As<IRawElementProviderFragmentRoot>();
  ComPtr<IRawElementProviderFragment> focus;
  ASSERT_EQ(root->GetFocus(focus.put()), S_OK);
  ASSERT_TRUE(focus);
  EXPECT_EQ(Id(focus.As<IRawElementProviderSimple>()), "row2.column2");
  EXPECT_EQ(PropertyOf(Cell(2, 2).get(), UIA_HasKeyboardFocusPropertyId), "true");
  EXPECT_EQ(PropertyOf(Cell(1, 2).get(), UIA_HasKeyboardFocusPropertyId), "false");
  EXPECT_EQ(PropertyOf(root_.get(), UIA_HasKeyboardFocusPropertyId), "false");
  SetFocus(host_.Handle());
  ASSERT_EQ(root->GetFocus(focus.put()), S_OK);
  EXPECT_FALSE(focus);
  EXPECT_EQ(PropertyOf(Cell(2, 2).get(), UIA_HasKeyboardFocusPropertyId), "false");
}

TEST_F(GridProviderTest, FocusIsTheGridsWithoutRows) {
  Fill(0);
  ComPtr<IRawElementProviderFragment> focus;
  ASSERT_EQ(root_.As<IRawElementProviderFragmentRoot>()->GetFocus(focus.put()), S_OK);
  EXPECT_FALSE(focus);
  EXPECT_EQ(PropertyOf(root_.get(), UIA_HasKeyboardFocusPropertyId), "true");
}

TEST_F(GridProviderTest, ListsTheSelectedCells) {
  const auto selection = RootPattern<ISelectionProvider>(UIA_SelectionPatternId);
  input_.PressWith(VK_SHIFT, VK_DOWN);
  SafeArray cells;
  ASSERT_EQ(selection->GetSelection(cells.put()), S_OK);
  EXPECT_EQ(IdsIn(cells), (std::vector<std::string>{"row1.column1", "row2.column1"}));
  BOOL flag = FALSE;
  ASSERT_EQ(selection->get_CanSelectMultiple(&flag), S_OK);
  EXPECT_TRUE(flag);
}

TEST_F(GridProviderTest, ScrollsByStepsAndPercent) {
  const auto scroll = RootPattern<IScrollProvider>(UIA_ScrollPatternId);
  double percent = -2;
  ASSERT_EQ(scroll->get_VerticalScrollPercent(&percent), S_OK);
  EXPECT_EQ(percent, 0);
  ASSERT_EQ(scroll->Scroll(ScrollAmount_NoAmount, ScrollAmount_SmallIncrement), S_OK);
  EXPECT_EQ(window_.Viewport().TopRow(), 2);
  ASSERT_EQ(scroll->Scroll(ScrollAmount_NoAmount, ScrollAmount_LargeIncrement), S_OK);
  EXPECT_GT(window_.Viewport().TopRow(), 5);
  ASSERT_EQ(scroll->SetScrollPercent(UIA_ScrollPatternNoScroll, 100), S_OK);
  EXPECT_EQ(window_.Viewport().TopRow(), window_.Viewport().LastTopRow());
  ASSERT_EQ(scroll->get_VerticalScrollPercent(&percent), S_OK);
  EXPECT_EQ(percent, 100);
  EXPECT_EQ(scroll->SetScrollPercent(UIA_ScrollPatternNoScroll, 101), E_INVALIDARG);
  EXPECT_EQ(scroll->SetScrollPercent(UIA_ScrollPatternNoScroll, -3), E_INVALIDARG);
  double size = 0;
  ASSERT_EQ(scroll->get_VerticalViewSize(&size), S_OK);
  EXPECT_EQ(size, window_.Viewport().PageRows());
}

TEST_F(GridProviderTest, ScrollsAcrossByStepsAndPercent) {
  SetWindowPos(Handle(), nullptr, 0, 0, Scale(200), Scale(300), SWP_NOMOVE | SWP_NOZORDER);
  const auto scroll = RootPattern<IScrollProvider>(UIA_ScrollPatternId);
  BOOL scrollable = FALSE;
  ASSERT_EQ(scroll->get_HorizontallyScrollable(&scrollable), S_OK);
  EXPECT_TRUE(scrollable);
  ASSERT_EQ(scroll->Scroll(ScrollAmount_SmallIncrement, ScrollAmount_NoAmount), S_OK);
  const int line = window_.Viewport().Left();
  EXPECT_GT(line, 0);
  EXPECT_EQ(window_.Viewport().TopRow(), 1);
  ASSERT_EQ(scroll->Scroll(ScrollAmount_LargeIncrement, ScrollAmount_NoAmount), S_OK);
  EXPECT_GT(window_.Viewport().Left(), 2 * line);
  ASSERT_EQ(scroll->SetScrollPercent(100, UIA_ScrollPatternNoScroll), S_OK);
  EXPECT_EQ(window_.Viewport().Left(), window_.Viewport().LastLeft());
  EXPECT_EQ(window_.Viewport().TopRow(), 1);
  double percent = 0;
  ASSERT_EQ(scroll->get_HorizontalScrollPercent(&percent), S_OK);
  EXPECT_EQ(percent, 100);
  EXPECT_EQ(scroll->SetScrollPercent(101, UIA_ScrollPatternNoScroll), E_INVALIDARG);
  EXPECT_EQ(scroll->SetScrollPercent(-3, UIA_ScrollPatternNoScroll), E_INVALIDARG);
  double size = 0;
  ASSERT_EQ(scroll->get_HorizontalViewSize(&size), S_OK);
  EXPECT_DOUBLE_EQ(size,
                   window_.Viewport().PageWidth() * 100.0 / window_.Viewport().Geometry().Width());
}

TEST_F(GridProviderTest, DoesNotScrollAcrossWhereAllColumnsShow) {
  const auto scroll = RootPattern<IScrollProvider>(UIA_ScrollPatternId);
  BOOL scrollable = TRUE;
  ASSERT_EQ(scroll->get_HorizontallyScrollable(&scrollable), S_OK);
  EXPECT_FALSE(scrollable);
  double percent = 0;
  ASSERT_EQ(scroll->get_HorizontalScrollPercent(&percent), S_OK);
  EXPECT_EQ(percent, UIA_ScrollPatternNoScroll);
  EXPECT_EQ(scroll->Scroll(ScrollAmount_SmallIncrement, ScrollAmount_NoAmount),
            UIA_E_INVALIDOPERATION);
  EXPECT_EQ(scroll->SetScrollPercent(50, UIA_ScrollPatternNoScroll), E_INVALIDARG);
}

TEST_F(GridProviderTest, DoesNotScrollWhereThereIsNoBar) {
  Fill(2);
  const auto scroll = RootPattern<IScrollProvider>(UIA_ScrollPatternId);
  BOOL scrollable = TRUE;
  ASSERT_EQ(scroll->get_VerticallyScrollable(&scrollable), S_OK);
  EXPECT_FALSE(scrollable);
  double percent = 0;
  ASSERT_EQ(scroll->get_VerticalScrollPercent(&percent), S_OK);
  EXPECT_EQ(percent, UIA_ScrollPatternNoScroll);
  EXPECT_EQ(scroll->Scroll(ScrollAmount_NoAmount, ScrollAmount_SmallIncrement),
            UIA_E_INVALIDOPERATION);
  EXPECT_EQ(scroll->SetScrollPercent(UIA_ScrollPatternNoScroll, 50), E_INVALIDARG);
}

TEST_F(GridProviderTest, FindsRowsThatAreScrolledOutAndBringsThemIn) {
  const Element row = Row(90);
  ASSERT_TRUE(row);
  EXPECT_EQ(PropertyOf(row.get(), UIA_IsOffscreenPropertyId), "true");
  EXPECT_EQ(IdOfNeighbour(row, NavigateDirection_Parent), "root");
  const auto item = PatternOf<IVirtualizedItemProvider>(row, UIA_VirtualizedItemPatternId);
  ASSERT_TRUE(item);
  ASSERT_EQ(item->Realize(), S_OK);
  EXPECT_EQ(PropertyOf(row.get(), UIA_IsOffscreenPropertyId), "false");
  EXPECT_FALSE(PatternOf<IUnknown>(row, UIA_VirtualizedItemPatternId));
  EXPECT_NE(IdOfNeighbour(row, NavigateDirection_PreviousSibling), "none");
}

TEST_F(GridProviderTest, FindsRowsOneAfterTheOther) {
  const auto container = RootPattern<IItemContainerProvider>(UIA_ItemContainerPatternId);
  Element row;
  int found = 0;
  for (Element after;
       container->FindItemByProperty(after.get(), 0, VARIANT{}, row.put()) == S_OK && row;
       after = std::move(row)) {
    ++found;
  }
  EXPECT_EQ(found, 100);
}

TEST_F(GridProviderTest, FindsRowsByTheTextOfACellAndRefusesOtherProperties) {
  grid_.SetText(2, 77, u"轴承");
  windows::Variant text;
  text.put()->bstrVal = windows::Bstr(u"轴承").release();
  text.share()->vt = VT_BSTR;
  const auto container = RootPattern<IItemContainerProvider>(UIA_ItemContainerPatternId);
  Element row;
  ASSERT_EQ(container->FindItemByProperty(nullptr, UIA_ValueValuePropertyId, text.get(), row.put()),
            S_OK);
  EXPECT_EQ(Id(row), "row77");
  Element next;
  EXPECT_EQ(
      container->FindItemByProperty(row.get(), UIA_ValueValuePropertyId, text.get(), next.put()),
      S_OK);
  EXPECT_FALSE(next);
  EXPECT_EQ(
      container->FindItemByProperty(nullptr, UIA_ControlTypePropertyId, text.get(), next.put()),
      E_INVALIDARG);
  EXPECT_EQ(container->FindItemByProperty(nullptr, UIA_NamePropertyId, VARIANT{}, next.put()),
            E_INVALIDARG);
  EXPECT_EQ(container->FindItemByProperty(root_.get(), 0, VARIANT{}, next.put()), E_INVALIDARG)
      << "the grid is no row";
}

TEST_F(GridProviderTest, OfAMillionRowsIsAsLargeAsTheWindow) {
  Fill(1000000);
  input_.PressWith(VK_CONTROL, 'A');
  const long before = windows::Counts().objects;
  SafeArray cells;
  ASSERT_EQ(RootPattern<ISelectionProvider>(UIA_SelectionPatternId)->GetSelection(cells.put()),
            S_OK);
  EXPECT_LT(IdsIn(cells).size(), 200u);
  int children = 0;
  for (Element child = Neighbour(root_, NavigateDirection_FirstChild); child;
       child = Neighbour(child, NavigateDirection_NextSibling)) {
    ++children;
  }
  EXPECT_LT(children, 50);
  EXPECT_EQ(Name(Row(999999)), "第 999999 行，共 1000000 行");
  EXPECT_EQ(ValueOf(Cell(2, 1000000)), "乙");
  cells.attach(nullptr);
  EXPECT_EQ(windows::Counts().objects, before);
}

}  // namespace
}  // namespace pricedown::testing
