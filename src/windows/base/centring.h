// The place of a window over the one that owns it.
#pragma once

#include <windows.h>

#include <optional>

namespace pricedown::windows {

// The owner's area of the screen; nothing for null and for a minimised window.
std::optional<RECT> AreaOfOwner(HWND owner);

// Places `window` with that outer size over the middle of `owner`, or of the screen when there is
// no such area; wholly inside the work area of the owner's screen.
void CentreOver(HWND window, HWND owner, SIZE size);

}  // namespace pricedown::windows
