// Measures printing on lists of growing size, up to the pages as draw commands.
#pragma once

#include <string>

#include "bench/measure.h"

namespace bench {

// Needs no company and leaves the folder empty.
void MeasurePrinting(const std::string& folder, Figures& figures);

}  // namespace bench
