// The visible part of the grid: its first row, the pixels scrolled out at the left, and which cell
// is where in the window.
#pragma once

#include <algorithm>
#include <cstdint>

#include "browser/grid_geometry.h"
#include "platform/geometry.h"
#include "platform/wheel_turns.h"

namespace pricedown {

// One step of a scroll bar, in either direction.
enum class ScrollStep { LineBack, LineForward, PageBack, PageForward, Start, End, Track };

// What is under a point of the window.
struct GridHit {
  std::int32_t edge = 0;    // the column whose right edge can be dragged there
  std::int32_t column = 0;  // 0 right of the last one
  std::int32_t row = 0;     // may lie outside the grid
  bool title = false;       // the column titles; `row` is above the first visible one
};

class GridViewport {
 public:
  // A line of the wheel that means a whole page.
  static constexpr int kWheelPage = -1;

  GridGeometry& Geometry() { return geometry_; }
  const GridGeometry& Geometry() const { return geometry_; }
  std::int32_t TopRow() const { return topRow_; }
  int Left() const { return left_; }
  // Sizes of the scroll bars' thumbs and ranges: rows and pixels.
  std::int32_t PageRows() const { return pageRows_; }
  int PageWidth() const { return pageWidth_; }
  std::int32_t Rows() const { return rows_; }
  // The ends of ScrollTo.
  std::int32_t LastTopRow() const { return std::max(rows_ - pageRows_, 0) + 1; }
  int LastLeft() const { return std::max(geometry_.Width() - pageWidth_, 0); }

  // Each of these returns whether the visible part moved.

  // After a change of the geometry, of the number of rows or of the window's size.
  bool Resize(Size window, std::int32_t rows);
  // To that row and pixel, as far as the grid goes.
  bool ScrollTo(std::int64_t topRow, std::int64_t left);
  // `track` is the thumb's position, from 0, for ScrollStep::Track.
  bool ScrollRows(ScrollStep step, std::int32_t track);
  bool ScrollColumns(ScrollStep step, int track);
  // A turn of the wheel in 1/120 of a notch, each notch of `lines`; small turns in one direction
  // add up.
  bool TurnWheel(int delta, int lines, bool horizontal);
  // As little as makes the cell visible.
  bool Reveal(std::int32_t column, std::int32_t row);

  // In the window; may lie outside of it.
  Rectangle CellArea(std::int32_t column, std::int32_t row) const;
  // `reach` is how near to an edge a drag begins.
  GridHit HitTest(int x, int y, int reach) const;
  std::int32_t RowAt(int y) const;

 private:
  GridGeometry geometry_;
  std::int32_t topRow_ = 1;
  int left_ = 0;
  std::int32_t rows_ = 0;
  std::int32_t pageRows_ = 1;
  int pageWidth_ = 1;
  WheelTurns rowTurns_;
  WheelTurns columnTurns_;
};

}  // namespace pricedown
