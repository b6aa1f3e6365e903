// The keys of the commands and the menu that shows them.
// Captions come from the caller.
#include "windows/ui/user_commands.h"

#include "windows/com/failure.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

const wchar_t* ShortcutText(UserCommand command) {
  switch (command) {
    case UserCommand::Add:
      return L"\tIns";
    case UserCommand::Edit:
      return L"\tF2";
    case UserCommand::Delete:
      return L"\tDel";
    case UserCommand::Refresh:
      return L"\tF5";
    case UserCommand::Print:
      return L"\tCtrl+P";
    case UserCommand::Copy:
      return L"\tCtrl+C";
    case UserCommand::Preview:
      break;
  }
  return L"";
}

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

std::optional<UserCommand> ChooseFromMenu(HWND owner, POINT place,
                                          std::span<const CommandLine> lines) {
  const Menu menu;
  for (const CommandLine& line : lines) {
    if (line.beginsGroup) AppendMenuW(menu.Get(), MF_SEPARATOR, 0, nullptr);
    const std::wstring text = ToWide(line.caption) + ShortcutText(line.command);
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
