// Not measured here.
#include "bench/memory_measure.h"

namespace bench {

void MeasureMemory(const std::string&) {}

}  // namespace bench
