// Text on the clipboard, and the text of sheet cells for it.
// Who copies when is the windows' business.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "browser/sheet.h"

namespace pricedown::windows {

// The cells of a range: tabs between columns, a line break behind each row.
std::u16string TabbedText(const Sheet& sheet, const CellRange& range);

// False when another program keeps the clipboard or there is no memory.
bool CopyToClipboard(HWND owner, std::u16string_view text);

// Empty when there is no text.
std::u16string ClipboardText(HWND owner);

}  // namespace pricedown::windows
