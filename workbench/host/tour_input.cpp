// Posts input messages, as the system would for keys and mouse.
// Modifier keys cannot be posted; the tour does without them.
#include "workbench/host/tour_input.h"

#include <commctrl.h>

#include "platform/error.h"

namespace workbench {

HWND RequireWindow(HWND window) {
  if (window == nullptr) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::Unspecified, u"没有所需的窗口。",
                                     u"Tour");
  }
  return window;
}

void PostKey(HWND window, WPARAM key) {
  PostMessageW(RequireWindow(window), WM_KEYDOWN, key, 1);
  PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

void PostText(HWND window, const wchar_t* text) {
  for (RequireWindow(window); *text != L'\0'; ++text) PostMessageW(window, WM_CHAR, *text, 1);
}

void PressButton(HWND toolBar, int index) {
  RECT area{};
  SendMessageW(RequireWindow(toolBar), TB_GETITEMRECT, static_cast<WPARAM>(index),
               reinterpret_cast<LPARAM>(&area));
  const LPARAM point = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
  PostMessageW(toolBar, WM_LBUTTONDOWN, MK_LBUTTON, point);
  PostMessageW(toolBar, WM_LBUTTONUP, 0, point);
}

void PressBoxButton(int button) {
  const HWND box = RequireWindow(GetActiveWindow());
  PostMessageW(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
               reinterpret_cast<LPARAM>(RequireWindow(GetDlgItem(box, button))));
}

}  // namespace workbench
