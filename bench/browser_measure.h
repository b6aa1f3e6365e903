// Measures tree and grid: loading them, the click on a class, and the deletion of a class.
#pragma once

#include <string>

#include "bench/measure.h"

namespace bench {

// Companies are created in `folder` once and kept there.
void MeasureBrowser(const std::string& folder, Figures& figures);

}  // namespace bench
