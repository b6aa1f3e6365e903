// The class tree `tvwBase`: loading it, its keys, and what a click on a node does.
// The items of a node are item_grid.h; the window is a ClassTreeView.
#pragma once

#include <string_view>

#include "browser/browser_state.h"
#include "browser/class_tree_view.h"
#include "browser/item_grid.h"
#include "env/environment.h"

namespace pricedown {

inline constexpr std::u16string_view kRootKey = u"gc0";
inline constexpr std::u16string_view kClassKeyPrefix = u"gi";

// The class number in a node key: everything from the third character on ("0" for the root).
std::u16string_view ClassNumberOfKey(std::u16string_view key);

class ClassTree {
 public:
  ClassTree(Environment& environment, BrowserState& state, ClassTreeView& view, ItemGrid& grid)
      : environment_(environment), state_(state), view_(view), grid_(grid) {}

  // Clears and refills the tree; failing steps are skipped, a failed query leaves the root alone.
  void LoadClassTree();

  // What a click on a node does: makes it current and fills the grid. Failing steps are skipped.
  // Nothing happens for kNoNode.
  void NodeClick(NodeIndex node);

  // Selects the node with that key and handles it as clicked. Throws AutomationError when there is
  // none or it cannot be selected.
  void SelectAndClick(std::u16string_view key);

  // The same with failing steps skipped; nothing happens when there is no such node.
  void RestoreSelection(std::u16string_view key);

  // Fills the grid again for the node that was clicked last, if there was one; the tree need not
  // hold it any more.
  void RefreshCurrentNode();

  // The key of the node selected in the view; empty when none is.
  std::u16string SelectedKey() const;

  const NodeCollection& Nodes() const { return nodes_; }

 private:
  void LoadClasses();
  void AddClassNodes(NodeIndex root);
  // kNoNode when the key is taken. Throws when the view fails; then nothing is added.
  NodeIndex AddNode(NodeIndex parent, std::u16string_view key, std::u16string_view text);

  Environment& environment_;
  BrowserState& state_;
  ClassTreeView& view_;
  ItemGrid& grid_;
  NodeCollection nodes_;
};

}  // namespace pricedown
