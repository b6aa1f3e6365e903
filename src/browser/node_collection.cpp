// The rows of the tree, with an index of their keys.
#include "browser/node_collection.h"

#include <algorithm>
#include <functional>

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
  MakeRoom();
  NodeIndex& slot = slots_[SlotOf(id.classNumber)];
  if (slot != kNoNode) return kNoNode;
  const std::u16string_view kept = texts_.Keep(text);
  // A class's text begins with its number.
  const std::u16string_view number = kept.starts_with(id.classNumber)
                                         ? kept.substr(0, id.classNumber.size())
                                         : texts_.Keep(id.classNumber);
  nodes_.push_back({number, kept});
  slot = index;
  return index;
}

// Where the class is, or would be added. Requires: a free slot.
std::size_t NodeCollection::SlotOf(std::u16string_view number) const {
  const std::size_t last = slots_.size() - 1;
  std::size_t slot = std::hash<std::u16string_view>()(number) & last;
  while (slots_[slot] != kNoNode && At(slots_[slot]).classNumber != number)
    slot = (slot + 1) & last;
  return slot;
}

// For one more class.
void NodeCollection::MakeRoom() {
  constexpr std::size_t kFewest = 64;
  if (2 * (nodes_.size() + 1) <= slots_.size()) return;
  std::vector<NodeIndex>(std::max(kFewest, 2 * slots_.size()), kNoNode).swap(slots_);
  // In the order of adding, on which RemoveLast relies.
  for (NodeIndex index = kRootNode + 1; Contains(index); ++index) {
    slots_[SlotOf(At(index).classNumber)] = index;
  }
}

NodeId NodeCollection::IdOf(NodeIndex index) const {
  return index == kRootNode ? NodeId() : NodeId::OfClass(At(index).classNumber);
}

void NodeCollection::RemoveLast() {
  // No class was added after it, so that none is found by way of its slot.
  if (nodes_.size() > 1) slots_[SlotOf(nodes_.back().classNumber)] = kNoNode;
  nodes_.pop_back();
}

void NodeCollection::Clear() {
  *this = NodeCollection();  // frees the memory, which clearing keeps
}

NodeIndex NodeCollection::Find(const NodeId& id) const {
  if (id.isRoot) return nodes_.empty() ? kNoNode : kRootNode;
  return slots_.empty() ? kNoNode : slots_[SlotOf(id.classNumber)];
}

NodeIndex NodeCollection::FindKey(std::u16string_view key) const {
  const std::optional<NodeId> id = NodeId::OfKey(key);
  return id ? Find(*id) : kNoNode;
}

}  // namespace pricedown
