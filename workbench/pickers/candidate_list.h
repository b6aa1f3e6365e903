// The rows that a picker offers: all ids in the order of codes, searched as the user types; texts
// are read only for rows that are shown.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "workbench/pickers/candidate_table.h"

namespace workbench {

class Connection;

// The texts of the table's shown columns; NULL is empty.
using CandidateRow = std::vector<std::u16string>;

// Holds 4 bytes per row. A search runs in short steps so that the window stays responsive; the rows
// found only grow, in the order of codes. Every function that reads throws DatabaseError.
class CandidateList {
 public:
  // The database applies the condition here, once. `company` and `table` must outlive the list.
  CandidateList(Connection& company, const CandidateTable& table, std::u16string_view condition);

  // All rows under the condition.
  std::size_t Total() const { return ids_.size(); }

  // Begins a search for the rows that contain every word of the text; a text without words finds
  // all. If the text only got longer, searches within the previous result.
  void Search(std::u16string_view text);
  bool HasWords() const { return !words_.empty(); }
  // Whether more may be found.
  bool IsSearching() const { return next_ < Searched().size(); }
  // One step, some milliseconds. Requires: IsSearching().
  void Advance();

  // The rows found so far.
  std::size_t Count() const { return Shown().size(); }
  // Requires: position < Count().
  std::int32_t Id(std::size_t position) const { return Shown()[position]; }
  std::span<const std::int32_t> Shown() const { return HasWords() ? found_ : ids_; }
  // Valid until the next call. Texts are empty where the row was deleted.
  const CandidateRow& Row(std::size_t position);

 private:
  std::span<const std::int32_t> Searched() const;
  void LoadAround(std::size_t position);

  Connection& company_;
  const CandidateTable& table_;
  std::vector<std::int32_t> ids_;

  std::vector<std::u16string> words_;
  // The ids to search, unless all are.
  std::vector<std::int32_t> rest_;
  bool narrowed_ = false;
  std::size_t next_ = 0;  // position in Searched()
  std::vector<std::int32_t> found_;

  std::unordered_map<std::int32_t, CandidateRow> rows_;
};

}  // namespace workbench
