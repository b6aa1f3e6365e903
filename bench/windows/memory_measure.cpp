// Memory is measured natively only.
#include "bench/memory_measure.h"

namespace bench {

void MeasureMemory(const std::string&) {}

}  // namespace bench
