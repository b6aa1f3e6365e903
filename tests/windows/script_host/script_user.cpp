// A timer of the thread, which also runs inside modal windows, and posted input.
#include "tests/windows/script_host/script_user.h"

#include <commctrl.h>

#include <array>
#include <cstdio>
#include <utility>

#include "platform/failure.h"
#include "platform/text.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

constexpr UINT kPeriod = 40;        // milliseconds
constexpr int kTextOfBox = 0xFFFF;  // the id of a message box's text
constexpr int kPrinters = 0x0473;   // a print dialog's list of printers
constexpr int kPapers = 0x0471;     // a page set-up's list of papers

ScriptUser* current = nullptr;

std::u16string TextOf(HWND window) {
  std::array<wchar_t, 512> text{};
  GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  return windows::FromWide(text.data());
}

std::u16string ClassOf(HWND window) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(window, name.data(), static_cast<int>(name.size()));
  return windows::FromWide(name.data());
}

// Hosts' frames also have the dialog class, but no message text.
bool Waits(HWND window) {
  if (window == nullptr) return false;
  const std::u16string name = ClassOf(window);
  return name == u"PriceDown.ItemClass" || name == u"PriceDown.Preview" ||
         GetDlgItem(window, kTextOfBox) != nullptr || GetDlgItem(window, kPrinters) != nullptr ||
         GetDlgItem(window, kPapers) != nullptr;
}

}  // namespace

void ScriptUser::Play(ObjectPtr player) {
  Stop();
  if (player == nullptr) return;
  player_ = std::move(player);
  current = this;
  timer_ = SetTimer(nullptr, 0, kPeriod, &OnTimer);
  if (timer_ == 0) windows::ThrowLastError();
}

void ScriptUser::Stop() {
  if (timer_ != 0) KillTimer(nullptr, std::exchange(timer_, 0));
  player_ = nullptr;
  current = nullptr;
}

void CALLBACK ScriptUser::OnTimer(HWND, UINT, UINT_PTR, DWORD) noexcept {
  ScriptUser* user = current;
  if (user == nullptr || user->playing_ || !Waits(GetActiveWindow())) return;
  user->playing_ = true;
  try {
    const ObjectPtr player = user->player_;
    player->Call(u"Step", {});
  } catch (...) {
    // Prints the reason; the script's next check fails.
    std::fprintf(stderr, "script_host: %s\n", ToUtf8(CurrentFailure().description).c_str());
  }
  user->playing_ = false;
}

std::u16string ScriptUser::WindowClass() const { return ClassOf(GetActiveWindow()); }

std::u16string ScriptUser::Text(int id) const {
  const HWND window = GetActiveWindow();
  return TextOf(id == 0 ? window : GetDlgItem(window, id));
}

void ScriptUser::Type(int id, std::u16string_view text) {
  const HWND field = GetDlgItem(GetActiveWindow(), id);
  if (field == nullptr) return;
  SetFocus(field);
  SendMessageW(field, EM_SETSEL, 0, -1);
  for (const char16_t unit : text) SendMessageW(field, WM_CHAR, unit, 1);
}

void ScriptUser::PressKey(int id, int key) {
  const HWND window = GetDlgItem(GetActiveWindow(), id);
  if (window == nullptr) return;
  SetFocus(window);
  PostMessageW(window, WM_KEYDOWN, static_cast<WPARAM>(key), 1);
  PostMessageW(window, WM_KEYUP, static_cast<WPARAM>(key), static_cast<LPARAM>(0xC0000001));
}

void ScriptUser::PressTool(int toolBar, int position) {
  const HWND bar = GetDlgItem(GetActiveWindow(), toolBar);
  if (bar == nullptr) return;
  RECT area{};
  SendMessageW(bar, TB_GETITEMRECT, static_cast<WPARAM>(position) - 1,
               reinterpret_cast<LPARAM>(&area));
  const LPARAM point = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
  PostMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point);
  PostMessageW(bar, WM_LBUTTONUP, 0, point);
}

void ScriptUser::PressButton(int id) {
  const HWND window = GetActiveWindow();
  if (const HWND button = GetDlgItem(window, id)) {
    PostMessageW(window, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
  }
}

void ScriptUser::CloseWindow() { PostMessageW(GetActiveWindow(), WM_CLOSE, 0, 0); }

}  // namespace pricedown::testing
