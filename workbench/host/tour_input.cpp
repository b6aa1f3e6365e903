// Posts input messages, as the system would for keys and mouse.
// Modifier keys cannot be posted; they are pressed at the keyboard itself.
#include "workbench/host/tour_input.h"

#include <commctrl.h>

#include <array>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include "platform/error.h"
#include "windows/com/wide_text.h"
#include "workbench/pickers/picker_ids.h"

namespace workbench {

void Require(bool condition, std::u16string_view otherwise) {
  if (condition) return;
  throw pricedown::AutomationError(pricedown::ErrorNumber::Unspecified, std::u16string(otherwise),
                                   u"Tour");
}

HWND RequireWindow(HWND window) {
  Require(window != nullptr, u"没有所需的窗口。");
  return window;
}

HWND RequireReady(HWND window) {
  Require(IsWindowEnabled(RequireWindow(window)) != FALSE, u"窗口正在等待另一个窗口。");
  return window;
}

HWND RequireForm() {
  const HWND form = RequireReady(FindWindowW(L"PriceDown.ItemClass", nullptr));
  // As the mouse asks: a form whose command has not returned ignores others.
  SendMessageW(form, WM_SETCURSOR, reinterpret_cast<WPARAM>(form),
               MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
  Require(GetCursor() != LoadCursorW(nullptr, IDC_WAIT), u"窗口正忙。");
  return form;
}

void PostKey(HWND window, WPARAM key) {
  PostMessageW(RequireWindow(window), WM_KEYDOWN, key, 1);
  PostMessageW(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
}

namespace {

void PressKeys(std::initializer_list<WORD> keys) {
  std::vector<INPUT> inputs;
  const auto add = [&](WORD key, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = flags;
    inputs.push_back(input);
  };
  for (const WORD key : keys) add(key, 0);
  for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) add(*key, KEYEVENTF_KEYUP);
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

void Press(WORD key) { PressKeys({key}); }

void PressWithControl(WORD key, bool shift) {
  if (shift) {
    PressKeys({VK_CONTROL, VK_SHIFT, key});
  } else {
    PressKeys({VK_CONTROL, key});
  }
}

void PressWithShift(WORD key) { PressKeys({VK_SHIFT, key}); }

void PressText(const wchar_t* text) {
  for (; *text != L'\0'; ++text) {
    std::array<INPUT, 2> inputs{};
    for (INPUT& input : inputs) {
      input.type = INPUT_KEYBOARD;
      input.ki.wScan = *text;
      input.ki.dwFlags = KEYEVENTF_UNICODE;
    }
    inputs[1].ki.dwFlags |= KEYEVENTF_KEYUP;
    SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
  }
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

namespace {

// The active dialog, identified by a child that only it has.
HWND ActiveDialog(int childId) {
  const HWND dialog = RequireWindow(GetActiveWindow());
  RequireWindow(GetDlgItem(dialog, childId));
  return dialog;
}

constexpr int kTextOfBox = 0xFFFF;

std::wstring ChildText(HWND dialog, int childId) {
  std::array<wchar_t, 256> text{};
  GetDlgItemTextW(dialog, childId, text.data(), static_cast<int>(text.size()));
  return text.data();
}

}  // namespace

void RequireBox(std::wstring_view text) {
  const std::wstring shown = ChildText(ActiveDialog(kTextOfBox), kTextOfBox);
  Require(shown.starts_with(text), pricedown::windows::FromWide(shown));
}

void PressBoxButton(int button) {
  const HWND box = ActiveDialog(kTextOfBox);
  // A box with a single button may use either id.
  if (button == IDOK && GetDlgItem(box, IDOK) == nullptr) button = IDCANCEL;
  PostMessageW(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
               reinterpret_cast<LPARAM>(RequireWindow(GetDlgItem(box, button))));
}

void RequirePicker(std::wstring_view found) {
  const std::wstring shown = ChildText(ActiveDialog(picker_ids::kFound), picker_ids::kFound);
  Require(shown.starts_with(found), pricedown::windows::FromWide(shown));
}

namespace {

// One call, so that no real mouse movement comes in between.
void ClickAt(POINT onScreen, DWORD down, DWORD up) {
  constexpr LONG kWholeScreen = 65536;
  const auto across = [](LONG place, int size) { return (place * kWholeScreen + size / 2) / size; };
  std::array<INPUT, 3> inputs{};
  for (INPUT& input : inputs) {
    input.type = INPUT_MOUSE;
    input.mi.dx = across(onScreen.x, GetSystemMetrics(SM_CXSCREEN));
    input.mi.dy = across(onScreen.y, GetSystemMetrics(SM_CYSCREEN));
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
  }
  inputs[1].mi.dwFlags |= down;
  inputs[2].mi.dwFlags |= up;
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace

void RightClick(HWND window, POINT point) {
  ClientToScreen(RequireWindow(window), &point);
  ClickAt(point, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP);
}

HWND RequireMenu() {
  const HWND window = RequireWindow(FindWindowW(L"#32768", nullptr));
  Require(IsWindowVisible(window) != FALSE, u"菜单还没有打开。");
  return window;
}

void PressMenuLine(int line) {
  constexpr UINT kGetMenuOfWindow = 0x01E1;  // MN_GETHMENU
  const HWND window = RequireMenu();
  const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, kGetMenuOfWindow, 0, 0));
  RECT area{};
  GetMenuItemRect(nullptr, menu, static_cast<UINT>(line), &area);
  ClickAt({(area.left + area.right) / 2, (area.top + area.bottom) / 2}, MOUSEEVENTF_LEFTDOWN,
          MOUSEEVENTF_LEFTUP);
}

}  // namespace workbench
