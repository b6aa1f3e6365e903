// What programs that meet in one company stored, replayed in the order of their commits: each save
// has to be one step, and what its user lost is counted.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <istream>
#include <map>
#include <ostream>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/number_from_environment.h"

namespace workbench {

// The commands of each program.
inline int MeetingCommands(int usual) {
  return pricedown::testing::NumberFromEnvironment("PRICEDOWN_MEETING_COMMANDS", usual);
}

// A row of the class table, stored or deleted.
struct Change {
  bool isInsert = false;
  std::string number;
  std::string name;
  std::int64_t item = 0;
};

// What a user meant to save. Every save has a name of its own.
struct Save {
  std::string opening;
  std::string number;
  std::string nameBefore;
  std::set<std::int64_t> items;
};

// What the programs did, beside what the company keeps. Each writes its own.
struct MeetingReport {
  std::map<std::string, Save> saves;  // by name
  // Stored, of the period and of an earlier one.
  std::int64_t amounts = 0;
  std::int64_t earlierAmounts = 0;
  std::int64_t removals = 0;
  std::int64_t deletions = 0;

  void Write(std::ostream& out) const {
    out << amounts << ' ' << earlierAmounts << ' ' << removals << ' ' << deletions << '\n';
    for (const auto& [name, save] : saves) {
      out << name << '|' << save.opening << '|' << save.number << '|' << save.nameBefore << '|';
      for (const std::int64_t item : save.items) out << item << ' ';
      out << '\n';
    }
  }
  // Adds what Write wrote.
  void Add(std::istream& in) {
    std::string line;
    std::getline(in, line);
    std::istringstream counts(line);
    for (std::int64_t* each : {&amounts, &earlierAmounts, &removals, &deletions}) {
      std::int64_t count = 0;
      counts >> count;
      *each += count;
    }
    while (std::getline(in, line)) {
      std::istringstream words(line);
      std::string name;
      Save save;
      for (std::string* each : {&name, &save.opening, &save.number, &save.nameBefore}) {
        std::getline(words, *each, '|');
      }
      for (std::int64_t item = 0; words >> item;) save.items.insert(item);
      saves.emplace(name, save);
    }
  }
};

class MeetingJournal {
 public:
  explicit MeetingJournal(std::map<std::string, Save> saves) : saves_(std::move(saves)) {}

  // Reports a save that is not one step, or not what its user meant, as a failure of the test.
  void Replay(const std::vector<Change>& changes) {
    for (std::size_t i = 0; i < changes.size();) {
      if (!changes[i].isInsert) {
        Delete(changes[i++]);
        continue;
      }
      const std::size_t first = i;
      while (i < changes.size() && changes[i].isInsert && changes[i].name == changes[first].name) {
        ++i;
      }
      Store({changes.begin() + static_cast<std::ptrdiff_t>(first),
             changes.begin() + static_cast<std::ptrdiff_t>(i)});
      if (::testing::Test::HasFatalFailure()) return;
    }
  }

  // The class table after it: number|name|item.
  const std::multiset<std::string>& Rows() const { return rows_; }
  static std::string RowOf(const Change& change) {
    return change.number + "|" + change.name + "|" + std::to_string(change.item);
  }

  int stored = 0;
  int replaced = 0;  // over a save that their user had not seen
  int revived = 0;   // of a class that was deleted
  int doubled = 0;   // under a number in use
  int shared = 0;    // items that another class had

 private:
  void Delete(const Change& change) {
    rows_.erase(rows_.find(RowOf(change)));
    auto& names = namesOf_[change.number];
    names.erase(names.find(change.name));
    items_.erase(items_.find(change.item));
    if (std::exchange(deletedNumber_, change.number) != change.number) deleted_.clear();
    deleted_.insert(change.name);
  }

  void Store(const std::vector<Change>& inserts) {
    const std::string& name = inserts.front().name;
    ASSERT_EQ(saves_.count(name), 1U) << name;
    const Save& save = saves_[name];
    ASSERT_TRUE(save.opening.empty() || namesOf_[save.opening].empty())
        << name << ": rows of " << save.opening << " are left";
    if (deletedNumber_ != save.opening) deleted_.clear();
    if (!save.opening.empty()) {
      revived += deleted_.empty() ? 1 : 0;
      replaced += deleted_.empty() || deleted_.count(save.nameBefore) != 0 ? 0 : 1;
    }
    doubled += namesOf_[save.number].empty() ? 0 : 1;
    std::set<std::int64_t> inserted;
    for (const Change& insert : inserts) {
      EXPECT_EQ(insert.number, save.number);
      inserted.insert(insert.item);
      shared += items_.count(insert.item) == 0 ? 0 : 1;
      items_.insert(insert.item);
      rows_.insert(RowOf(insert));
      namesOf_[insert.number].insert(name);
    }
    ASSERT_EQ(inserted, save.items) << name;
    deleted_.clear();
    saves_.erase(name);
    ++stored;
  }

  std::map<std::string, Save> saves_;
  std::multiset<std::string> rows_;
  std::map<std::string, std::multiset<std::string>> namesOf_;
  std::multiset<std::int64_t> items_;
  std::string deletedNumber_;
  std::set<std::string> deleted_;  // names of the rows of that number that were deleted last
};

}  // namespace workbench
