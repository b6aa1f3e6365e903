// Paints the visible part of the grid: titles, cells, grid lines, selection.
#pragma once

#include <windows.h>

#include "browser/grid_selection.h"
#include "browser/grid_viewport.h"
#include "windows/base/dpi.h"

namespace pricedown::windows {

// Between a cell's edge and its text, in pixels at 96 dpi.
inline constexpr int kCellTextMargin = 4;

struct GridScene {
  const Grid* grid = nullptr;  // null paints an empty grid
  const GridViewport& viewport;
  const GridSelection& selection;
  SIZE window{};
  HFONT font = nullptr;
  Dpi dpi;
  bool focused = false;
  bool marked = false;  // the current cell stands out without the focus, too
};

// Rows without items show their grid lines, so that an empty grid still looks like one.
void PaintGrid(HDC context, const GridScene& scene, const RECT& area);

}  // namespace pricedown::windows
