// The port to the window of the class tree.
#pragma once

#include <string_view>

#include "browser/node_collection.h"

namespace pricedown {

// Without a window nodes are ignored. Throws std::bad_alloc, and AutomationError for a node that
// the system cannot insert.
class ClassTreeView {
 public:
  virtual ~ClassTreeView() = default;
  // The first visible position is kept for the nodes that are inserted next.
  virtual void ClearNodes() = 0;
  // Appends a node after its siblings, in the order of the indexes, with the first image of the
  // tree's list and the second while selected. `parent` is kNoNode for the root.
  virtual void InsertNode(NodeIndex index, NodeIndex parent, std::u16string_view text) = 0;
  // Selects the node and makes it visible; reports no click.
  virtual void SelectNode(NodeIndex index) = 0;
  // kNoNode when none is selected.
  virtual NodeIndex SelectedNode() const = 0;
  // The node that the user last worked with, so that it is seen and keys start from it while none
  // is selected; selects nothing. kNoNode for none.
  virtual void MarkNode(NodeIndex index) = 0;
  // Off while many nodes are inserted.
  virtual void SetRedraw(bool redraw) = 0;
};

}  // namespace pricedown
