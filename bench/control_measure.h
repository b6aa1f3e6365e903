// Measures making whole controls, and showing one on companies of growing size.
#pragma once

#include <string>

#include "bench/measure.h"

namespace bench {

// Companies are created in `folder` once and kept there.
void MeasureControl(const std::string& folder, Figures& figures);

}  // namespace bench
