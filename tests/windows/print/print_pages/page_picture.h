// A page as the preview draws it, as a picture file.
#pragma once

#include <string>

#include "print/print_pages.h"
#include "windows/print/device_measurer.h"

namespace pricedown::testing {

// Writes a BMP file of the whole paper at that resolution. Throws AutomationError.
void WritePagePicture(const PrintPages& pages, std::int32_t number,
                      windows::DeviceMeasurer& measurer, int dotsPerInch, const std::string& file);

}  // namespace pricedown::testing
