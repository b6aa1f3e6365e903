// Paints the visible part of the grid: titles, cells, grid lines, selection.
// Where things are is grid_geometry.h; what the grid holds is the core's.
#pragma once

#include <windows.h>

#include "browser/grid.h"
#include "windows/base/dpi.h"
#include "windows/grid/grid_geometry.h"

namespace pricedown::windows {

struct GridScene {
  GridScene(const Grid* shown, const GridGeometry& theGeometry, const GridSelection& selected)
      : grid(shown), geometry(theGeometry), selection(selected) {}

  const Grid* grid;  // null paints an empty grid
  const GridGeometry& geometry;
  const GridSelection& selection;
  std::int32_t topRow = 1;
  int left = 0;  // scrolled out of sight, pixels
  SIZE window{};
  HFONT font = nullptr;
  Dpi dpi;
  bool focused = false;
};

// Rows without items show their grid lines, so that an empty grid still looks like one.
void PaintGrid(HDC context, const GridScene& scene, const RECT& area);

// Where a cell is in the window; may be outside of it.
RECT CellArea(const GridScene& scene, std::int32_t column, std::int32_t row);

}  // namespace pricedown::windows
