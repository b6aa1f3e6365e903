// Where columns and rows of the grid are, in pixels: pure arithmetic.
// Horizontal positions count from the grid's left edge, before scrolling; rows are all as high.
#pragma once

#include <cstdint>
#include <vector>

#include "browser/grid.h"

namespace pricedown::windows {

class GridGeometry {
 public:
  // `lineHeight` is that of the cells' font; no row gets lower than it needs.
  void Update(const Grid& grid, int dpi, int lineHeight);

  // No columns.
  void Clear() { edges_.resize(1); }

  std::int32_t Columns() const { return static_cast<std::int32_t>(edges_.size()) - 1; }
  // Requires: 1 <= column <= Columns().
  int Left(std::int32_t column) const { return edges_[static_cast<std::size_t>(column) - 1]; }
  int Right(std::int32_t column) const { return edges_[static_cast<std::size_t>(column)]; }
  int Width() const { return edges_.back(); }
  int TitleHeight() const { return titleHeight_; }
  int RowHeight() const { return rowHeight_; }

  // Whole rows below the titles in a window of that height; at least 1.
  std::int32_t WholeRows(int windowHeight) const;
  // The column at `x`, 0 for none.
  std::int32_t ColumnAt(int x) const;
  // The nearest column to `x`; 0 only without columns.
  std::int32_t NearestColumn(int x) const;
  // The column whose right edge is within `reach` of `x`, 0 for none. Of several it is the last
  // one, so that a column without width can be pulled open.
  std::int32_t EdgeAt(int x, int reach) const;

 private:
  std::vector<int> edges_{0};  // the left edge of the first column, then all right edges
  int titleHeight_ = 24;
  int rowHeight_ = 19;
};

// A column's width in pixels as the grid counts it, and back.
int ColumnPixels(double widthUnits, int dpi);
double ColumnWidthUnits(int pixels, int dpi);

// The selected cells: the current one and the corner where the block began.
struct GridSelection {
  std::int32_t column = 1;
  std::int32_t row = 1;
  std::int32_t anchorColumn = 1;
  std::int32_t anchorRow = 1;

  CellRange Range() const;
  bool IsBlock() const { return column != anchorColumn || row != anchorRow; }
  // Moves the current cell; the block grows when `extend`, else it is that cell alone. The
  // position is moved into the grid.
  void MoveTo(std::int32_t newColumn, std::int32_t newRow, bool extend, const Grid& grid);
  bool operator==(const GridSelection&) const = default;
};

}  // namespace pricedown::windows
