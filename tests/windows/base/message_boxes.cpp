// A timer looks for boxes, because a box runs its own message loop.
#include "tests/windows/base/message_boxes.h"

#include <algorithm>
#include <array>

#include "tests/support/utf8.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

constexpr UINT kPeriod = 10;        // milliseconds
constexpr int kTextOfBox = 0xFFFF;  // the id of a message box's text

// Systems differ in the id of the picture.
HICON IconOf(HWND box) {
  HWND child = nullptr;
  while ((child = FindWindowExW(box, child, L"STATIC", nullptr)) != nullptr) {
    if ((GetWindowLongPtrW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON) continue;
    return reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
  }
  return nullptr;
}

std::vector<int> ButtonsOf(HWND box) {
  std::vector<int> buttons;
  for (const int id : {IDOK, IDCANCEL, IDYES, IDNO}) {
    if (IsWindowVisible(GetDlgItem(box, id)) != FALSE) buttons.push_back(id);
  }
  return buttons;
}

MessageBoxes* current = nullptr;

}  // namespace

MessageBoxes::MessageBoxes() : timer_(SetTimer(nullptr, 0, kPeriod, &OnTimer)) { current = this; }

MessageBoxes::~MessageBoxes() {
  KillTimer(nullptr, timer_);
  current = nullptr;
}

void CALLBACK MessageBoxes::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (current != nullptr) {
    EnumThreadWindows(GetCurrentThreadId(), &OnWindow, reinterpret_cast<LPARAM>(current));
  }
}

BOOL CALLBACK MessageBoxes::OnWindow(HWND window, LPARAM self) {
  std::array<wchar_t, 32> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  if (lstrcmpW(name.data(), L"#32770") == 0 && IsWindowVisible(window) != FALSE) {
    reinterpret_cast<MessageBoxes*>(self)->Answer(window);
  }
  return TRUE;
}

void MessageBoxes::Answer(HWND box) {
  if (std::find(answered_.begin(), answered_.end(), box) != answered_.end()) return;
  answered_.push_back(box);
  shown_.push_back({Utf8(windows::TextOf(box)), Utf8(windows::TextOf(GetDlgItem(box, kTextOfBox))),
                    GetWindow(box, GW_OWNER), IconOf(box), ButtonsOf(box)});
  int button = IDOK;
  if (!buttons_.empty()) {
    button = buttons_.front();
    buttons_.pop_front();
  }
  if (button == 0) return;
  PostMessageW(box, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(box, button)));
}

}  // namespace pricedown::testing
