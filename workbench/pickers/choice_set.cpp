// The choices in the order of choosing.
#include "workbench/pickers/choice_set.h"

#include <algorithm>

namespace workbench {

std::vector<std::int32_t> ChoiceSet::InOrder() const {
  std::vector<std::int32_t> ids;
  ids.reserve(order_.size());
  for (const auto& [id, place] : order_) ids.push_back(id);
  std::sort(ids.begin(), ids.end(), [this](std::int32_t left, std::int32_t right) {
    return order_.at(left) < order_.at(right);
  });
  return ids;
}

}  // namespace workbench
