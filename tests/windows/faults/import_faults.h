// Fails functions of the system that a loaded library imports: counts the calls of one kind and
// makes any one of them fail. Only the library's import table is patched.
#pragma once

#include <windows.h>

namespace pricedown::testing {

enum class FaultKind {
  Windows,   // windows, their classes, menus, message boxes
  Boundary,  // strings, arrays, memory and error objects passed over COM
  Memory,    // the library's own
  Drawing    // fonts, bitmaps, contexts, metafiles, regions, icons, global memory
};

// Only one at a time, and only on one thread.
class ImportFaults {
 public:
  // Throws std::runtime_error if the library does not import one of the functions.
  explicit ImportFaults(HMODULE library);
  // Requires: the library is still loaded.
  ~ImportFaults();
  ImportFaults(const ImportFaults&) = delete;
  ImportFaults& operator=(const ImportFaults&) = delete;

  // The n-th call from now on fails once, as when out of memory; with 0 calls are only counted.
  void Fail(FaultKind kind, int n);
  // Stops counting and returns the calls of that kind since Fail. May be called again.
  int Stop();
};

}  // namespace pricedown::testing
