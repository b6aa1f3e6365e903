// Measures making whole controls, and showing one on companies of growing size.
// What the user does afterwards is measured elsewhere.
#pragma once

#include <string>

#include "bench/measure.h"

namespace bench {

// Companies are made in `folder` once and kept there.
void MeasureControl(const std::string& folder, Figures& figures);

}  // namespace bench
