// Measures the item class form on classes of growing size.
// The form is made on views that show nothing; its window is not measured here.
#pragma once

#include <string>

#include "bench/measure.h"

namespace bench {

// Companies are made in `folder` once and kept there.
void MeasureEditor(const std::string& folder, Figures& figures);

}  // namespace bench
