// What an open picker knows: the list, the choices, and the texts about both.
// It has no window; picker_dialog.h shows it and reports what the user does.
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

// So many rows can be chosen at once.
inline constexpr std::size_t kMostChosen = 10000;

class Picking {
 public:
  // Throws DatabaseError, also when the database refuses the condition. `company` and
  // `description` must outlive it.
  Picking(Connection& company, const PickerDescription& description, std::u16string_view condition,
          bool several);

  const PickerDescription& Description() const { return description_; }
  CandidateList& List() { return list_; }
  const CandidateList& List() const { return list_; }

  // Whether several rows may be chosen; if not, nothing is ever chosen before the answer.
  bool Several() const { return several_; }
  bool IsChosen(std::size_t position) const { return choices_.Has(list_.Id(position)); }
  std::size_t ChosenCount() const { return choices_.Count(); }

  // Both answer false and change nothing where more than kMostChosen would be chosen.
  // Requires: Several(), position < Count().
  bool Toggle(std::size_t position);
  // Chooses every row found, after the search's end; when all are chosen already, none of them.
  // Requires: Several().
  bool ToggleAllFound();
  void ClearChosen() { choices_.Clear(); }

  // Searches on until there is a row or the end.
  void FindFirst();

  // What was chosen, in the order of choosing; else the current row; else nothing.
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
