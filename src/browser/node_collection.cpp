// Nodes by index and by key, in step.
// What a refused key means is decided by whoever adds nodes.
#include "browser/node_collection.h"

namespace pricedown {

NodeIndex NodeCollection::Add(NodeIndex parent, std::u16string_view key, std::u16string_view text) {
  const auto index = static_cast<NodeIndex>(nodes_.size() + 1);
  const auto [place, isNew] = indexes_.try_emplace(std::u16string(key), index);
  if (!isNew) return kNoNode;
  try {
    nodes_.push_back({std::u16string(key), std::u16string(text), parent});
  } catch (...) {
    indexes_.erase(place);
    throw;
  }
  return index;
}

void NodeCollection::RemoveLast() {
  indexes_.erase(nodes_.back().key);
  nodes_.pop_back();
}

void NodeCollection::Clear() {
  nodes_.clear();
  indexes_.clear();
}

NodeIndex NodeCollection::Find(std::u16string_view key) const {
  const auto found = indexes_.find(key);
  return found == indexes_.end() ? kNoNode : found->second;
}

}  // namespace pricedown
