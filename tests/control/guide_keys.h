// The table of keys in the tester guide, read line by line.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "env/command.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

// A command at one place. One without keys is reached by another way, "bar" or "menu".
struct GuideKey {
  std::string place;
  std::string command;
  std::vector<std::string> keys;
  std::string way;
};

inline std::vector<std::string> SplitText(const std::string& text, const std::string& separator) {
  std::vector<std::string> parts;
  std::size_t from = 0;
  for (std::size_t to; (to = text.find(separator, from)) != std::string::npos;) {
    parts.push_back(text.substr(from, to - from));
    from = to + separator.size();
  }
  parts.push_back(text.substr(from));
  return parts;
}

// A row of several places is one of each.
inline std::vector<GuideKey> ReadGuideKeys() {
  std::ifstream file(std::string(PRICEDOWN_SOURCE_DIR) + "/docs/tester-guide.md");
  EXPECT_TRUE(file.good()) << "no tester guide";
  const std::string otherWay = "— by ";
  std::vector<GuideKey> table;
  bool inTable = false;
  for (std::string line; std::getline(file, line);) {
    if (line == "| Where | Key | Command |") {
      inTable = std::getline(file, line).good();
    } else if (inTable && line.empty()) {
      break;
    } else if (inTable) {
      const auto cells = SplitText(line.substr(2, line.size() - 4), " | ");
      if (cells.size() != 3) {
        ADD_FAILURE() << line;
        continue;
      }
      GuideKey row{"", cells[2], {}, {}};
      if (cells[1].starts_with(otherWay)) {
        row.way = cells[1].substr(otherWay.size());
      } else {
        row.keys = SplitText(cells[1], ", ");
      }
      for (const std::string& place : SplitText(cells[0], ", ")) {
        row.place = place;
        table.push_back(row);
      }
    }
  }
  return table;
}

// A key as the guide writes it; Key::None with a failure when there is none.
inline KeyPress PressOfText(const std::string& text) {
  static const std::map<std::string, KeyPress> presses = [] {
    std::map<std::string, KeyPress> all;
    for (int code = 1; code < 0x100; ++code) {
      for (int modifiers = 0; modifiers < 8; ++modifiers) {
        const KeyPress press{static_cast<Key>(code), (modifiers & 1) != 0, (modifiers & 2) != 0,
                             (modifiers & 4) != 0};
        all.emplace(Utf8(ShortcutText(press)), press);
      }
    }
    all["+"] = {Key::Add};
    all["-"] = {Key::Subtract};
    all["Space"] = {Key::Space};
    return all;
  }();
  const auto found = presses.find(text);
  EXPECT_NE(found, presses.end()) << text;
  return found == presses.end() ? KeyPress{} : found->second;
}

}  // namespace pricedown::testing
