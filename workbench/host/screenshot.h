// Pictures of the screen as PNG files, other windows in front included.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

// Writes the part of the screen that `window` covers. Throws AutomationError.
void SaveScreenshot(HWND window, const std::wstring& path);

}  // namespace workbench
