// The ids that a user has chosen, in the order of choosing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace workbench {

class ChoiceSet {
 public:
  bool Has(std::int32_t id) const { return order_.contains(id); }
  std::size_t Count() const { return order_.size(); }
  // An id that is already chosen keeps its place.
  void Add(std::int32_t id) { order_.try_emplace(id, next_++); }
  void Remove(std::int32_t id) { order_.erase(id); }
  void Clear() { order_.clear(); }
  std::vector<std::int32_t> InOrder() const;

 private:
  std::unordered_map<std::int32_t, std::uint64_t> order_;
  std::uint64_t next_ = 0;
};

}  // namespace workbench
