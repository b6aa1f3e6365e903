// The cells of the item grid: texts in one arena, attributes and bounds as ranges.
// Reading a cell costs what the number of ranges is, not what the number of rows is.
#include "browser/grid.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace pricedown {
namespace {

bool IsEmpty(const CellRange& range) {
  return range.column > range.column2 || range.row > range.row2;
}

bool Covers(const CellRange& outer, const CellRange& inner) {
  return outer.Contains(inner.column, inner.row) && outer.Contains(inner.column2, inner.row2);
}

}  // namespace

Grid::Grid(std::int32_t columns)
    : maxColumns_(std::max(columns, 1)),
      titles_(static_cast<std::size_t>(maxColumns_)),
      widths_(static_cast<std::size_t>(maxColumns_), kDefaultColumnWidth) {}

void Grid::SetMaxRows(std::int32_t rows) {
  rows = std::max(rows, 0);
  const auto columns = static_cast<std::size_t>(maxColumns_);
  if (static_cast<std::size_t>(rows) > cells_.max_size() / columns) {
    throw std::length_error("too many rows");
  }
  cells_.resize(static_cast<std::size_t>(rows) * columns);
  if (rows == 0) texts_.clear();
  if (rows < maxRows_) {
    std::erase_if(attributes_, [&](const Attribute& a) { return a.range.row > rows; });
    for (Attribute& attribute : attributes_) {
      attribute.range.row2 = std::min(attribute.range.row2, rows);
    }
    std::erase_if(bounds_, [&](const Bound& b) { return b.firstRow > rows; });
    for (Bound& bound : bounds_) bound.lastRow = std::min(bound.lastRow, rows);
  }
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
  if (!Inside(column, row)) return {};
  const TextSpan& span = cells_[CellIndex(column, row)];
  return std::u16string_view(texts_).substr(span.offset, span.length);
}

void Grid::SetText(std::int32_t column, std::int32_t row, std::u16string_view text) {
  if (row == kTitleRow && column >= 1 && column <= maxColumns_) {
    titles_[static_cast<std::size_t>(column - 1)] = text;
  } else if (Inside(column, row)) {
    const std::size_t offset = texts_.size();
    texts_.append(text);
    cells_[CellIndex(column, row)] = {offset, texts_.size() - offset};
  } else {
    return;
  }
  NotifyChanged();
}

std::optional<double> Grid::UpperBound(std::int32_t column, std::int32_t row) const {
  const auto found = std::find_if(bounds_.rbegin(), bounds_.rend(), [&](const Bound& bound) {
    return bound.column == column && row >= bound.firstRow && row <= bound.lastRow;
  });
  if (found == bounds_.rend()) return std::nullopt;
  return found->bound;
}

void Grid::SetUpperBound(std::int32_t column, std::int32_t row, double bound) {
  if (!Inside(column, row)) return;
  if (!bounds_.empty()) {
    // Rows are bounded one after the other: one entry grows with them.
    Bound& last = bounds_.back();
    if (last.column == column && last.bound == bound && last.lastRow + 1 == row) {
      last.lastRow = row;
      return;
    }
  }
  if (UpperBound(column, row) == bound) return;
  bounds_.push_back({column, row, row, bound});
}

CellRange Grid::Target() const {
  CellRange target = block_;
  if (!blockMode_) {
    target.column2 = target.column;
    target.row2 = target.row;
  }
  if (target.column == kAll) {
    target.column = 1;
    target.column2 = maxColumns_;
  }
  if (target.row == kAll) {
    target.row = 1;
    target.row2 = maxRows_;
  }
  target.column = std::max(target.column, 1);
  target.row = std::max(target.row, 1);
  target.column2 = target.column2 == kAll ? maxColumns_ : std::min(target.column2, maxColumns_);
  target.row2 = target.row2 == kAll ? maxRows_ : std::min(target.row2, maxRows_);
  return target;
}

void Grid::LockBlock(bool locked) { AddAttribute({Target(), locked, std::nullopt}); }

void Grid::ColourBlock(std::uint32_t colour) { AddAttribute({Target(), std::nullopt, colour}); }

void Grid::AddAttribute(Attribute attribute) {
  if (IsEmpty(attribute.range)) return;
  std::erase_if(attributes_, [&](const Attribute& earlier) {
    return earlier.locked.has_value() == attribute.locked.has_value() &&
           Covers(attribute.range, earlier.range);
  });
  attributes_.push_back(attribute);
  NotifyChanged();
}

bool Grid::IsLocked(std::int32_t column, std::int32_t row) const {
  const auto found = std::find_if(attributes_.rbegin(), attributes_.rend(), [&](const auto& a) {
    return a.locked.has_value() && a.range.Contains(column, row);
  });
  return found != attributes_.rend() && *found->locked;
}

std::optional<std::uint32_t> Grid::Colour(std::int32_t column, std::int32_t row) const {
  const auto found = std::find_if(attributes_.rbegin(), attributes_.rend(), [&](const auto& a) {
    return a.colour.has_value() && a.range.Contains(column, row);
  });
  if (found == attributes_.rend()) return std::nullopt;
  return found->colour;
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

void Grid::SetRowHeight(std::int32_t row, double pixels) {
  if (row != kTitleRow && row != kAll) return;
  (row == kTitleRow ? titleHeight_ : rowHeight_) = std::max(pixels, 0.0);
  NotifyMetricsChanged();
}

void Grid::SetFont(const Font& font) {
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
