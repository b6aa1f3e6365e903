// The rows of the tree, with an index of their keys.
#include "browser/node_collection.h"

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

NodeIndex NodeCollection::Add(const NodeId& id, std::u16string_view text) {
  const auto index = static_cast<NodeIndex>(nodes_.size() + 1);
  if (id.isRoot) {
    if (index != kRootNode) return kNoNode;
    nodes_.push_back({{}, texts_.Keep(text)});
    return index;
  }
  if (classes_.contains(id.classNumber)) return kNoNode;
  const std::u16string_view kept = texts_.Keep(text);
  // A class's text begins with its number.
  const std::u16string_view number = kept.starts_with(id.classNumber)
                                         ? kept.substr(0, id.classNumber.size())
                                         : texts_.Keep(id.classNumber);
  nodes_.push_back({number, kept});
  try {
    classes_.emplace(number, index);
  } catch (...) {
    nodes_.pop_back();
    throw;
  }
  return index;
}

NodeId NodeCollection::IdOf(NodeIndex index) const {
  return index == kRootNode ? NodeId() : NodeId::OfClass(At(index).classNumber);
}

void NodeCollection::RemoveLast() {
  if (nodes_.size() > 1) classes_.erase(nodes_.back().classNumber);
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
