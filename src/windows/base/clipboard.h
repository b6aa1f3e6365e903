// Text and tables on the clipboard.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "platform/copied_cells.h"

namespace pricedown::windows {

// False when another program keeps the clipboard open or memory is short.
bool CopyToClipboard(HWND owner, std::u16string_view text);
bool CopyToClipboard(HWND owner, const CopiedCells& cells);

// Empty when there is no text.
std::u16string ClipboardText(HWND owner);

}  // namespace pricedown::windows
