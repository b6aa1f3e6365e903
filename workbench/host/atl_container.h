// The operating system's own control container, `AtlAxWin` of atl.dll.
#pragma once

#include <windows.h>

#include "windows/com/com_ptr.h"

namespace workbench {

// A container window in `parent` with the control of that ProgID inside. Throws AutomationError.
HWND CreateAtlContainer(HINSTANCE module, HWND parent, const wchar_t* progId);

// The control inside a container window; null when there is none.
pricedown::windows::ComPtr<IUnknown> ControlOf(HWND container);

}  // namespace workbench
