// What this process holds of the system, counted, so that a test can say that nothing grows. It
// frees nothing.
#pragma once

#include <cstddef>

namespace pricedown::testing {

struct ProcessResources {
  long handles = 0;      // of the kernel
  long gdiObjects = 0;   // pens, brushes, fonts, bitmaps, regions, contexts
  long userObjects = 0;  // windows, menus
  long memory = 0;       // bytes in use on all heaps of the process
};

// Runs pending messages first. Throws std::runtime_error where the system does not tell.
ProcessResources ResourcesNow();

}  // namespace pricedown::testing
