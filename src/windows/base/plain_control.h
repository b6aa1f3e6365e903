// A control of the system with a place, a text and a font: labels and the progress bar.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "windows/base/bound_window.h"

namespace pricedown::windows {

class PlainControl final : public BoundWindow {
 public:
  PlainControl() = default;

  // A visible child of `parent`, unless `style` lacks WS_VISIBLE. Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, const wchar_t* className, int id, DWORD style,
              std::u16string_view text = {});
  // A hidden popup window over `owner`. Throws AutomationError.
  void CreatePopup(HWND owner, HINSTANCE module, const wchar_t* className, DWORD style);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

// Text, font and place of any window; a no-op for null.
std::u16string TextOf(HWND window);
void SetTextOf(HWND window, std::u16string_view text);
void SetFontOf(HWND window, HFONT font);
void SetPlaceOf(HWND window, const RECT& place);
// Its area in the coordinates of its parent.
RECT AreaInParent(HWND window);
// Whether the window is shown as far as it depends on itself; its parents may be hidden.
bool HasVisibleStyle(HWND window);

}  // namespace pricedown::windows
