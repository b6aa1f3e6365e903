// Counts the system resources of this process, so that a test can check for leaks.
#pragma once

#include <cstddef>

namespace pricedown::testing {

struct ProcessResources {
  long handles = 0;      // of the kernel
  long gdiObjects = 0;   // pens, brushes, fonts, bitmaps, regions, contexts
  long userObjects = 0;  // windows, menus
  long memory = 0;       // bytes in use on all heaps of the process
};

// Runs pending messages first. Throws std::runtime_error if the system does not report a count.
ProcessResources ResourcesNow();

}  // namespace pricedown::testing
