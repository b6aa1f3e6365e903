// Choosing, and the picker's texts.
#include "workbench/pickers/picking.h"

#include <algorithm>

#include "platform/convert.h"
#include "platform/text.h"

namespace workbench {
namespace {

using pricedown::Concatenate;

std::u16string Grouped(std::size_t number) {
  std::u16string digits = pricedown::NumberText(static_cast<double>(number));
  for (std::size_t place = digits.size(); place > 3; place -= 3) digits.insert(place - 3, 1, u',');
  return digits;
}

}  // namespace

Picking::Picking(Connection& company, const PickerDescription& description,
                 std::u16string_view condition, bool several)
    : description_(description), several_(several), list_(company, description.table, condition) {}

bool Picking::Toggle(std::size_t position) {
  const std::int32_t id = list_.Id(position);
  if (choices_.Has(id)) {
    choices_.Remove(id);
    return true;
  }
  if (choices_.Count() >= kMaximumChosen) return false;
  choices_.Add(id);
  return true;
}

bool Picking::ToggleAllFound() {
  while (list_.IsSearching() && list_.Count() <= kMaximumChosen) list_.Advance();
  const auto found = list_.Shown();
  const auto missing = static_cast<std::size_t>(
      std::count_if(found.begin(), found.end(), [this](auto id) { return !choices_.Has(id); }));
  if (missing == 0) {
    for (const std::int32_t id : found) choices_.Remove(id);
    return true;
  }
  if (choices_.Count() + missing > kMaximumChosen) return false;
  for (const std::int32_t id : found) choices_.Add(id);
  return true;
}

void Picking::FindFirst() {
  while (list_.Count() == 0 && list_.IsSearching()) list_.Advance();
}

std::vector<std::int32_t> Picking::Answer(std::optional<std::size_t> current) const {
  if (choices_.Count() > 0) return choices_.InOrder();
  if (current && *current < list_.Count()) return {list_.Id(*current)};
  return {};
}

std::u16string Picking::FoundText() const {
  const std::u16string_view before = !list_.HasWords()     ? u"共 "
                                     : list_.IsSearching() ? u"正在查找，已找到 "
                                                           : u"找到 ";
  return Concatenate({before, Grouped(list_.Count()), u" ", description_.unit});
}

std::u16string Picking::ChosenText() const {
  if (!several_) return {};
  return Concatenate({u"已选 ", Grouped(choices_.Count()), u" 项"});
}

std::u16string Picking::LimitText() {
  return Concatenate({u"一次最多选择 ", Grouped(kMaximumChosen), u" 项"});
}

}  // namespace workbench
