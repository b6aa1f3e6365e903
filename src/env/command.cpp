// How keys are written for the user.
#include "env/command.h"

#include <algorithm>

#include "env/translation.h"
#include "platform/text.h"

namespace pricedown {
namespace {

std::u16string NameOf(Key key) {
  switch (key) {
    case Key::Enter:
      return u"Enter";
    case Key::Escape:
      return u"Esc";
    case Key::PageUp:
      return u"PgUp";
    case Key::PageDown:
      return u"PgDn";
    case Key::End:
      return u"End";
    case Key::Home:
      return u"Home";
    case Key::Insert:
      return u"Ins";
    case Key::Delete:
      return u"Del";
    case Key::Add:
    case Key::Plus:
      return u"+";
    case Key::Subtract:
    case Key::Minus:
      return u"-";
    case Key::Left:
      return u"Left";
    case Key::Right:
      return u"Right";
    case Key::Up:
      return u"Up";
    case Key::Down:
      return u"Down";
    case Key::F2:
      return u"F2";
    case Key::F3:
      return u"F3";
    case Key::F4:
      return u"F4";
    case Key::F5:
      return u"F5";
    case Key::F6:
      return u"F6";
    case Key::F7:
      return u"F7";
    case Key::F10:
      return u"F10";
    default:
      // Letters and digits are their own codes.
      return std::u16string(1, static_cast<char16_t>(key));
  }
}

}  // namespace

std::size_t ButtonsThatFit(std::span<const std::int32_t> rightEdges, std::int32_t width,
                           std::int32_t arrowWidth) {
  if (rightEdges.empty() || rightEdges.back() <= width) return rightEdges.size();
  const auto end = std::upper_bound(rightEdges.begin(), rightEdges.end(), width - arrowWidth);
  return static_cast<std::size_t>(end - rightEdges.begin());
}

std::vector<HiddenButton> HiddenButtons(std::span<const Command* const> buttons,
                                        std::size_t shown) {
  std::vector<HiddenButton> hidden;
  bool beginsGroup = false;
  for (const Command* button : buttons.subspan(shown)) {
    if (!button->separator) hidden.push_back({button, beginsGroup && !hidden.empty()});
    beginsGroup = button->separator;
  }
  return hidden;
}

std::u16string ShortcutText(const KeyPress& press) {
  if (press.key == Key::None) return {};
  return Concatenate({press.control ? u"Ctrl+" : u"", press.alt ? u"Alt+" : u"",
                      press.shift ? u"Shift+" : u"", NameOf(press.key)});
}

std::u16string WithShortcut(const Command& command, std::u16string_view text) {
  const std::u16string shortcut = ShortcutText(command.keys[0]);
  if (text.empty() || shortcut.empty()) return std::u16string(text);
  return Concatenate({text, u" (", shortcut, u")"});
}

std::u16string TooltipOf(const Command& command) {
  return WithShortcut(command, Translate(command.tooltip));
}

}  // namespace pricedown
