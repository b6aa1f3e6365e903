// Layout of the item class form: sizes in, named rectangles out.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "editor/form_view.h"
#include "platform/geometry.h"

namespace pricedown {

// Of a row of the item list, above and below its text together; pixels at 96 dpi.
inline constexpr std::int32_t kItemRowMargin = 5;

// What depends on fonts and texts; pixels.
struct FormMeasures {
  std::int32_t toolStripHeight = 0;
  std::int32_t toolStripWidth = 0;  // with all buttons visible
  std::int32_t lineHeight = 0;
  std::int32_t labelWidth = 0;  // of the longest label
};

struct FormPlaces {
  Rectangle toolStrip;
  Rectangle line;
  Rectangle headerFrame;
  Rectangle itemFrame;
  // In the order of kFormRows.
  std::array<Rectangle, kFormRows.size()> labels;
  std::array<Rectangle, kFormRows.size()> fields;
  Rectangle reserveLookup;
  Rectangle lossLookup;
  Rectangle members;
};

// All sizes are pixels at `dotsPerInch`.
FormPlaces PlaceForm(Size client, const FormMeasures& measures, std::int32_t dotsPerInch);

// Inner sizes: the least shows all buttons, labels and some rows; the first shows the item list's
// columns whole.
Size MinimumFormSize(const FormMeasures& measures, std::int32_t dotsPerInch);
Size FirstFormSize(const FormMeasures& measures, std::int32_t dotsPerInch);

}  // namespace pricedown
