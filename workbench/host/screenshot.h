// Pictures of the screen as PNG files.
// They show what is really on the screen, other windows in front included.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

// Writes the part of the screen that `window` covers. Throws AutomationError.
void SaveScreenshot(HWND window, const std::wstring& path);

}  // namespace workbench
