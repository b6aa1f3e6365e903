// Context menus: the keys that open them, their place, and the choice.
#pragma once

#include <windows.h>

#include <optional>
#include <span>
#include <string>

namespace pricedown::windows {

// The place in a WM_CONTEXTMENU that no mouse made.
inline constexpr LPARAM kByKeyboard = -1;

// Whether a key message asks for the context menu: the menu key or Shift+F10. Neither all systems
// nor all of their controls make WM_CONTEXTMENU of both.
bool IsContextMenuKey(UINT message, WPARAM key);

// Where on the screen the menu opens that a WM_CONTEXTMENU at `place` asks for: at the mouse, or by
// keyboard below `current`, an area of the window. Empty for a click beside the client area.
std::optional<POINT> MenuPlace(HWND window, LPARAM place, const RECT& current);

struct MenuLine {
  std::u16string caption;
  std::u16string shortcut;  // empty for none
  bool enabled = true;
  bool beginsGroup = false;  // below a separator
};

// Shows the lines as a menu at `place` on the screen and returns the index of the chosen one.
// Messages run meanwhile. Requires: `owner` is a window of this thread.
std::optional<std::size_t> ChooseFromMenu(HWND owner, POINT place, std::span<const MenuLine> lines);

}  // namespace pricedown::windows
