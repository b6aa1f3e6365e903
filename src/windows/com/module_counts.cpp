// The one instance of the counts.
#include "windows/com/module_counts.h"

namespace pricedown::windows {

ModuleCounts& Counts() {
  static ModuleCounts counts;
  return counts;
}

}  // namespace pricedown::windows
