// Where the children of the print preview and of the progress window are, in pixels.
#pragma once

#include <cstdint>

#include "platform/geometry.h"

namespace pricedown {

// What the children need.
struct PreviewMeasures {
  Size documentBar;
  Size viewBar;
  std::int32_t pageLabel = 0;  // widths
  std::int32_t pageField = 0;
  std::int32_t pageCount = 0;
  std::int32_t zoomLabel = 0;
  Size zoom;  // closed
  std::int32_t lineHeight = 0;
};

struct PreviewPlaces {
  Rectangle documentBar;
  Rectangle pageLabel;
  Rectangle pageField;
  Rectangle pageCount;
  Rectangle zoomLabel;
  Rectangle zoom;  // with its open list
  Rectangle viewBar;
  Rectangle line;
  Rectangle pane;
};

// All in one row, or the zoom and the view bar in a second one where the window is too narrow.
PreviewPlaces PlacePreview(const Size& client, const PreviewMeasures& measures,
                           std::int32_t dotsPerInch);
// Inner sizes: the smallest that shows every button, and that of the first showing.
Size MinimumPreviewSize(const PreviewMeasures& measures, std::int32_t dotsPerInch);
Size FirstPreviewSize(const PreviewMeasures& measures, std::int32_t dotsPerInch);
// The outer size of the first showing: as wide as the owner, and as high unless that is too low.
Size PreviewSizeOver(const Size& first, const Size& owner, std::int32_t dotsPerInch);

struct ProgressPlaces {
  Size client;
  Rectangle text;
  Rectangle bar;
  Rectangle button;
};

ProgressPlaces PlaceProgress(std::int32_t dotsPerInch);

}  // namespace pricedown
