// The nodes of the class tree: one root and its children, each with a key of its own.
// It draws nothing; the tree view shows what is inserted here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace pricedown {

// Position of a node in the collection, from 1 in the order of adding; 0 is no node.
using NodeIndex = std::int32_t;
inline constexpr NodeIndex kNoNode = 0;

struct TreeNode {
  std::u16string key;
  std::u16string text;
  NodeIndex parent = kNoNode;
};

class NodeCollection {
 public:
  // The new node's index, or kNoNode when a node has that key already (compared exactly).
  // Requires: `parent` is kNoNode or the index of a node.
  NodeIndex Add(NodeIndex parent, std::u16string_view key, std::u16string_view text);
  // Takes back the node that was added last. Requires: Count() > 0.
  void RemoveLast();
  void Clear();

  std::size_t Count() const { return nodes_.size(); }
  // Requires: 1 <= index <= Count().
  const TreeNode& At(NodeIndex index) const { return nodes_[static_cast<std::size_t>(index) - 1]; }
  // The node with that key, or kNoNode.
  NodeIndex Find(std::u16string_view key) const;

 private:
  struct KeyHash {
    using is_transparent = void;
    std::size_t operator()(std::u16string_view key) const {
      return std::hash<std::u16string_view>{}(key);
    }
  };

  std::vector<TreeNode> nodes_;
  std::unordered_map<std::u16string, NodeIndex, KeyHash, std::equal_to<>> indexes_;
};

}  // namespace pricedown
