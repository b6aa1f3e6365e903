// The one instance of the counts.
// Who counts is com_class.h and class_factory.h.
#include "windows/com/module_counts.h"

namespace pricedown::windows {

ModuleCounts& Counts() {
  static ModuleCounts counts;
  return counts;
}

}  // namespace pricedown::windows
