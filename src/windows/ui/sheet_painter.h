// Paints the visible part of the sheet: titles, cells, grid lines, selection.
// Where things are is sheet_geometry.h; what the sheet holds is the core's.
#pragma once

#include <windows.h>

#include "browser/sheet.h"
#include "windows/ui/dpi.h"
#include "windows/ui/sheet_geometry.h"

namespace pricedown::windows {

struct SheetScene {
  SheetScene(const Sheet* shown, const SheetGeometry& theGeometry, const SheetSelection& selected)
      : sheet(shown), geometry(theGeometry), selection(selected) {}

  const Sheet* sheet;  // null paints an empty grid
  const SheetGeometry& geometry;
  const SheetSelection& selection;
  std::int32_t topRow = 1;
  int left = 0;  // scrolled out of sight, pixels
  SIZE window{};
  HFONT font = nullptr;
  Dpi dpi;
  bool focused = false;
};

// Rows without items show their grid lines, so that an empty sheet still looks like one.
void PaintSheet(HDC context, const SheetScene& scene, const RECT& area);

// Where a cell is in the window; may be outside of it.
RECT CellArea(const SheetScene& scene, std::int32_t column, std::int32_t row);

}  // namespace pricedown::windows
