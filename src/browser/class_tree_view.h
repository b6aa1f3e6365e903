// What the class tree needs of the window that shows it.
// The window decides nothing: clicks are reported to ClassTree by node index.
#pragma once

#include <string_view>

#include "browser/node_collection.h"

namespace pricedown {

class ClassTreeView {
 public:
  virtual ~ClassTreeView() = default;
  virtual void ClearNodes() = 0;
  // Nodes arrive in the order of their indexes, behind their siblings, all with the first image of
  // the tree's list, and the second while selected; `parent` is kNoNode for the root.
  virtual void InsertNode(NodeIndex index, NodeIndex parent, std::u16string_view text) = 0;
  // Marks the node selected and makes it visible; reports no click.
  virtual void SelectNode(NodeIndex index) = 0;
  // kNoNode when none is selected.
  virtual NodeIndex SelectedNode() const = 0;
  // Around the insertion of many nodes: no drawing in between.
  virtual void SetRedraw(bool redraw) = 0;
};

}  // namespace pricedown
