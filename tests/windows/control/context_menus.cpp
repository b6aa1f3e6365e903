// A timer looks for the menu, because a menu runs its own message loop. The choice is made by keys.
#include "tests/windows/control/context_menus.h"

#include <array>
#include <utility>

#include "tests/support/utf8.h"
#include "tests/windows/base/picture.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

constexpr UINT kLookPeriod = 10;           // milliseconds
constexpr UINT kGetMenuOfWindow = 0x01E1;  // MN_GETHMENU

ContextMenus* currentMenus = nullptr;

}  // namespace

ContextMenus::ContextMenus(int choice, std::string picture)
    : timer_(SetTimer(nullptr, 0, kLookPeriod, &OnTimer)),
      choice_(choice),
      picture_(std::move(picture)) {
  currentMenus = this;
}

ContextMenus::~ContextMenus() {
  KillTimer(nullptr, timer_);
  currentMenus = nullptr;
}

void CALLBACK ContextMenus::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  const HWND menu = FindWindowW(L"#32768", nullptr);
  if (currentMenus == nullptr || menu == nullptr || IsWindowVisible(menu) == FALSE) return;
  if (GetWindowThreadProcessId(menu, nullptr) == GetCurrentThreadId()) currentMenus->Answer(menu);
}

void ContextMenus::Answer(HWND window) {
  if (std::exchange(answered_, true)) return;
  GetWindowRect(window, &place_);
  const auto menu = reinterpret_cast<HMENU>(SendMessageW(window, kGetMenuOfWindow, 0, 0));
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    std::array<wchar_t, 64> text{};
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_STRING;
    item.dwTypeData = text.data();
    item.cch = static_cast<UINT>(text.size());
    GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &item);
    std::string line = Utf8(windows::FromWide(text.data()));
    if ((item.fType & MFT_SEPARATOR) != 0) {
      line = "-";
    } else if ((item.fState & MFS_DISABLED) != 0) {
      line = "[" + line + "]";
    }
    lines_.push_back(line);
  }
  if (!picture_.empty()) KeepPicture(window, picture_);
  const HWND owner = GetActiveWindow();
  for (int i = 0; i < choice_; ++i) PostMessageW(owner, WM_KEYDOWN, VK_DOWN, 1);
  PostMessageW(owner, WM_KEYDOWN, choice_ > 0 ? VK_RETURN : VK_ESCAPE, 1);
}

}  // namespace pricedown::testing
