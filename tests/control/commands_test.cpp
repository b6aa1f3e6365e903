// The table of commands: what each surface shows, and which key or tool means which command.
#include "control/commands.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

std::vector<std::string> KeysOn(unsigned surface) {
  std::vector<std::string> keys;
  for (const ControlCommand* command : CommandsOn(surface)) {
    keys.push_back((command->beginsGroup ? "- " : "") + Utf8(command->key));
  }
  return keys;
}

std::string KeyOf(const ControlCommand* command) {
  return command == nullptr ? "none" : Utf8(command->key);
}

TEST(Commands, PutEightButtonsOnTheToolStripInTheirPublicOrder) {
  std::vector<std::string> buttons;
  for (const ControlCommand* button : CommandsOn(surface::kToolStrip)) {
    buttons.push_back(Utf8(button->key) + "|" + Utf8(button->caption) + "|" +
                      Utf8(TooltipOf(*button)) + (button->separator ? "|separator" : ""));
  }
  EXPECT_EQ(buttons, (std::vector<std::string>{"sp2|||separator", "Add|新增|新增 (Ins)",
                                               "Edit|修改|修改 (F2)", "Del|删除|删除 (Del)",
                                               "Print|打印|打印 (Ctrl+P)", "PrintView|预览|预览",
                                               "sp3|||separator", "Exit|退出|退出系统"}));
}

TEST(Commands, HaveADifferentIconForEveryButton) {
  std::set<int> icons;
  for (const ControlCommand* button : CommandsOn(surface::kToolStrip)) {
    EXPECT_EQ(button->icon == 0, button->separator) << Utf8(button->key);
    if (!button->separator) {
      EXPECT_TRUE(icons.insert(button->icon).second) << Utf8(button->key);
    }
  }
}

TEST(Commands, FillTheMenusInGroups) {
  std::vector<std::string> keys{"Add", "Edit", "Del", "- Refresh", "Print", "PrintView"};
  std::vector<std::string> items = keys;
  keys.insert(keys.end(), {"- Find", "FindNext", "FindPrevious"});
  EXPECT_EQ(KeysOn(surface::kTreeMenu), keys);
  items.insert(items.end(), {"- Copy", "CopyTitled", "- Find", "FindNext", "FindPrevious"});
  EXPECT_EQ(KeysOn(surface::kGridMenu), items);
}

struct PressCase {
  KeyPress press;
  const char* inTree;
  const char* inGrid;
};

TEST(Commands, HaveKeysWhereAMenuShowsThem) {
  for (const PressCase& given :
       {PressCase{{Key::Insert}, "Add", "Add"},
        {{Key::F2}, "Edit", "Edit"},
        {{Key::Enter}, "Edit", "Edit"},
        {{Key::Delete}, "Del", "Del"},
        {{Key::F5}, "Refresh", "Refresh"},
        {{.key = Key::P, .control = true}, "Print", "Print"},
        {{.key = Key::C, .control = true}, "none", "Copy"},
        {{.key = Key::Insert, .control = true}, "none", "Copy"},
        {{.key = Key::C, .shift = true, .control = true}, "none", "CopyTitled"},
        {{.key = Key::F, .control = true}, "Find", "Find"},
        {{Key::F3}, "FindNext", "FindNext"},
        {{.key = Key::F3, .shift = true}, "FindPrevious", "FindPrevious"},
        {{Key::P}, "none", "none"},
        {{Key::None}, "none", "none"}}) {
    EXPECT_EQ(KeyOf(CommandOfPress(given.press, surface::kTreeMenu)), given.inTree);
    EXPECT_EQ(KeyOf(CommandOfPress(given.press, surface::kGridMenu)), given.inGrid);
  }
}

TEST(Commands, HaveNoKeysWithOtherModifiers) {
  for (const Key key : {Key::Insert, Key::F2, Key::Enter, Key::Delete, Key::F5}) {
    for (const KeyPress& press : {KeyPress{.key = key, .shift = true},
                                  {.key = key, .control = true},
                                  {.key = key, .alt = true}}) {
      EXPECT_EQ(KeyOf(CommandOfPress(press, surface::kTreeMenu)), "none") << static_cast<int>(key);
    }
  }
  EXPECT_EQ(CommandOfPress({.key = Key::P, .shift = true, .control = true}, surface::kMenus),
            nullptr);
}

TEST(Commands, AreFoundByTheExactNameOfTheirTool) {
  EXPECT_EQ(KeyOf(CommandOfTool(u"iInsert")), "Add");
  EXPECT_EQ(KeyOf(CommandOfTool(u"iCut")), "Del");
  EXPECT_EQ(KeyOf(CommandOfTool(u"iPrintPreView")), "PrintView");
  EXPECT_NE(CommandOfTool(kToolStripTool), nullptr);
  EXPECT_NE(CommandOfTool(kStatusBarTool), nullptr);
  for (const std::u16string_view name : {u"", u"Add", u"iinsert", u"mnuEdit"}) {
    EXPECT_EQ(CommandOfTool(name), nullptr) << Utf8(name);
  }
}

// What runs them, and with which right, is in dispatch_test.
TEST(Commands, CanAllBeRun) {
  for (const ControlCommand& command : ControlCommands()) {
    const bool runs = command.run != nullptr || command.toggle != nullptr;
    EXPECT_EQ(runs, !command.separator) << Utf8(command.key);
  }
}

}  // namespace
}  // namespace pricedown::testing
