// A command as buttons, menus and keys show it. A component derives the rows of its own table from
// it and adds what runs them.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/key.h"

namespace pricedown {

struct Command {
  // Of the button, as hosts and the suite's form resources write it.
  std::u16string_view key = {};
  // Before Translate. Without a tooltip the button has none.
  std::u16string_view caption = {};
  std::u16string_view tooltip = {};
  int icon = 0;                       // resource id, platform/icon_ids.h; 0 for none
  std::array<KeyPress, 2> keys = {};  // menus and tooltips show the first
  bool separator = false;             // a gap between buttons, no command
  bool pictureOnly = false;           // the caption is the button's name, but not shown

  // Whether the key runs the command.
  constexpr bool Has(const KeyPress& press) const {
    return press.key != Key::None && std::find(keys.begin(), keys.end(), press) != keys.end();
  }
};

// Every row of a table, in order. The table must outlive the result.
template <typename Rows>
std::vector<const Command*> RowsOf(const Rows& rows) {
  std::vector<const Command*> commands;
  commands.reserve(std::size(rows));
  for (const Command& row : rows) commands.push_back(&row);
  return commands;
}

// How many of the buttons, from the first on, a tool strip of that width shows: all, or as many as
// leave room for an arrow to the others. `rightEdges` are the buttons' own when all are visible.
std::size_t ButtonsThatFit(std::span<const std::int32_t> rightEdges, std::int32_t width,
                           std::int32_t arrowWidth);

// A button as a line of the menu behind the arrow.
struct HiddenButton {
  const Command* command;
  bool beginsGroup;  // below a separator
};

// The buttons from position `shown` on, counted from 0. The first one begins no group.
std::vector<HiddenButton> HiddenButtons(std::span<const Command* const> buttons, std::size_t shown);

// How a key is written for the user: "Ctrl+P"; empty for Key::None.
std::u16string ShortcutText(const KeyPress& press);

// The text followed by the shortcut, "打印 (Ctrl+P)"; empty without a text.
std::u16string WithShortcut(const Command& command, std::u16string_view text);
// The translated tooltip with the shortcut.
std::u16string TooltipOf(const Command& command);

}  // namespace pricedown
