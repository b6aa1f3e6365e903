// The table that a command has copied, as another program reads it from the clipboard.
#pragma once

#include <windows.h>

#include <string>

namespace pricedown::testing {

// From "<table>" to its end, in UTF-8; empty when there is none.
inline std::string ClipboardTable(HWND owner) {
  std::string table;
  if (OpenClipboard(owner) == FALSE) return table;
  const HANDLE data = GetClipboardData(RegisterClipboardFormatW(L"HTML Format"));
  if (data != nullptr) {
    const std::string html(static_cast<const char*>(GlobalLock(data)));
    GlobalUnlock(data);
    const std::size_t start = html.find("<table>");
    if (start != std::string::npos) table = html.substr(start, html.find("</table>") - start);
  }
  CloseClipboard();
  return table;
}

}  // namespace pricedown::testing
