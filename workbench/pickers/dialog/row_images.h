// The pictures in front of a list's rows: ticks, in the size of the resolution, and with them the
// height of the rows. Which row has which is the list's.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "windows/base/dpi.h"

namespace workbench {

// Two pictures, without and with a tick, as high as a row. The caller owns the list; null without
// memory.
HIMAGELIST MakeTickImages(HWND window, pricedown::windows::Dpi dpi, int rowHeight);

// Nothing to see, but rows are as high as it.
HIMAGELIST MakeEmptyImages(int rowHeight);

}  // namespace workbench
