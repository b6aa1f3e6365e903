// What a window shows, as a short text that differs for different pictures.
#pragma once

#include <windows.h>

#include <string>

namespace pricedown::testing {

// Processes the thread's messages first. Size and hash of the client area's pixels above
// the control's status line, as "900x550 0123456789ABCDEF". Throws AutomationError.
std::u16string PictureOf(HWND window);

}  // namespace pricedown::testing
