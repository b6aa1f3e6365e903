// Posts input messages, as the system would for keys and mouse.
// Modifier keys cannot be posted; the tour does without them.
#include "workbench/host/tour_input.h"

#include <commctrl.h>

#include <array>

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
  // A box with one button may call it by the other number.
  if (button == IDOK && GetDlgItem(box, IDOK) == nullptr) button = IDCANCEL;
  PostMessageW(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
               reinterpret_cast<LPARAM>(RequireWindow(GetDlgItem(box, button))));
}

std::wstring BoxText() {
  constexpr int kTextOfBox = 0xFFFF;
  std::array<wchar_t, 256> text{};
  GetWindowTextW(RequireWindow(GetDlgItem(RequireWindow(GetActiveWindow()), kTextOfBox)),
                 text.data(), static_cast<int>(text.size()));
  return text.data();
}

namespace {

void ClickAt(POINT onScreen, DWORD down, DWORD up) {
  SetCursorPos(onScreen.x, onScreen.y);
  std::array<INPUT, 2> inputs{};
  inputs[0].type = inputs[1].type = INPUT_MOUSE;
  inputs[0].mi.dwFlags = down;
  inputs[1].mi.dwFlags = up;
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

void RightClick(HWND window, POINT point) {
  ClientToScreen(RequireWindow(window), &point);
  ClickAt(point, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP);
}

void PressMenuLine(int line) {
  constexpr UINT kGetMenuOfWindow = 0x01E1;  // MN_GETHMENU
  const HWND window = RequireWindow(FindWindowW(L"#32768", nullptr));
  const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, kGetMenuOfWindow, 0, 0));
  RECT area{};
  GetMenuItemRect(nullptr, menu, static_cast<UINT>(line), &area);
  ClickAt({(area.left + area.right) / 2, (area.top + area.bottom) / 2}, MOUSEEVENTF_LEFTDOWN,
          MOUSEEVENTF_LEFTUP);
}

}  // namespace workbench
