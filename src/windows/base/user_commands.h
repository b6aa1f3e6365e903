// The commands that the user reaches from inside tree and grid, by key or by context menu.
// What a command does is the core's, when it may be chosen is the control's window's.
#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace pricedown::windows {

// The place in a WM_CONTEXTMENU that no mouse made.
inline constexpr LPARAM kByKeyboard = -1;

enum class UserCommand { Add = 1, Edit, Delete, Refresh, Print, Preview, Copy };

// The command of a key, with the modifiers that are down now: Insert, F2 or Enter, Delete, F5,
// Ctrl+P. Not that of Ctrl+C, which is the grid's own.
std::optional<UserCommand> CommandOfKey(WPARAM key);

// Of a WM_KEYDOWN: whether the key was down before.
inline bool IsRepeated(LPARAM keyData) { return (keyData & (1 << 30)) != 0; }

// Whether a key message asks for the context menu: the menu key or Shift+F10. Neither all systems
// nor all of their controls make WM_CONTEXTMENU of both.
bool AsksForMenu(UINT message, WPARAM key);

// How that key is written for the user; empty when the command has none.
std::u16string_view ShortcutOf(UserCommand command);

// The key of the tool strip's button that does the same; empty when there is none.
std::u16string_view StripKeyOf(UserCommand command);
// That button's position from 1; 0 when the strip has none.
std::size_t StripPositionOf(UserCommand command);

// Where on the screen the menu opens that a WM_CONTEXTMENU at `place` asks for: at the mouse, or by
// keyboard below `current`, an area of the window. Nothing for a click beside the client area.
std::optional<POINT> MenuPlace(HWND window, LPARAM place, const RECT& current);

struct CommandLine {
  UserCommand command;
  std::u16string caption;
  bool enabled;
  bool beginsGroup = false;
};

// Shows the commands as a menu at `place` on the screen and answers the chosen one. Messages run
// meanwhile. Requires: `owner` is a window of this thread.
std::optional<UserCommand> ChooseFromMenu(HWND owner, POINT place,
                                          std::span<const CommandLine> lines);

}  // namespace pricedown::windows
