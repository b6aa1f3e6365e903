// Windows as another resolution would have left them: large fonts and buttons, no pictures, other
// heights.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "windows/base/dpi.h"

namespace pricedown::testing {

// Of each window its height, that of its font and, for a tool strip, those of its buttons and their
// pictures.
inline std::vector<LONG> HeightsOf(const std::vector<HWND>& windows) {
  std::vector<LONG> heights;
  for (const HWND window : windows) {
    RECT area{};
    GetWindowRect(window, &area);
    heights.push_back(area.bottom - area.top);
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof font, &font);
    heights.push_back(font.lfHeight);
    heights.push_back(HIWORD(SendMessageW(window, TB_GETBUTTONSIZE, 0, 0)));
    int width = 0;
    int height = 0;
    const LRESULT pictures = SendMessageW(window, TB_GETIMAGELIST, 0, 0);
    ImageList_GetIconSize(reinterpret_cast<HIMAGELIST>(pictures), &width, &height);
    heights.push_back(height);
  }
  return heights;
}

// The fonts live as long as the object.
class OtherResolution {
 public:
  explicit OtherResolution(const std::vector<HWND>& windows) {
    for (const HWND window : windows) {
      SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
      SendMessageW(window, TB_SETBUTTONSIZE, 0, MAKELPARAM(70, 70));
      SendMessageW(window, TB_SETIMAGELIST, 0, 0);
      SetWindowPos(window, nullptr, 0, 0, 30, 7, SWP_NOMOVE | SWP_NOZORDER);
    }
  }
  ~OtherResolution() { DeleteObject(font_); }
  OtherResolution(const OtherResolution&) = delete;
  OtherResolution& operator=(const OtherResolution&) = delete;

  // As the system does, which suggests the place that the window has.
  static void SendChange(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    const auto dpi = static_cast<WORD>(windows::Dpi::Of(window).Value());
    SendMessageW(window, windows::kDpiChanged, MAKEWPARAM(dpi, dpi),
                 reinterpret_cast<LPARAM>(&place));
  }

 private:
  HFONT font_ =
      CreateFontW(-60, 0, 0, 0, FW_NORMAL, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, L"Tahoma");
};

}  // namespace pricedown::testing
