// Shortcuts and tooltips as the user reads them.
#include "env/command.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

struct NamedKey {
  KeyPress press;
  const char* name;
};

TEST(Shortcut, IsWrittenAsOnKeyboards) {
  for (const NamedKey& shortcut :
       {NamedKey{{Key::Insert}, "Ins"},
        {{Key::Delete}, "Del"},
        {{Key::PageUp}, "PgUp"},
        {{Key::PageDown}, "PgDn"},
        {{Key::Escape}, "Esc"},
        {{Key::Enter}, "Enter"},
        {{Key::F2}, "F2"},
        {{Key::F3}, "F3"},
        {{Key::F4}, "F4"},
        {{Key::F5}, "F5"},
        {{Key::F6}, "F6"},
        {{Key::F7}, "F7"},
        {{Key::F10}, "F10"},
        {{Key::Add}, "+"},
        {{Key::Subtract}, "-"},
        {{Key::Plus}, "+"},
        {{Key::Minus}, "-"},
        {{.key = Key::P, .control = true}, "Ctrl+P"},
        {{.key = Key::Home, .control = true}, "Ctrl+Home"},
        {{.key = Key::End, .shift = true, .control = true}, "Ctrl+Shift+End"},
        {{.key = Key::Down, .alt = true}, "Alt+Down"},
        {{}, ""}}) {
    EXPECT_EQ(Utf8(ShortcutText(shortcut.press)), shortcut.name);
  }
}

TEST(Tooltip, EndsWithTheFirstShortcut) {
  const KeyPress print{.key = Key::P, .control = true};
  EXPECT_EQ(Utf8(TooltipOf({.key = u"Print", .tooltip = u"打印", .keys = {print, {Key::F5}}})),
            "打印 (Ctrl+P)");
  EXPECT_EQ(Utf8(TooltipOf({.key = u"Exit", .tooltip = u"退出系统"})), "退出系统");
}

TEST(Tooltip, IsMissingWhereTheCommandHasNone) {
  EXPECT_EQ(Utf8(TooltipOf({.key = u"Add", .keys = {KeyPress{Key::Insert}}})), "");
}

TEST(HiddenButtons, AreLinesOfAMenuWhoseGroupsFollowTheSeparators) {
  const Command add{.key = u"Add"};
  const Command gap{.separator = true};
  const Command print{.key = u"Print"};
  const Command exit{.key = u"Exit"};
  const std::vector<const Command*> buttons{&add, &gap, &print, &exit, &gap, &add};
  const auto keys = [&buttons](std::size_t shown) {
    std::string text;
    for (const auto& [command, beginsGroup] : HiddenButtons(buttons, shown)) {
      text += (beginsGroup ? "| " : "") + Utf8(command->key) + " ";
    }
    return text;
  };
  EXPECT_EQ(keys(0), "Add | Print Exit | Add ");
  // No line is above the first separator.
  EXPECT_EQ(keys(1), "Print Exit | Add ");
  EXPECT_EQ(keys(3), "Exit | Add ");
  EXPECT_EQ(keys(6), "");
}

TEST(ButtonsThatFit, AreAllOrLeaveRoomForTheArrow) {
  const std::vector<std::int32_t> edges{60, 120, 130, 190};
  EXPECT_EQ(ButtonsThatFit(edges, 190, 20), 4u);
  EXPECT_EQ(ButtonsThatFit(edges, 189, 20), 3u);
  EXPECT_EQ(ButtonsThatFit(edges, 150, 20), 3u);
  EXPECT_EQ(ButtonsThatFit(edges, 149, 20), 2u);
  EXPECT_EQ(ButtonsThatFit(edges, 79, 20), 0u);
  EXPECT_EQ(ButtonsThatFit(edges, 0, 20), 0u);
  EXPECT_EQ(ButtonsThatFit({}, 0, 20), 0u);
}

}  // namespace
}  // namespace pricedown::testing
