// A popup menu of the system.
#include "windows/base/context_menu.h"

#include <windowsx.h>

#include <algorithm>

#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

class Menu {
 public:
  Menu() : handle_(CreatePopupMenu()) {
    if (handle_ == nullptr) ThrowLastError();
  }
  ~Menu() { DestroyMenu(handle_); }
  Menu(const Menu&) = delete;
  Menu& operator=(const Menu&) = delete;
  HMENU Get() const { return handle_; }

 private:
  HMENU handle_;
};

}  // namespace

bool IsContextMenuKey(UINT message, WPARAM key) {
  return (message == WM_KEYUP && key == VK_APPS) ||
         (message == WM_SYSKEYDOWN && key == VK_F10 && GetKeyState(VK_SHIFT) < 0);
}

std::optional<POINT> MenuPlace(HWND window, LPARAM place, const RECT& current) {
  RECT client{};
  GetClientRect(window, &client);
  if (place == kByKeyboard) {
    POINT below{std::clamp(current.left, client.left, client.right),
                std::clamp(current.bottom, client.top, client.bottom)};
    ClientToScreen(window, &below);
    return below;
  }
  const POINT point{GET_X_LPARAM(place), GET_Y_LPARAM(place)};
  POINT inside = point;
  ScreenToClient(window, &inside);
  return PtInRect(&client, inside) != FALSE ? std::optional(point) : std::nullopt;
}

std::optional<std::size_t> ChooseFromMenu(HWND owner, POINT place,
                                          std::span<const MenuLine> lines) {
  const Menu menu;
  UINT_PTR id = 0;
  for (const MenuLine& line : lines) {
    if (line.beginsGroup) AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    std::wstring text = ToWide(line.caption);
    if (!line.shortcut.empty()) text += L'\t' + ToWide(line.shortcut);
    AppendMenuW(menu.Get(), line.enabled ? UINT{MF_ENABLED} : UINT{MF_GRAYED}, ++id, text.c_str());
  }
  const BOOL chosen =
      TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON | TPM_LEFTALIGN,
                     place.x, place.y, 0, owner, nullptr);
  if (chosen == 0) return {};
  return static_cast<std::size_t>(chosen) - 1;
}

}  // namespace pricedown::windows
