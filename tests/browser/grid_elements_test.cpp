// What assistive technology reads of the grid: names, ids, places, the tree, rows by name.
#include "browser/grid_elements.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/utf8.h"

namespace pricedown::testing {

// For messages of failed tests.
void PrintTo(const GridElement& element, std::ostream* out) {
  *out << "column " << element.column << " of row " << element.row;
}

namespace {

// Three columns of 100 pixels, the last one a number's; rows of 19 pixels under titles of 24, in a
// window of ten rows and a half that is 250 wide.
class GridElementsTest : public ::testing::Test {
 protected:
  GridElementsTest() {
    grid_.SetText(1, kTitleRow, u"物料代码");
    grid_.SetText(2, kTitleRow, u"规格型号");
    grid_.SetText(3, kTitleRow, u"标准单价");
    for (std::int32_t column = 1; column <= 3; ++column) grid_.SetColumnWidth(column, 10);
    Fill(200);
  }

  void Fill(std::int32_t rows) {
    grid_.SetMaxRows(rows);
    grid_.SetText(1, 5, u"1281.01");
    grid_.SetUpperBound(3, rows, 99999999999.99);
    grid_.LockColumns(2);
    viewport_.Geometry().Update(grid_, 96, 15);
    viewport_.Resize({window_.width, window_.height}, rows);
  }
  void SelectBlock(std::int32_t column, std::int32_t row, std::int32_t column2, std::int32_t row2) {
    selection_.MoveTo(column, row, false, grid_);
    selection_.MoveTo(column2, row2, true, grid_);
  }

  GridElements Elements() const { return {&grid_, viewport_, selection_, window_}; }
  std::string Name(std::int32_t column, std::int32_t row) const {
    return Utf8(Elements().Name({column, row}));
  }
  std::string Id(std::int32_t column, std::int32_t row) const {
    return Utf8(Elements().Id({column, row}));
  }
  std::int32_t Found(std::int32_t after, RowKey key, std::u16string_view text = {}) const {
    const auto row = Elements().FindRow(after, key, text);
    return row && row->IsRow() ? row->row : 0;
  }

