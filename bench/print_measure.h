// Measures printing on lists of growing size, up to the pages as draw commands.
// No device replays them: what a printer takes is not measured here.
#pragma once

#include <string>

#include "bench/measure.h"

namespace bench {

// Needs no company, so that nothing is made in the folder.
void MeasurePrinting(const std::string& folder, Figures& figures);

}  // namespace bench
