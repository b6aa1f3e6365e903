// The one struct that outlives every control: the module's handle and what controls share.
#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "env/thread_state.h"
#include "windows/com/com_object_factory.h"
#include "windows/editor/item_class_dialog.h"

namespace pricedown::windows {

// What the controls of one thread share: the form and the suite's objects belong to that thread.
struct ThreadEntry {
  DWORD id = 0;
  FILETIME begun{};
  ThreadState state;
  // Owned by the controls that have used it.
  std::weak_ptr<ItemClassDialog> editor;
};

class Module {
 public:
  HINSTANCE instance = nullptr;
  ComObjectFactory factory;

  // The calling thread's; made by the first call on it, and kept until the module ends. Throws
  // std::bad_alloc.
  ThreadEntry& ThisThread();

 private:
  SRWLOCK lock_ = SRWLOCK_INIT;
  std::vector<std::unique_ptr<ThreadEntry>> threads_;
};

Module& TheModule();

// The name of the program's file without folder and extension. Throws AutomationError.
std::u16string ProgramName();

}  // namespace pricedown::windows
