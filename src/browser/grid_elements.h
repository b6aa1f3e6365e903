// The grid as the tree of elements that assistive technology reads: below the grid the titles and
// the rows in the window, below each of them its cells. Rows that are scrolled out exist, but are
// not part of the tree, so that its size is that of the window.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "browser/grid_selection.h"
#include "browser/grid_viewport.h"

namespace pricedown {

// A cell, a title (row 0), or a whole row or all titles (column 0).
struct GridElement {
  std::int32_t column = 0;
  std::int32_t row = kTitleRow;
  bool IsCell() const { return column > 0 && row > kTitleRow; }
  bool IsRow() const { return column == 0 && row > kTitleRow; }
  bool operator==(const GridElement&) const = default;
};

// What a row is looked up by.
enum class RowKey { Any, Name, Id, Text, Selected, NotSelected };

class GridElements {
 public:
  // `grid` may be null and is then empty; all must outlive the object. `window` is the size of the
  // grid's window in pixels.
  GridElements(const Grid* grid, const GridViewport& viewport, const GridSelection& selection,
               Size window)
      : grid_(grid), viewport_(viewport), selection_(selection), window_(window) {}

  std::int32_t Rows() const { return grid_ == nullptr ? 0 : grid_->MaxRows(); }
  std::int32_t Columns() const { return grid_ == nullptr ? 0 : grid_->MaxColumns(); }
  bool Exists(GridElement element) const;
  // What a screen reader says. A cell has its text; one that is empty or accepts numbers has its
  // title.
  std::u16string Name(GridElement element) const;
  // What it says of the field in which the cell's number is typed: title and row.
  std::u16string FieldName(GridElement cell) const;
  // Stable, for automation: "titles", "title2", "row5", "row5.column2".
  std::u16string Id(GridElement element) const;
  std::u16string_view Text(GridElement cell) const;
  bool IsEditable(GridElement cell) const;
  // The part that shows in the window; empty when none does.
  Rectangle Area(GridElement element) const;
  // The element at a point of the window; nothing where the grid itself is, or beyond the window.
  std::optional<GridElement> At(int x, int y) const;

  // The tree. A parent or child that is nothing is the grid or does not exist.
  std::optional<GridElement> Parent(GridElement element) const;
  std::optional<GridElement> FirstChild(std::optional<GridElement> parent) const;
  std::optional<GridElement> LastChild(std::optional<GridElement> parent) const;
  std::optional<GridElement> Next(GridElement element) const;
  std::optional<GridElement> Previous(GridElement element) const;
  // Whether the row is part of the tree.
  bool IsShown(std::int32_t row) const;

  // A row is selected when all of its cells are.
  bool IsSelected(GridElement element) const;
  CellRange Range() const { return selection_.Range(); }
  // The selected cells of the rows in the window, and the current cell wherever it is.
  std::vector<GridElement> SelectedCells() const;
  // The current cell; nothing without rows.
  std::optional<GridElement> Current() const;
  // The selection with which the element is selected, alone or as the other end of the block.
  GridSelection Select(GridElement element, bool extend) const;

  // The next row after `row` with that name or id, with a cell of that text, or any.
  std::optional<GridElement> FindRow(std::int32_t row, RowKey key,
                                     std::u16string_view text = {}) const;

 private:
  std::int32_t LastShown() const;

  const Grid* grid_;
  const GridViewport& viewport_;
  const GridSelection& selection_;
  Size window_;
};

// A scroll bar in percent: the position of the range, and the share of the whole that is visible.
struct ScrollExtent {
  bool scrollable = false;
  double percent = 0;
  double visiblePercent = 100;
  bool operator==(const ScrollExtent&) const = default;
};
ScrollExtent VerticalExtent(const GridViewport& viewport);
ScrollExtent HorizontalExtent(const GridViewport& viewport);
// The inverse, for GridViewport::ScrollTo. Requires: 0 <= percent <= 100.
std::int32_t TopRowAt(const GridViewport& viewport, double percent);
std::int32_t LeftAt(const GridViewport& viewport, double percent);

}  // namespace pricedown
