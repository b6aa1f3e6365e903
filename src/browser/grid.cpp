// The cells' texts in one arena, and their numbers and locks by column.
#include "browser/grid.h"

#include <algorithm>
#include <new>
#include <utility>

namespace pricedown {
Grid::Grid(std::int32_t columns)
    : maxColumns_(std::max(columns, 1)),
      titles_(static_cast<std::size_t>(maxColumns_)),
      widths_(static_cast<std::size_t>(maxColumns_), kDefaultColumnWidth),
      numbers_(static_cast<std::size_t>(maxColumns_)) {}

void Grid::SetMaxRows(std::int32_t rows) {
  rows = std::max(rows, 0);
  const auto columns = static_cast<std::size_t>(maxColumns_);
  if (static_cast<std::size_t>(rows) > cells_.max_size() / columns) {
    throw std::bad_alloc();
  }
  cells_.resize(static_cast<std::size_t>(rows) * columns);
  if (rows == 0) {
    cells_.shrink_to_fit();
    texts_.Clear();
    lockedColumns_ = 0;
  }
  for (NumberCells& numbers : numbers_) numbers.rows = std::min(numbers.rows, rows);
  maxRows_ = rows;
  NotifyChanged();
}

bool Grid::Inside(std::int32_t column, std::int32_t row) const {
  return column >= 1 && column <= maxColumns_ && row >= 1 && row <= maxRows_;
}

std::size_t Grid::CellIndex(std::int32_t column, std::int32_t row) const {
  return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(maxColumns_) +
         static_cast<std::size_t>(column - 1);
}

std::u16string_view Grid::Text(std::int32_t column, std::int32_t row) const {
  if (row == kTitleRow && column >= 1 && column <= maxColumns_) {
    return titles_[static_cast<std::size_t>(column - 1)];
  }
  return Inside(column, row) ? cells_[CellIndex(column, row)] : std::u16string_view();
}

void Grid::SetText(std::int32_t column, std::int32_t row, std::u16string_view text) {
  if (row == kTitleRow && column >= 1 && column <= maxColumns_) {
    titles_[static_cast<std::size_t>(column - 1)] = text;
  } else if (Inside(column, row)) {
    cells_[CellIndex(column, row)] = texts_.Keep(text);
  } else {
    return;
  }
  NotifyChanged();
}

void Grid::SetRowTexts(std::int32_t row, std::span<const std::u16string_view> texts) {
  if (!Inside(maxColumns_, row) || std::cmp_greater(texts.size(), maxColumns_)) return;
  std::u16string_view* cell = &cells_[CellIndex(1, row)];
  for (const std::u16string_view text : texts) *cell++ = texts_.Keep(text);
  NotifyChanged();
}

std::optional<double> Grid::UpperBound(std::int32_t column, std::int32_t row) const {
  if (!Inside(column, row)) return std::nullopt;
  const NumberCells& numbers = numbers_[static_cast<std::size_t>(column - 1)];
  return row <= numbers.rows ? std::optional(numbers.bound) : std::nullopt;
}

void Grid::SetUpperBound(std::int32_t column, std::int32_t lastRow, double bound) {
  if (column < 1 || column > maxColumns_) return;
  numbers_[static_cast<std::size_t>(column - 1)] = {std::min(lastRow, maxRows_), bound};
}

void Grid::LockColumns(std::int32_t lastColumn) {
  if (maxRows_ == 0) return;
  lockedColumns_ = std::max(lockedColumns_, lastColumn);
  NotifyChanged();
}

bool Grid::IsLocked(std::int32_t column, std::int32_t row) const {
  return Inside(column, row) && column <= lockedColumns_;
}

void Grid::ClearNumbers(const CellRange& range) {
  bool cleared = false;
  for (std::int32_t row = std::max(range.row, 1); row <= std::min(range.row2, maxRows_); ++row) {
    for (std::int32_t column = range.column; column <= range.column2; ++column) {
      if (!IsEditable(column, row) || Text(column, row).empty()) continue;
      cells_[CellIndex(column, row)] = {};
      cleared = true;
    }
  }
  if (cleared) NotifyChanged();
}

double Grid::ColumnWidth(std::int32_t column) const {
  if (column < 1 || column > maxColumns_) return 0;
  return widths_[static_cast<std::size_t>(column - 1)];
}

void Grid::SetColumnWidth(std::int32_t column, double width) {
  if (column < 1 || column > maxColumns_) return;
  widths_[static_cast<std::size_t>(column - 1)] = std::max(width, 0.0);
  NotifyMetricsChanged();
}

void Grid::SetTitleHeight(double pixels) { SetHeight(titleHeight_, pixels); }

void Grid::SetRowHeight(double pixels) { SetHeight(rowHeight_, pixels); }

void Grid::SetHeight(double& height, double pixels) {
  const double wanted = std::max(pixels, 0.0);
  if (height == wanted) return;
  height = wanted;
  NotifyMetricsChanged();
}

void Grid::SetFont(const Font& font) {
  if (font_ == font) return;
  font_ = font;
  NotifyMetricsChanged();
}

void Grid::SetRedraw(bool redraw) {
  redraw_ = redraw;
  NotifyPending();
}

void Grid::NotifyChanged() {
  changed_ = true;
  NotifyPending();
}

void Grid::NotifyMetricsChanged() {
  metricsChanged_ = true;
  NotifyPending();
}

void Grid::NotifyPending() {
  if (!redraw_) return;
  const bool changed = std::exchange(changed_, false);
  const bool metricsChanged = std::exchange(metricsChanged_, false);
  if (view_ == nullptr) return;
  if (changed) view_->GridChanged();
  if (metricsChanged && view_ != nullptr) view_->GridMetricsChanged();
}

}  // namespace pricedown
