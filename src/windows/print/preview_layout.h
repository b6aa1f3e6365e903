// Where the children of the print preview stand; arithmetic in pixels only.
// What they show is preview_window's.
#pragma once

#include <windows.h>

#include "windows/base/dpi.h"

namespace pricedown::windows {

// What the children need, in pixels.
struct PreviewMeasures {
  SIZE documentBar{};
  SIZE viewBar{};
  int pageLabel = 0;  // widths
  int pageField = 0;
  int pageCount = 0;
  int zoomLabel = 0;
  SIZE zoom{};  // closed
  int lineHeight = 0;
};

struct PreviewPlaces {
  RECT documentBar{};
  RECT pageLabel{};
  RECT pageField{};
  RECT pageCount{};
  RECT zoomLabel{};
  RECT zoom{};
  RECT viewBar{};
  RECT line{};
  RECT pane{};
};

// All in one row, or sizes and closing in a second one where the window is too narrow for that.
PreviewPlaces PlacePreview(SIZE client, const PreviewMeasures& measures, Dpi dpi);
// Inner sizes: the smallest that shows every button, and that of the first showing.
SIZE LeastPreviewSize(const PreviewMeasures& measures, Dpi dpi);
SIZE FirstPreviewSize(const PreviewMeasures& measures, Dpi dpi);

}  // namespace pricedown::windows
