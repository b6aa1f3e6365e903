// The images in front of a list's rows: ticks in the size of the resolution. They also set the
// height of the rows.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "windows/base/dpi.h"

namespace workbench {

// Two images, unticked and ticked, as high as a row. The caller owns the list; null when out of
// memory.
HIMAGELIST MakeTickImages(HWND window, pricedown::windows::Dpi dpi, int rowHeight);

// A transparent image that only sets the row height.
HIMAGELIST MakeEmptyImages(int rowHeight);

}  // namespace workbench
