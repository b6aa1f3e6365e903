// The timer behind the steps, and the messages that they post. A window without further steps is
// closed, so that the test program continues.
#include "tests/windows/pickers/picker_user.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>
#include <objbase.h>

#include <array>
#include <cstdlib>

#include "windows/com/wide_text.h"
#include "workbench/company/utf.h"
#include "workbench/host/screenshot.h"
#include "workbench/pickers/picker_ids.h"

namespace workbench::testing {

using pricedown::windows::FromWide;
using pricedown::windows::ToWide;

namespace {

constexpr UINT kPeriod = 15;       // milliseconds
constexpr int kPatience = 400;     // periods that one step may take
constexpr int kAfterTheLast = 40;  // periods until a window without steps is closed

PickerUser* current = nullptr;

BOOL CALLBACK FindPicker(HWND window, LPARAM found) {
  if (IsWindowVisible(window) == FALSE || GetDlgItem(window, picker_ids::kList) == nullptr) {
    return TRUE;
  }
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

// Modifiers as the thread sees them.
void HoldControl(bool down) {
  std::array<BYTE, 256> state{};
  if (down) state[VK_CONTROL] = 0x80;
  SetKeyboardState(state.data());
}

}  // namespace

PickerUser::PickerUser() : timer_(SetTimer(nullptr, 0, kPeriod, &OnTimer)) {
  current = this;
  CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
}

PickerUser::~PickerUser() {
  KillTimer(nullptr, timer_);
  current = nullptr;
  CoUninitialize();
  EXPECT_TRUE(steps_.empty()) << steps_.size() << " steps were not reached";
}

void CALLBACK PickerUser::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (current != nullptr && !current->running_) current->Next();
}

void PickerUser::Next() {
  const HWND dialog = Dialog();
  if (dialog == nullptr) return;
  seen_ = true;
  if (++waited_ > (steps_.empty() ? kAfterTheLast : kPatience)) {
    ADD_FAILURE() << "the window stays open, " << steps_.size() << " steps are left";
    steps_.clear();
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    return;
  }
  if (steps_.empty()) return;
  running_ = true;
  if (steps_.front()()) {
    steps_.pop_front();
    waited_ = 0;
  }
  running_ = false;
}

PickerUser& PickerUser::Add(std::function<bool()> step) {
  steps_.push_back(std::move(step));
  return *this;
}

PickerUser& PickerUser::Then(std::function<void()> look) {
  return Add([look = std::move(look)] {
    look();
    return true;
  });
}

PickerUser& PickerUser::Type(std::u16string_view text) {
  for (const char16_t unit : text) {
    Then([unit] { PostMessageW(GetFocus(), WM_CHAR, unit, 1); });
  }
  return *this;
}

PickerUser& PickerUser::Press(WPARAM key) {
  return Then([key] {
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
    PostMessageW(GetFocus(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
  });
}

PickerUser& PickerUser::PressWithControl(WPARAM key) {
  Then([key] {
    HoldControl(true);
    PostMessageW(GetFocus(), WM_KEYDOWN, key, 1);
  });
  return Then([] { HoldControl(false); });
}

PickerUser& PickerUser::Click(int row, int x) {
  return Then([this, row, x] {
    const HWND list = Control(picker_ids::kList);
    RECT area{};
    ListView_GetItemRect(list, row, &area, LVIR_BOUNDS);
    const POINT point{area.left + x, (area.top + area.bottom) / 2};
    POINT onScreen = point;
    ClientToScreen(list, &onScreen);
    SetCursorPos(onScreen.x, onScreen.y);
    PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    PostMessageW(list, WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
  });
}

PickerUser& PickerUser::DoubleClick(int row) {
  Click(row, 60);
  return Then([this, row] {
    const HWND list = Control(picker_ids::kList);
    RECT area{};
    ListView_GetItemRect(list, row, &area, LVIR_BOUNDS);
    const LPARAM point = MAKELPARAM(area.left + 60, (area.top + area.bottom) / 2);
    PostMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, point);
    PostMessageW(list, WM_LBUTTONUP, 0, point);
  });
}

PickerUser& PickerUser::PressButton(int id) {
  return Then([this, id] { PostMessageW(Control(id), BM_CLICK, 0, 0); });
}

PickerUser& PickerUser::Await(int id, std::u16string_view text) {
  return Add([this, id, expected = Utf8FromUtf16(text)] { return Text(id) == expected; });
}

PickerUser& PickerUser::CapturePicture(const std::string& name) {
  if (std::getenv("PRICEDOWN_PICTURES") == nullptr) return *this;
  // Painting comes between two steps.
  Then([] {});
  return Then([this, name] {
    RedrawWindow(Dialog(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    const std::string path = std::string(std::getenv("PRICEDOWN_PICTURES")) + "/" + name + ".png";
    SaveScreenshot(Dialog(), ToWide(Utf16FromUtf8(path)));
  });
}

HWND PickerUser::Dialog() const {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), &FindPicker, reinterpret_cast<LPARAM>(&found));
  return found;
}

std::string PickerUser::Text(int id) const {
  wchar_t text[256] = {};
  const UINT length = GetDlgItemTextW(Dialog(), id, text, 256);
  return Utf8FromUtf16(FromWide({text, length}));
}

int PickerUser::CurrentRow() const {
  return ListView_GetNextItem(Control(picker_ids::kList), -1, LVNI_SELECTED);
}

std::string PickerUser::Cell(int row, int column) const {
  wchar_t text[256] = {};
  ListView_GetItemText(Control(picker_ids::kList), row, column, text, 256);
  return Utf8FromUtf16(FromWide(text));
}

bool PickerUser::IsTicked(int row) const {
  return ListView_GetCheckState(Control(picker_ids::kList), row) == 1;
}

OwnerWindow::OwnerWindow()
    : handle_(CreateWindowW(L"#32770", L"物料类别维护", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 40,
                            900, 640, nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)),
      field_(CreateWindowW(L"EDIT", L"1", WS_CHILD | WS_VISIBLE | WS_BORDER, 10, 10, 100, 24,
                           handle_, nullptr, GetModuleHandleW(nullptr), nullptr)) {
  SetForegroundWindow(handle_);
  SetActiveWindow(handle_);
  SetFocus(field_);
}

OwnerWindow::~OwnerWindow() { DestroyWindow(handle_); }

}  // namespace workbench::testing
