// Which part of the grid is visible: the first row and the pixels scrolled out at the left.
// It keeps the window's two scroll bars in step and paints nothing.
#pragma once

#include <windows.h>

#include <cstdint>

#include "windows/grid/grid_geometry.h"

namespace pricedown::windows {

class GridScroll {
 public:
  std::int32_t TopRow() const { return topRow_; }
  int Left() const { return left_; }

  // Takes over sizes and the number of rows, and sets the bars. True when the visible part moved.
  bool Update(HWND window, const GridGeometry& geometry, std::int32_t rows);
  // As far as the grid goes. True when the visible part moved.
  bool ScrollTo(HWND window, std::int64_t topRow, std::int64_t left);
  // A message of a scroll bar, SB_VERT or SB_HORZ, with its code.
  bool OnBar(HWND window, int bar, int code);
  // Wheel turns in units of WHEEL_DELTA; small ones add up.
  bool OnWheel(HWND window, int delta, bool horizontal);
  // Scrolls as little as makes the cell visible.
  bool Reveal(HWND window, const GridGeometry& geometry, std::int32_t column, std::int32_t row);

 private:
  void SetBars(HWND window);

  std::int32_t topRow_ = 1;
  int left_ = 0;
  std::int32_t rows_ = 0;
  std::int32_t pageRows_ = 1;
  int width_ = 0;
  int pageWidth_ = 1;
  int columnStep_ = 1;
  int wheelRest_ = 0;
  bool updating_ = false;
};

}  // namespace pricedown::windows
