// The table of keys in the tester guide, line by line against the tables in the code: every command
// is there with its keys, and every key does what the guide says.
#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "control/commands.h"
#include "editor/form_keys.h"
#include "print/preview_commands.h"
#include "tests/control/guide_keys.h"

namespace pricedown::testing {
namespace {

using Keys = std::vector<std::string>;
// By place and caption, "grid 复制".
using KeyTable = std::map<std::string, Keys>;

KeyTable Guide() {
  KeyTable table;
  for (const GuideKey& row : ReadGuideKeys()) table[row.place + " " + row.command] = row.keys;
  return table;
}

Keys KeysOf(const Command& command) {
  Keys keys;
  for (const KeyPress& press : command.keys) {
    if (press.key != Key::None) keys.push_back(Utf8(ShortcutText(press)));
  }
  return keys;
}

template <typename Rows>
void AddRows(const std::string& place, const Rows& rows, KeyTable& table) {
  for (const Command* row : rows) {
    if (!row->separator) table[place + " " + Utf8(row->caption)] = KeysOf(*row);
  }
}

TEST(GuideKeys, ListEveryCommandOfTreeGridAndToolStrip) {
  const KeyTable guide = Guide();
  KeyTable expected;
  AddRows("tree", CommandsOn(surface::kTreeMenu), expected);
  AddRows("grid", CommandsOn(surface::kGridMenu), expected);
  for (const ControlCommand* button : CommandsOn(surface::kToolStrip)) {
    if (button->separator || (button->surfaces & surface::kMenus) != 0) continue;
    expected["tool strip " + Utf8(button->caption)] = KeysOf(*button);
  }
  KeyTable listed;
  for (const auto& [name, keys] : guide) {
    const std::string place = name.substr(0, name.rfind(' '));
    if (place == "tree" || place == "grid" || place == "tool strip") listed[name] = keys;
  }
  EXPECT_EQ(listed, expected);
}

TEST(GuideKeys, ListEveryCommandOfTheForm) {
  const KeyTable guide = Guide();
  KeyTable expected;
  AddRows("form", RowsOf(kFormTools), expected);
  expected["form 退出"] = {"Esc"};  // the system sends it as a command of its own
  AddRows("form's list", RowsOf(kMemberListMenu), expected);
  const std::string lookup = "form's account field 查找科目";
  ASSERT_TRUE(guide.contains(lookup));
  // By a rule, because modifiers make a difference for each key.
  for (const std::string& key : guide.at(lookup)) EXPECT_TRUE(OpensLookup(PressOfText(key))) << key;
  expected[lookup] = {"F7", "F4", "Alt+Down"};
  KeyTable listed;
  for (const auto& entry : guide) {
    if (entry.first.starts_with("form")) listed.insert(entry);
  }
  EXPECT_EQ(listed, expected);
}

TEST(GuideKeys, DoInThePreviewWhatTheGuideSays) {
  const KeyTable guide = Guide();
  // The field of the page number has no button.
  const std::string field = "preview 页码";
  std::set<std::string> known{field};
  ASSERT_TRUE(guide.contains(field));
  for (const std::string& key : guide.at(field)) {
    EXPECT_EQ(CommandOfKey(PressOfText(key), PreviewFocus::Page), PreviewCommand::EnterPage);
  }
  const auto check = [&](const PreviewButton& button) {
    if (button.separator) return;
    const std::string name = "preview " + Utf8(button.caption);
    known.insert(name);
    ASSERT_TRUE(guide.contains(name)) << name;
    const KeyPress& shown = button.keys[0];
    EXPECT_EQ(guide.at(name), shown == KeyPress{} ? Keys{} : Keys{Utf8(ShortcutText(shown))});
    for (const std::string& key : guide.at(name)) {
      // The system sends Esc as a command of its own.
      const KeyPress press = PressOfText(key);
      if (press == KeyPress{Key::Escape}) {
        EXPECT_EQ(button.command, PreviewCommand::Close);
      } else {
        EXPECT_EQ(CommandOfKey(press, PreviewFocus::Page), button.command) << key;
      }
    }
  };
  for (const PreviewButton& button : kDocumentButtons) check(button);
  for (const PreviewButton& button : kViewButtons) check(button);
  for (const auto& [name, keys] : guide) {
    if (name.starts_with("preview ")) {
      EXPECT_TRUE(known.contains(name)) << name;
    }
  }
}

}  // namespace
}  // namespace pricedown::testing
