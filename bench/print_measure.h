// Measures printing on lists of growing size, up to the pages as draw commands.
// No device replays them: what a printer takes is not measured here.
#pragma once

namespace bench {

// Prints one line per measurement.
void MeasurePrinting();

}  // namespace bench
