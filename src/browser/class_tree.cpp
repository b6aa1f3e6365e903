// The loading of the class tree and its clicks. Every step runs even if the one before it failed.
#include "browser/class_tree.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "env/translation.h"
#include "env/wait_cursor.h"
#include "platform/cell_text.h"
#include "platform/error.h"
#include "platform/row_reader.h"
#include "platform/skip.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {
namespace {

constexpr std::u16string_view kRootText = u"物料";

}  // namespace

void ClassTree::LoadClassTree() {
  const std::uint32_t load = ++lastLoad_;
  SkipFailing([&] { view_.SetRedraw(false); });
  SkipFailing([&] {
    if (nodes_.Count() == 0) return;
    nodes_.Clear();
    view_.ClearNodes();
  });
  if (state_.ByItemClass()) {
    LoadClasses(load);
  } else {
    SkipFailing([&] { AddNode({}, Translate(kRootText)); });
    SkipFailing([&] { state_.classRecordset.Close(); });
    state_.classRecordset.Release();
  }
  if (!IsCurrent(load)) return;
  SkipFailing([&] { MarkCurrentNode(); });
  SkipFailing([&] { view_.SetRedraw(true); });
  SkipFailing([&] {
    if (loaded_) loaded_();
  });
}

void ClassTree::MarkCurrentNode() {
  NodeIndex node = state_.currentNode ? nodes_.Find(*state_.currentNode) : kNoNode;
  // Another number or deleted since.
  if (node == kNoNode) node = std::min(marked_, static_cast<NodeIndex>(nodes_.Count()));
  marked_ = node;
  view_.MarkNode(node);
}

void ClassTree::LoadClasses(std::uint32_t load) {
  // A failed query must drop the earlier result, whose rows would be added again.
  Recordset answer;
  SkipFailing([&] { answer = Connection(environment_.factory).Execute(statements::ClassTree()); });
  // Each call to the suite may run messages, which end the control or load the tree again.
  if (!IsCurrent(load)) return;
  state_.classRecordset = answer;
  NodeIndex root = kNoNode;
  SkipFailing([&] { root = AddNode({}, Translate(kRootText)); });
  if (answer && root != kNoNode) SkipFailing([&] { AddClassNodes(load); });
}

// One row per member item arrives, in number order: a row that repeats the number before it is
// skipped here; the node collection refuses any other repetition.
void ClassTree::AddClassNodes(std::uint32_t load) {
  RowReader rows(state_.classRecordset, {columns::kItemClassNumber, columns::kItemClassName},
                 NullCells::AsEmptyText);
  std::u16string numberScratch;
  std::u16string nameScratch;
  std::optional<std::u16string> lastNumber;
  while (rows.Next() && IsCurrent(load)) {
    SkipFailing([&] {
      const std::u16string_view number = CellText(rows.Field(0), numberScratch);
      if (lastNumber == number) return;
      lastNumber.reset();
      const std::u16string_view name = Trim(CellText(rows.Field(1), nameScratch));
      if (!IsCurrent(load)) return;
      AddNode(NodeId::OfClass(number), Concatenate({number, u"(", name, u")"}));
      lastNumber = number;
    });
  }
}

NodeIndex ClassTree::AddNode(const NodeId& id, std::u16string_view text) {
  const NodeIndex parent = id.isRoot ? kNoNode : kRootNode;
  const NodeIndex index = nodes_.Add(id, text);
  if (index == kNoNode) return kNoNode;
  try {
    view_.InsertNode(index, parent, text);
  } catch (...) {
    nodes_.RemoveLast();
    throw;
  }
  return index;
}

void ClassTree::NodeClick(NodeIndex node) {
  if (!nodes_.Contains(node)) return;
  // A copy, because the grid load may let messages run that reload the tree.
  const NodeId id = nodes_.IdOf(node);
  state_.currentNode = id;
  marked_ = node;
  SkipFailing([&] { view_.MarkNode(node); });
  {
    const WaitCursor wait(environment_.screen);
    SkipFailing([&] { grid_.LoadItemGrid(id.classNumber); });
  }
  SkipFailing([&] { environment_.screen.RunPendingMessages(); });
  // The messages may have ended the control, or handled a click on another node.
  if (environment_.lifetime.HasEnded() || state_.currentNode != id || notified_ == id) return;
  notified_ = id;
  environment_.Notify(&HostEvents::SelectionChanged,
                      id.isRoot ? std::u16string_view() : std::u16string_view(id.classNumber));
}

void ClassTree::SelectRoot() {
  if (nodes_.Count() == 0) {
    throw AutomationError(ErrorNumber::InvalidArgument,
                          Concatenate({u"没有该节点: ", NodeId{}.Key()}), u"tvwBase");
  }
  view_.SelectNode(kRootNode);
  NodeClick(kRootNode);
}

void ClassTree::Select(NodeIndex node) {
  // The caller may have set the focus, in which a host may end the control.
  if (environment_.lifetime.HasEnded() || !nodes_.Contains(node)) return;
  SkipFailing([&] { view_.SelectNode(node); });
  NodeClick(node);
}

void ClassTree::RestoreSelection(std::u16string_view key) { Select(nodes_.FindKey(key)); }

void ClassTree::RefreshCurrentNode() {
  if (!state_.currentNode) return;
  const std::u16string number = state_.currentNode->classNumber;
  const WaitCursor wait(environment_.screen);
  grid_.LoadItemGrid(number);
}

std::u16string ClassTree::SelectedKey() const {
  const NodeIndex node = view_.SelectedNode();
  return nodes_.Contains(node) ? nodes_.IdOf(node).Key() : std::u16string();
}

}  // namespace pricedown
