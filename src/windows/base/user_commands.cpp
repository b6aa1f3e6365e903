// The keys of the commands, the menu that shows them and its place.
// Captions come from the caller.
#include "windows/base/user_commands.h"

#include <windowsx.h>

#include <algorithm>

#include "control/tool_strip.h"
#include "windows/com/failure.h"
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

std::optional<UserCommand> CommandOfKey(WPARAM key) {
  const bool control = GetKeyState(VK_CONTROL) < 0;
  if (GetKeyState(VK_SHIFT) < 0 || GetKeyState(VK_MENU) < 0) return {};
  if (control) return key == 'P' ? std::optional(UserCommand::Print) : std::nullopt;
  switch (key) {
    case VK_INSERT:
      return UserCommand::Add;
    case VK_F2:
    case VK_RETURN:
      return UserCommand::Edit;
    case VK_DELETE:
      return UserCommand::Delete;
    case VK_F5:
      return UserCommand::Refresh;
    default:
      return {};
  }
}

bool AsksForMenu(UINT message, WPARAM key) {
  return (message == WM_KEYUP && key == VK_APPS) ||
         (message == WM_SYSKEYDOWN && key == VK_F10 && GetKeyState(VK_SHIFT) < 0);
}

std::u16string_view ShortcutOf(UserCommand command) {
  switch (command) {
    case UserCommand::Add:
      return u"Ins";
    case UserCommand::Edit:
      return u"F2";
    case UserCommand::Delete:
      return u"Del";
    case UserCommand::Refresh:
      return u"F5";
    case UserCommand::Print:
      return u"Ctrl+P";
    case UserCommand::Copy:
      return u"Ctrl+C";
    case UserCommand::Preview:
      break;
  }
  return {};
}

std::u16string_view StripKeyOf(UserCommand command) {
  switch (command) {
    case UserCommand::Add:
      return u"Add";
    case UserCommand::Edit:
      return u"Edit";
    case UserCommand::Delete:
      return u"Del";
    case UserCommand::Print:
      return u"Print";
    case UserCommand::Preview:
      return u"PrintView";
    case UserCommand::Refresh:
    case UserCommand::Copy:
      break;
  }
  return {};
}

std::size_t StripPositionOf(UserCommand command) {
  const std::u16string_view key = StripKeyOf(command);
  for (std::size_t i = 0; i < kToolStripButtons.size(); ++i) {
    if (kToolStripButtons[i].key == key) return i + 1;
  }
  return 0;
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

std::optional<UserCommand> ChooseFromMenu(HWND owner, POINT place,
                                          std::span<const CommandLine> lines) {
  const Menu menu;
  for (const CommandLine& line : lines) {
    if (line.beginsGroup) AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    std::wstring text = ToWide(line.caption);
    const std::u16string_view shortcut = ShortcutOf(line.command);
    if (!shortcut.empty()) text += L'\t' + ToWide(shortcut);
    AppendMenuW(menu.Get(), line.enabled ? UINT{MF_ENABLED} : UINT{MF_GRAYED},
                static_cast<UINT_PTR>(line.command), text.c_str());
  }
  const BOOL chosen =
      TrackPopupMenu(menu.Get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON | TPM_LEFTALIGN,
                     place.x, place.y, 0, owner, nullptr);
  if (chosen == 0) return {};
  return static_cast<UserCommand>(chosen);
}

}  // namespace pricedown::windows
