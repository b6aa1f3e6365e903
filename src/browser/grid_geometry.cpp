// Edges of the columns and height of the rows, in pixels of one resolution.
#include "browser/grid_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "platform/geometry.h"

namespace pricedown {
namespace {

// Above and below the text together, the grid line included.
constexpr int kRowMargin = 2;
constexpr int kTitleMargin = 4;
constexpr double kMaximumPixels = 30000;

int Pixels(double size) {
  return static_cast<int>(std::ceil(std::clamp(size, 0.0, kMaximumPixels)));
}

}  // namespace

int ColumnPixels(double widthUnits, int dpi) {
  const double pixels = widthUnits * kTwipsPerWidthUnit * dpi / kTwipsPerInch;
  return static_cast<int>(std::lround(std::clamp(pixels, 0.0, kMaximumPixels)));
}

double ColumnWidthUnits(int pixels, int dpi) {
  return 1.0 * std::max(pixels, 0) * kTwipsPerInch /
         (dpi * static_cast<double>(kTwipsPerWidthUnit));
}

void GridGeometry::Update(const Grid& grid, int dpi, int lineHeight) {
  edges_.assign(1, 0);
  for (std::int32_t column = 1; column <= grid.MaxColumns(); ++column) {
    edges_.push_back(edges_.back() + ColumnPixels(grid.ColumnWidth(column), dpi));
  }
  titleHeight_ = std::max(Pixels(grid.TitleHeight()), lineHeight + kTitleMargin);
  rowHeight_ = std::max(Pixels(grid.RowHeight()), lineHeight + kRowMargin);
}

std::int32_t GridGeometry::WholeRows(int windowHeight) const {
  return std::max((windowHeight - titleHeight_) / rowHeight_, 1);
}

std::int32_t GridGeometry::ColumnAt(int x) const {
  if (x < 0 || x >= Width()) return 0;
  const auto edge = std::upper_bound(edges_.begin(), edges_.end(), x);
  return static_cast<std::int32_t>(edge - edges_.begin());
}

std::int32_t GridGeometry::NearestColumn(int x) const {
  if (Columns() == 0) return 0;
  if (x < 0) return 1;
  const std::int32_t column = ColumnAt(x);
  return column == 0 ? Columns() : column;
}

std::int32_t GridGeometry::EdgeAt(int x, int reach) const {
  for (std::int32_t column = Columns(); column >= 1; --column) {
    if (std::abs(Right(column) - x) <= reach) return column;
  }
  return 0;
}

}  // namespace pricedown
