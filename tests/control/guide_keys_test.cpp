// The table of keys in the tester guide, line by line against the tables in the code: every command
// is there with its keys, and every key does what the guide says.
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "control/commands.h"
#include "editor/form_keys.h"
#include "print/preview_commands.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

using Keys = std::vector<std::string>;
// By place and caption, "grid 复制".
using KeyTable = std::map<std::string, Keys>;

std::vector<std::string> Split(const std::string& text, const std::string& separator) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (std::size_t to; (to = text.find(separator, from)) != std::string::npos;) {
    parts.push_back(text.substr(from, to - from));
    from = to + separator.size();
  }
  parts.push_back(text.substr(from));
  return parts;
}

KeyTable Guide() {
  std::ifstream file(std::string(PRICEDOWN_SOURCE_DIR) + "/docs/tester-guide.md");
  KeyTable table;
  bool inTable = false;
  for (std::string line; std::getline(file, line);) {
    if (line == "| Where | Key | Command |")
      inTable = std::getline(file, line).good();
    else if (inTable && line.empty())
      break;
    else if (inTable) {
      const std::vector<std::string> cells = Split(line.substr(2, line.size() - 4), " | ");
      if (cells.size() != 3) {
        ADD_FAILURE() << line;
        continue;
      }
      for (const std::string& place : Split(cells[0], ", ")) {
        table[place + " " + cells[2]] = cells[1] == "—" ? Keys{} : Split(cells[1], ", ");
      }
    }
  }
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
  AddRows("form's list", RowsOf(kMemberListMenu), expected);
  KeyTable listed;
  for (const auto& entry : guide) {
    if (entry.first.starts_with("form")) listed.insert(entry);
  }
  EXPECT_EQ(listed, expected);
}

// All key presses that the code distinguishes, by their spelling.
std::map<std::string, KeyPress> Presses() {
  std::map<std::string, KeyPress> presses;
  for (int code = 1; code < 0x100; ++code) {
    for (int modifiers = 0; modifiers < 4; ++modifiers) {
      const KeyPress press{static_cast<Key>(code), (modifiers & 1) != 0, (modifiers & 2) != 0};
      presses.emplace(Utf8(ShortcutText(press)), press);
    }
  }
  // Both "+" and "-" are also keys of letters' rows.
  presses["+"] = {Key::Add};
  presses["-"] = {Key::Subtract};
  return presses;
}

TEST(GuideKeys, DoInThePreviewWhatTheGuideSays) {
  const KeyTable guide = Guide();
  const auto presses = Presses();
  std::set<std::string> known;
  const auto check = [&](const PreviewButton& button) {
    if (button.separator) return;
    const std::string name = "preview " + Utf8(button.caption);
    known.insert(name);
    ASSERT_TRUE(guide.contains(name)) << name;
    for (const std::string& key : guide.at(name)) {
      ASSERT_TRUE(presses.contains(key)) << key;
      EXPECT_EQ(CommandOfKey(presses.at(key), PreviewFocus::Page), button.command) << key;
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
