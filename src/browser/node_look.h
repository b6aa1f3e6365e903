// How the class tree shows a node.
#pragma once

#include "browser/node_collection.h"

namespace pricedown {

// What the look of the nodes depends on; kNoNode for none.
struct TreeMarks {
  NodeIndex selected = kNoNode;
  NodeIndex marked = kNoNode;  // clicked last
  NodeIndex found = kNoNode;
  bool focused = false;  // the tree has the focus
};

// Plain is the system's own look, also that of a selected node.
enum class NodeLook { Plain, Found, Current };

// The class whose items are shown is marked also without the focus, and while a reload has left
// none selected. Requires: a node.
constexpr NodeLook LookOf(NodeIndex node, const TreeMarks& marks) {
  if (node == marks.found) return NodeLook::Found;
  const bool current =
      marks.selected == kNoNode ? node == marks.marked : node == marks.selected && !marks.focused;
  return current ? NodeLook::Current : NodeLook::Plain;
}

}  // namespace pricedown
