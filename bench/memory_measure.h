// Peak memory of the largest operations beside what they hold.
#pragma once

#include <string>

namespace bench {

// Prints a table of its own, in megabytes: the peak above the memory before the operation, the
// same for the suite's answer alone, what the library adds, the texts that it holds, the goal of
// 1.5 times these and 16 bytes a cell, and what is kept after leaving. Natively only: under Wine
// the memory of the system is part of the process.
void MeasureMemory(const std::string& folder);

}  // namespace bench
