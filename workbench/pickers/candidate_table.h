// The tables that the pickers offer, and the statements that read them.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

struct CandidateTable {
  std::u16string_view name;
  std::u16string_view alias;
  std::u16string_view idColumn;    // whole numbers, unique
  std::u16string_view codeColumn;  // what the list is ordered by
  std::span<const std::u16string_view> shownColumns;
  std::span<const std::u16string_view> beginColumns;   // matched at the beginning
  std::span<const std::u16string_view> insideColumns;  // matched anywhere
};

const CandidateTable& AccountTable();
// Its alias is x2, which callers' conditions use.
const CandidateTable& ItemTable();

// The words of what a user typed, separated by blanks, also full-width ones.
std::vector<std::u16string> SearchWords(std::u16string_view text);

// The ids in the order of codes. The condition may be empty.
std::u16string IdsStatement(const CandidateTable& table, std::u16string_view condition);

// The id and the shown columns of these ids, in no order. Requires: ids.
std::u16string RowsStatement(const CandidateTable& table, std::span<const std::int32_t> ids);

// The ids of the rows that contain every word. May return other ids in between where the ids are
// dense. Requires: ids in ascending order, at least one word.
std::u16string MatchStatement(const CandidateTable& table, std::span<const std::int32_t> ids,
                              std::span<const std::u16string> words);

}  // namespace workbench