  Size window_{250, 24 + 10 * 19 + 9};
  Grid grid_{3};
  GridViewport viewport_;
  GridSelection selection_;
};

constexpr GridElement kTitles{};

TEST_F(GridElementsTest, NameARowByItsPositionAndACellByItsText) {
  EXPECT_EQ(Name(0, 5), "第 5 行，共 200 行");
  EXPECT_EQ(Name(1, 5), "1281.01");
  EXPECT_EQ(Name(0, kTitleRow), "列标题");
  EXPECT_EQ(Name(2, kTitleRow), "规格型号");
}

TEST_F(GridElementsTest, NameACellByItsTitleWhenItsTextIsEmptyOrItsValue) {
  EXPECT_EQ(Name(2, 5), "规格型号");
  EXPECT_EQ(Name(3, 5), "标准单价");
  grid_.SetText(3, 5, u"12.50");
  EXPECT_EQ(Name(3, 5), "标准单价");
}

TEST_F(GridElementsTest, HaveStableIds) {
  EXPECT_EQ(Id(0, kTitleRow), "titles");
  EXPECT_EQ(Id(2, kTitleRow), "title2");
  EXPECT_EQ(Id(0, 5), "row5");
  EXPECT_EQ(Id(2, 5), "row5.column2");
}

TEST_F(GridElementsTest, ExistOnlyInsideTheGrid) {
  EXPECT_TRUE(Elements().Exists({3, 200}));
  EXPECT_TRUE(Elements().Exists({0, 200}));
  EXPECT_TRUE(Elements().Exists(kTitles));
  EXPECT_FALSE(Elements().Exists({4, 1}));
  EXPECT_FALSE(Elements().Exists({1, 201}));
  EXPECT_FALSE(Elements().Exists({-1, 1}));
  EXPECT_FALSE(Elements().Exists({1, -1}));
}

TEST_F(GridElementsTest, AreNoneWithoutAGrid) {
  const GridElements none(nullptr, viewport_, selection_, window_);
  EXPECT_EQ(none.Rows(), 0);
  EXPECT_EQ(none.Columns(), 0);
  EXPECT_FALSE(none.Exists(kTitles));
  EXPECT_FALSE(none.FirstChild({}));
  EXPECT_FALSE(none.LastChild({}));
  EXPECT_FALSE(none.Current());
  EXPECT_FALSE(none.At(5, 30));
  EXPECT_TRUE(none.SelectedCells().empty());
  EXPECT_FALSE(none.IsEditable({3, 200}));
}

TEST_F(GridElementsTest, AreEditableWhereTheGridAcceptsANumber) {
  EXPECT_TRUE(Elements().IsEditable({3, 200}));
  EXPECT_FALSE(Elements().IsEditable({3, 201}));
  EXPECT_FALSE(Elements().IsEditable({1, 200}));
}

TEST_F(GridElementsTest, HaveThePlaceThatShowsInTheWindow) {
  EXPECT_EQ(Elements().Area({1, 1}), (Rectangle{0, 24, 100, 19}));
  EXPECT_EQ(Elements().Area({3, 2}), (Rectangle{200, 43, 50, 19}));
  EXPECT_EQ(Elements().Area({0, 1}), (Rectangle{0, 24, 250, 19}));
  EXPECT_EQ(Elements().Area({0, 11}), (Rectangle{0, 24 + 190, 250, 9}));
  EXPECT_EQ(Elements().Area({0, kTitleRow}), (Rectangle{0, 0, 250, 24}));
  EXPECT_EQ(Elements().Area({2, kTitleRow}), (Rectangle{100, 0, 100, 24}));
}

TEST_F(GridElementsTest, ShowARowFromItsFirstPixelOn) {
  window_.height = 24 + 10 * 19;
  EXPECT_FALSE(Elements().IsShown(11));
  ++window_.height;
  EXPECT_TRUE(Elements().IsShown(11));
}

TEST_F(GridElementsTest, HaveNoPlaceWhenScrolledOut) {
  viewport_.ScrollTo(50, 50);
  EXPECT_EQ(Elements().Area({1, 49}), Rectangle{});
  EXPECT_EQ(Elements().Area({1, 50}), (Rectangle{0, 24, 50, 19}));
  EXPECT_EQ(Elements().Area({1, 61}), Rectangle{});
  EXPECT_EQ(Elements().Area({1, kTitleRow}), (Rectangle{0, 0, 50, 24}));
  EXPECT_EQ(Elements().Area({0, 200}), Rectangle{});
}

TEST_F(GridElementsTest, AreFoundByPoint) {
  EXPECT_EQ(Elements().At(150, 30), (GridElement{2, 1}));
  EXPECT_EQ(Elements().At(150, 10), (GridElement{2, kTitleRow}));
  viewport_.ScrollTo(50, 50);
  EXPECT_EQ(Elements().At(60, 30), (GridElement{2, 50}));
  grid_.SetMaxRows(0);
  EXPECT_FALSE(Elements().At(60, 30));
  grid_.SetColumnWidth(3, 1);
  viewport_.Geometry().Update(grid_, 96, 15);
  EXPECT_FALSE(Elements().At(240, 10)) << "right of the last column";
}

TEST_F(GridElementsTest, AreFoundInTheWindowOnly) {
  viewport_.ScrollTo(50, 30);
  const int right = window_.width;
  const int bottom = window_.height;
  EXPECT_EQ(Elements().At(right - 1, bottom - 1), (GridElement{3, 60}));
  EXPECT_EQ(Elements().At(0, 0), (GridElement{1, kTitleRow}));
  EXPECT_FALSE(Elements().At(right, 30)) << "over the vertical scroll bar";
  EXPECT_FALSE(Elements().At(60, bottom)) << "over the horizontal scroll bar";
  EXPECT_FALSE(Elements().At(-1, 30));
  EXPECT_FALSE(Elements().At(60, -1));
}

TEST_F(GridElementsTest, FormATreeOfTheTitlesAndTheRowsInTheWindow) {
  viewport_.ScrollTo(50, 0);
  std::vector<GridElement> forwards;
  for (auto child = Elements().FirstChild({}); child; child = Elements().Next(*child)) {
    forwards.push_back(*child);
  }
  ASSERT_EQ(forwards.size(), 12u) << "titles, ten rows and a part of one";
  EXPECT_EQ(forwards[0], kTitles);
  EXPECT_EQ(forwards[1], (GridElement{0, 50}));
  EXPECT_EQ(forwards[11], (GridElement{0, 60}));
  std::vector<GridElement> backwards;
  for (auto child = Elements().LastChild({}); child; child = Elements().Previous(*child)) {
    backwards.insert(backwards.begin(), *child);
  }
  EXPECT_EQ(forwards, backwards);
}

TEST_F(GridElementsTest, FormATreeOfCellsInARow) {
  const GridElement row{0, 3};
  EXPECT_EQ(Elements().FirstChild(row), (GridElement{1, 3}));
  EXPECT_EQ(Elements().LastChild(row), (GridElement{3, 3}));
  EXPECT_EQ(Elements().Next({1, 3}), (GridElement{2, 3}));
  EXPECT_EQ(Elements().Previous({2, 3}), (GridElement{1, 3}));
  EXPECT_FALSE(Elements().Next({3, 3}));
  EXPECT_FALSE(Elements().Previous({1, 3}));
  EXPECT_FALSE(Elements().FirstChild(GridElement{1, 3}));
  EXPECT_FALSE(Elements().LastChild(GridElement{1, 3}));
  EXPECT_EQ(Elements().Parent({2, 3}), row);
  EXPECT_EQ(Elements().Parent({2, kTitleRow}), kTitles);
  EXPECT_FALSE(Elements().Parent(row));
}

TEST_F(GridElementsTest, OutsideTheWindowHaveAParentAndNoNeighbours) {
  viewport_.ScrollTo(50, 0);
  for (const std::int32_t row : {1, 49, 61, 200}) {
    EXPECT_FALSE(Elements().Next({0, row})) << row;
    EXPECT_FALSE(Elements().Previous({0, row})) << row;
    EXPECT_FALSE(Elements().IsShown(row)) << row;
  }
  EXPECT_EQ(Elements().Parent({1, 200}), (GridElement{0, 200}));
}

TEST_F(GridElementsTest, OfAnEmptyGridAreTheTitles) {
  Fill(0);
  EXPECT_EQ(Elements().FirstChild({}), kTitles);
  EXPECT_EQ(Elements().LastChild({}), kTitles);
  EXPECT_FALSE(Elements().Next(kTitles));
  EXPECT_FALSE(Elements().Current());
}

TEST_F(GridElementsTest, OfABlockAreSelected) {
  SelectBlock(1, 3, 2, 4);
  EXPECT_TRUE(Elements().IsSelected({1, 3}));
  EXPECT_TRUE(Elements().IsSelected({2, 4}));
  EXPECT_FALSE(Elements().IsSelected({3, 4}));
  EXPECT_FALSE(Elements().IsSelected({0, 3})) << "not all cells of the row";
  EXPECT_FALSE(Elements().IsSelected({1, kTitleRow}));
  EXPECT_EQ(Elements().SelectedCells(), (std::vector<GridElement>{{1, 3}, {2, 3}, {1, 4}, {2, 4}}));
  SelectBlock(1, 3, 3, 4);
  EXPECT_TRUE(Elements().IsSelected({0, 3}));
}

TEST_F(GridElementsTest, ListSelectedCellsOfTheWindowAndTheCurrentOneOnly) {
  SelectBlock(1, 1, 1, 200);
  const auto cells = Elements().SelectedCells();
  ASSERT_EQ(cells.size(), 12u);
  EXPECT_EQ(cells[0], (GridElement{1, 200})) << "the current cell";
  EXPECT_EQ(cells[1], (GridElement{1, 1}));
  EXPECT_EQ(cells[11], (GridElement{1, 11}));
}

TEST_F(GridElementsTest, AreSelectedAloneOrExtendTheBlock) {
  selection_ = Elements().Select({2, 7}, false);
  EXPECT_EQ(selection_.Range(), (CellRange{2, 7, 2, 7}));
  selection_ = Elements().Select({3, 9}, true);
  EXPECT_EQ(selection_.Range(), (CellRange{2, 7, 3, 9}));
  selection_ = Elements().Select({0, 4}, false);
  EXPECT_EQ(selection_.Range(), (CellRange{1, 4, 3, 4}));
  selection_ = Elements().Select({0, 6}, true);
  EXPECT_EQ(selection_.Range(), (CellRange{1, 4, 3, 6}));
}

TEST_F(GridElementsTest, NameTheFieldOfACellByItsTitleAndRow) {
  EXPECT_EQ(Utf8(Elements().FieldName({3, 5})), "标准单价，第 5 行");
}

TEST_F(GridElementsTest, FindRowsByNameAndIdBehindARow) {
  EXPECT_EQ(Found(0, RowKey::Any), 1);
  EXPECT_EQ(Found(199, RowKey::Any), 200);
  EXPECT_EQ(Found(200, RowKey::Any), 0);
  EXPECT_EQ(Found(0, RowKey::Name, u"第 150 行，共 200 行"), 150);
  EXPECT_EQ(Found(0, RowKey::Name, u"第 150 行，共 201 行"), 0);
  EXPECT_EQ(Found(150, RowKey::Name, u"第 150 行，共 200 行"), 0);
  EXPECT_EQ(Found(0, RowKey::Id, u"row200"), 200);
  EXPECT_EQ(Found(0, RowKey::Id, u"row201"), 0);
  EXPECT_EQ(Found(0, RowKey::Id, u"row7.column1"), 0);
  EXPECT_EQ(Found(0, RowKey::Id, u"row99999999999"), 0);
  EXPECT_EQ(Found(0, RowKey::Id, u""), 0);
}

TEST_F(GridElementsTest, FindRowsByTheTextOfACell) {
  EXPECT_EQ(Found(0, RowKey::Text, u"1281.01"), 5);
  EXPECT_EQ(Found(5, RowKey::Text, u"1281.01"), 0);
  EXPECT_EQ(Found(0, RowKey::Text, u"1281"), 0);
}

TEST_F(GridElementsTest, FindRowsBySelection) {
  EXPECT_EQ(Found(0, RowKey::Selected), 0) << "one cell is no row";
  SelectBlock(1, 3, 3, 4);
  EXPECT_EQ(Found(0, RowKey::Selected), 3);
  EXPECT_EQ(Found(3, RowKey::Selected), 4);
  EXPECT_EQ(Found(4, RowKey::Selected), 0);
  EXPECT_EQ(Found(1, RowKey::NotSelected), 2);
  EXPECT_EQ(Found(2, RowKey::NotSelected), 5);
  SelectBlock(1, 1, 3, 200);
  EXPECT_EQ(Found(0, RowKey::NotSelected), 0);
}

TEST_F(GridElementsTest, ScrollInPercent) {
  viewport_.ScrollTo(96, 25);
  EXPECT_EQ(VerticalExtent(viewport_), (ScrollExtent{true, 50, 5}));
  EXPECT_EQ(HorizontalExtent(viewport_), (ScrollExtent{true, 50, 250 * 100.0 / 300}));
  EXPECT_EQ(TopRowAt(viewport_, 0), 1);
  EXPECT_EQ(TopRowAt(viewport_, 50), 96);
  EXPECT_EQ(TopRowAt(viewport_, 100), 191);
  EXPECT_EQ(LeftAt(viewport_, 100), 50);
}

TEST_F(GridElementsTest, DoNotScrollWhenAllRowsShow) {
  Fill(10);
  EXPECT_EQ(VerticalExtent(viewport_), ScrollExtent{});
}

}  // namespace
}  // namespace pricedown::testing
