// The tables that the pickers offer, and the statements that read them.
// It runs nothing; candidate_list.h does.
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
  std::span<const std::u16string_view> beginColumns;   // found by how they begin
  std::span<const std::u16string_view> insideColumns;  // found by what is anywhere in them
};

const CandidateTable& AccountTable();
// Its alias is x2, as conditions of callers name it.
const CandidateTable& ItemTable();

// The words of what a user typed, separated by blanks, also full-width ones.
std::vector<std::u16string> SearchWords(std::u16string_view text);

// The ids in the order of codes. The condition may be empty.
std::u16string IdsStatement(const CandidateTable& table, std::u16string_view condition);

// The id and the shown columns of these ids, in no order. Requires: ids.
std::u16string RowsStatement(const CandidateTable& table, std::span<const std::int32_t> ids);

// The ids of the rows in which every word is found. Where the ids are close together it reads the
// whole stretch, so that others between them may be in the answer. Requires: ids in ascending
// order, words.
std::u16string MatchStatement(const CandidateTable& table, std::span<const std::int32_t> ids,
                              std::span<const std::u16string> words);

}  // namespace workbench
