// The class tree `tvwBase`: loading it and what a click on a node does.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <utility>

#include "browser/browser_state.h"
#include "browser/class_tree_view.h"
#include "browser/item_grid.h"
#include "env/environment.h"

namespace pricedown {

class ClassTree {
 public:
  ClassTree(Environment& environment, BrowserState& state, ClassTreeView& view, ItemGrid& grid)
      : environment_(environment), state_(state), view_(view), grid_(grid) {}

  // Clears and refills the tree; failing steps are skipped, a failed query leaves the root alone.
  void LoadClassTree();
  // Called at the end of each load; its failure is skipped.
  void OnLoaded(std::function<void()> handler) { loaded_ = std::move(handler); }

  // Handles a click on a node: makes it the current one and fills the grid. Failing steps are
  // skipped; no-op for kNoNode.
  void NodeClick(NodeIndex node);

  // Selects the root and handles it as clicked. Throws AutomationError when there is none or it
  // cannot be selected.
  void SelectRoot();

  // Selects the node and handles it as clicked. Failing steps are skipped; no-op when there is no
  // such node, or after the control's end.
  void Select(NodeIndex node);
  // Select of the node with that key.
  void RestoreSelection(std::u16string_view key);

  // Fills the grid again for the node that was clicked last, if there was one, even when the tree
  // has lost it.
  void RefreshCurrentNode();

  // The key of the node selected in the view; empty when none is.
  std::u16string SelectedKey() const;

  const NodeCollection& Nodes() const { return nodes_; }
  // The node marked in the view; kNoNode when there is none.
  NodeIndex MarkedNode() const { return marked_; }

 private:
  // False once the control has ended or another load has begun.
  bool IsCurrent(std::uint32_t load) const {
    return load == lastLoad_ && !environment_.lifetime.HasEnded();
  }
  void LoadClasses(std::uint32_t load);
  void AddClassNodes(std::uint32_t load);
  // Marks the current node; when it is no longer in the tree, the one in its place.
  void MarkCurrentNode();
  // kNoNode when the node exists already. Throws when the view fails; then nothing is added.
  NodeIndex AddNode(const NodeId& id, std::u16string_view text);

  Environment& environment_;
  BrowserState& state_;
  ClassTreeView& view_;
  ItemGrid& grid_;
  NodeCollection nodes_;
  NodeIndex marked_ = kNoNode;
  std::uint32_t lastLoad_ = 0;
  std::optional<NodeId> notified_;  // the selection last reported to the host
  std::function<void()> loaded_;
};

}  // namespace pricedown
