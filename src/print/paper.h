// The paper and its margins, as a printer or a page set-up describes them.
// Which printer that is, and what it cannot print on, is the device's matter.
#pragma once

#include <algorithm>

#include "print/page_units.h"

namespace pricedown {

// A4, 2 cm around, until a printer says otherwise.
struct Paper {
  Tenths width = 2100;
  Tenths height = 2970;
  PageBox margins{200, 200, 200, 200};

  // The other way round; each margin stays on its side of what is read.
  Paper Turned() const { return {height, width, margins}; }
  // What lies inside the margins; empty when they leave nothing.
  PageBox Inside() const {
    return {margins.left, margins.top, std::max(margins.left, width - margins.right),
            std::max(margins.top, height - margins.bottom)};
  }
  bool operator==(const Paper&) const = default;
};

}  // namespace pricedown
