// The nodes of the class tree: the root and its children, one per class.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text_arena.h"

namespace pricedown {

// Position of a node in the collection, from 1 in the order of adding; 0 is no node.
using NodeIndex = std::int32_t;
inline constexpr NodeIndex kNoNode = 0;
inline constexpr NodeIndex kRootNode = 1;

// What a node stands for. Stays the same when the tree is reloaded, which an index does not.
struct NodeId {
  bool isRoot = true;
  // The class whose items the node lists. The root lists those of a class numbered 0.
  std::u16string classNumber = u"0";

  static NodeId OfClass(std::u16string_view number) { return {false, std::u16string(number)}; }
  // The key under which user settings keep a node: "gc0" for the root, "gi" and the number for a
  // class.
  std::u16string Key() const;
  // The node of such a key; empty for any other text.
  static std::optional<NodeId> OfKey(std::u16string_view key);

  bool operator==(const NodeId&) const = default;
};

class NodeCollection {
 public:
  // The new node's index, or kNoNode when that node exists already (class numbers are compared
  // exactly). Requires: the root comes first.
  NodeIndex Add(const NodeId& id, std::u16string_view text);
  // Removes the node that was added last. Requires: Count() > 0.
  void RemoveLast();
  void Clear();

  std::size_t Count() const { return nodes_.size(); }
  bool Contains(NodeIndex index) const {
    return index >= kRootNode && static_cast<std::size_t>(index) <= nodes_.size();
  }
  // Require: Contains(index).
  NodeId IdOf(NodeIndex index) const;
  std::u16string_view TextOf(NodeIndex index) const { return At(index).text; }
  // kNoNode when there is none.
  NodeIndex Find(const NodeId& id) const;
  NodeIndex FindKey(std::u16string_view key) const;

 private:
  // Both texts are in the arena.
  struct Node {
    std::u16string_view classNumber;  // the root's is empty
    std::u16string_view text;
  };

  const Node& At(NodeIndex index) const { return nodes_[static_cast<std::size_t>(index) - 1]; }
  std::size_t SlotOf(std::u16string_view number) const;
  void MakeRoom();

  TextArena texts_;
  std::deque<Node> nodes_;  // which grows without a copy of all nodes
  // The classes by the hash of their number: four bytes each instead of a block of memory. A power
  // of two of slots, at most half of them used.
  std::vector<NodeIndex> slots_;
};

}  // namespace pricedown
