// Measures the item class form on classes of growing size.
#pragma once

#include <string>

#include "bench/measure.h"

namespace bench {

// Companies are created in `folder` once and kept there.
void MeasureEditor(const std::string& folder, Figures& figures);

}  // namespace bench
