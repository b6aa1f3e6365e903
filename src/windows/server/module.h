// The one struct that outlives every control: the module's handle and the process-wide values.
#pragma once

#include <windows.h>

#include <memory>

#include "env/process_state.h"
#include "windows/com/com_object_factory.h"
#include "windows/editor/item_class_dialog.h"

namespace pricedown::windows {

struct Module {
  HINSTANCE instance = nullptr;
  ProcessState state;
  ComObjectFactory factory;
  // Owned by the controls that have used it.
  std::weak_ptr<ItemClassDialog> editor;
};

// Requires: called on the user-interface thread, except for the handle.
Module& TheModule();

// The name of the program's file without folder and extension. Throws AutomationError.
std::u16string ProgramName();

}  // namespace pricedown::windows
