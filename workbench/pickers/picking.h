// The state of an open picker: list, choices, and the texts about both.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/pickers/candidate_list.h"
#include "workbench/pickers/choice_set.h"
#include "workbench/pickers/picker_description.h"

namespace workbench {

// The most rows that can be chosen at once.
inline constexpr std::size_t kMaximumChosen = 10000;

class Picking {
 public:
  // Throws DatabaseError, also for a bad condition. `company` and `description` must outlive the
  // object.
  Picking(Connection& company, const PickerDescription& description, std::u16string_view condition,
          bool several);

  const PickerDescription& Description() const { return description_; }
  CandidateList& List() { return list_; }
  const CandidateList& List() const { return list_; }

  // Whether several rows may be chosen; if not, only Answer chooses.
  bool Several() const { return several_; }
  bool IsChosen(std::size_t position) const { return choices_.Has(list_.Id(position)); }
  std::size_t ChosenCount() const { return choices_.Count(); }

  // Both return false and change nothing if more than kMaximumChosen rows would be chosen.
  // Requires: Several(), position < Count().
  bool Toggle(std::size_t position);
  // Finishes the search and chooses every row found; if all are already chosen, unchooses them.
  // Requires: Several().
  bool ToggleAllFound();
  void ClearChosen() { choices_.Clear(); }

  // Continues the search until it has a row or ends.
  void FindFirst();

  // The choices in their order; else the current row; else nothing.
  std::vector<std::int32_t> Answer(std::optional<std::size_t> current) const;

  // "共 3,200 种物料" and, of a search, "找到 12 种物料".
  std::u16string FoundText() const;
  // "已选 2 项"; empty where only one is allowed.
  std::u16string ChosenText() const;
  // Why a choice was refused.
  static std::u16string LimitText();

 private:
  const PickerDescription& description_;
  bool several_;
  CandidateList list_;
  ChoiceSet choices_;
};

}  // namespace workbench
