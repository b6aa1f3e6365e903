// Failures of the system's functions that a loaded library imports: each call of one kind counted,
// any one of them refused. The library's code is not touched, only its table of imports.
#pragma once

#include <windows.h>

namespace pricedown::testing {

enum class FaultKind {
  Windows,   // windows, their classes, menus, message boxes
  Boundary,  // texts, arrays, blocks and error objects that are passed over COM
  Memory,    // the library's own
  Drawing    // fonts, bitmaps, contexts, regions, icons, global memory
};

// Only one at a time, and only on one thread.
class ImportFaults {
 public:
  // Throws std::runtime_error when the library imports nothing of that kind.
  explicit ImportFaults(HMODULE library);
  // Requires: the library is still loaded.
  ~ImportFaults();
  ImportFaults(const ImportFaults&) = delete;
  ImportFaults& operator=(const ImportFaults&) = delete;

  // The n-th call from now on fails, once, as for want of memory; with 0 they are only counted.
  void Fail(FaultKind kind, int n);
  // Calls of that kind since then; counting has ended. Harmless when called again.
  int Stop();
};

}  // namespace pricedown::testing
