// Where the grid's columns and rows are, in pixels. Horizontal positions count from the grid's left
// edge, before scrolling; all rows have the same height.
#pragma once

#include <cstdint>
#include <vector>

#include "browser/grid.h"

namespace pricedown {

class GridGeometry {
 public:
  // `lineHeight` is that of the cells' font; rows and titles are at least as high as it needs.
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
  // The column whose right edge is within `reach` of `x`, 0 for none; the last of several, so that
  // a column without width can be pulled open.
  std::int32_t EdgeAt(int x, int reach) const;

 private:
  std::vector<int> edges_{0};  // the left edge of the first column, then all right edges
  int titleHeight_ = 24;
  int rowHeight_ = 19;
};

// A column's width in pixels, and back.
int ColumnPixels(double widthUnits, int dpi);
double ColumnWidthUnits(int pixels, int dpi);

}  // namespace pricedown
