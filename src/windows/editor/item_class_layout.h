// Where the parts of the item class form stand, as arithmetic on pixels.
// What they show is the form's; the window only moves them there.
#pragma once

#include <windows.h>

#include <array>
#include <cstddef>

#include "editor/form_view.h"
#include "windows/base/dpi.h"

namespace pricedown::windows {

// The fields from top to bottom; the reserve account stands above the loss account.
inline constexpr std::array kFormRows{FormField::ClassNumber, FormField::ClassName,
                                      FormField::ReserveAccount, FormField::LossAccount,
                                      FormField::Percentage};

// What depends on fonts and texts; pixels.
struct FormMeasures {
  int stripHeight = 0;
  int stripWidth = 0;  // with all buttons in sight
  int lineHeight = 0;
  int labelWidth = 0;  // of the longest label
};

struct FormPlaces {
  RECT strip;
  RECT line;
  RECT headerFrame;
  RECT itemFrame;
  // In the order of kFormRows.
  std::array<RECT, kFormRows.size()> labels;
  std::array<RECT, kFormRows.size()> fields;
  RECT reserveLookup;
  RECT lossLookup;
  RECT members;
};

FormPlaces PlaceForm(SIZE client, const FormMeasures& measures, Dpi dpi);

// Inner sizes: the least shows all buttons, labels and some rows; the first shows the item list's
// columns whole.
SIZE LeastFormSize(const FormMeasures& measures, Dpi dpi);
SIZE FirstFormSize(const FormMeasures& measures, Dpi dpi);

}  // namespace pricedown::windows
