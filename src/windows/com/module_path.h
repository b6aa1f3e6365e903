// Where a module's file is.
#pragma once

#include <windows.h>

#include <string>

namespace pricedown::windows {

// The full path of the module's file; null stands for the program. Throws AutomationError.
std::wstring ModulePath(HINSTANCE module);

}  // namespace pricedown::windows
