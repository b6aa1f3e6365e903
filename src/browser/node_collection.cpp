// The rows of the tree, with an index of their keys.
#include "browser/node_collection.h"

#include <utility>

#include "platform/text.h"

namespace pricedown {
namespace {

constexpr std::u16string_view kRootKey = u"gc0";
constexpr std::u16string_view kClassKeyPrefix = u"gi";

}  // namespace

std::u16string NodeId::Key() const {
  return isRoot ? std::u16string(kRootKey) : Concatenate({kClassKeyPrefix, classNumber});
}

std::optional<NodeId> NodeId::OfKey(std::u16string_view key) {
  if (key == kRootKey) return NodeId{};
  if (!key.starts_with(kClassKeyPrefix)) return std::nullopt;
  return OfClass(key.substr(kClassKeyPrefix.size()));
}

NodeIndex NodeCollection::Add(NodeId id, std::u16string_view text) {
  const auto index = static_cast<NodeIndex>(nodes_.size() + 1);
  if (id.isRoot) {
    if (index != kRootNode) return kNoNode;
    nodes_.push_back({std::move(id), std::u16string(text)});
    return index;
  }
  const auto [place, isNew] = classes_.try_emplace(id.classNumber, index);
  if (!isNew) return kNoNode;
  try {
    nodes_.push_back({std::move(id), std::u16string(text)});
  } catch (...) {
    classes_.erase(place);
    throw;
  }
  return index;
}

void NodeCollection::RemoveLast() {
  if (const NodeId& id = nodes_.back().id; !id.isRoot) classes_.erase(id.classNumber);
  nodes_.pop_back();
}

void NodeCollection::Clear() {
  *this = NodeCollection();  // frees the memory, which clearing keeps
}

NodeIndex NodeCollection::Find(const NodeId& id) const {
  if (id.isRoot) return nodes_.empty() ? kNoNode : kRootNode;
  const auto found = classes_.find(id.classNumber);
  return found == classes_.end() ? kNoNode : found->second;
}

NodeIndex NodeCollection::FindKey(std::u16string_view key) const {
  const std::optional<NodeId> id = NodeId::OfKey(key);
  return id ? Find(*id) : kNoNode;
}

}  // namespace pricedown
