// Loading the class tree and handling a click on one of its nodes.
// Every step is on its own: one that fails is skipped and the next one runs.
#include "browser/class_tree.h"

#include <algorithm>
#include <optional>
#include <string>

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
constexpr std::size_t kPrefixLength = 2;

}  // namespace

std::u16string_view ClassNumberOfKey(std::u16string_view key) {
  return key.substr(std::min(key.size(), kPrefixLength));
}

void ClassTree::LoadClassTree() {
  environment_.state.loading = true;
  SkipFailing([&] { view_.SetRedraw(false); });
  SkipFailing([&] {
    if (nodes_.Count() == 0) return;
    nodes_.Clear();
    view_.ClearNodes();
  });
  if (state_.ByItemClass()) {
    LoadClasses();
  } else {
    SkipFailing([&] { AddNode(kNoNode, kRootKey, Translate(kRootText)); });
    SkipFailing([&] { state_.classRecordset.Close(); });
    state_.classRecordset.Release();
  }
  SkipFailing([&] { view_.SetRedraw(true); });
}

void ClassTree::LoadClasses() {
  // A failed query must not leave the earlier answer behind, whose rows would be added again.
  Recordset answer;
  SkipFailing([&] { answer = Connection(environment_.factory).Execute(statements::ClassTree()); });
  state_.classRecordset = answer;
  NodeIndex root = kNoNode;
  SkipFailing([&] { root = AddNode(kNoNode, kRootKey, Translate(kRootText)); });
  if (answer && root != kNoNode) SkipFailing([&] { AddClassNodes(root); });
}

// One row per member item arrives, in number order: a row that repeats the number before it is
// passed over here, any other repetition is refused by the node collection.
void ClassTree::AddClassNodes(NodeIndex root) {
  RowReader rows(state_.classRecordset, {columns::kItemClassNumber, columns::kItemClassName},
                 NullCells::AsEmptyText);
  std::u16string numberScratch;
  std::u16string nameScratch;
  std::u16string key;
  std::u16string text;
  bool hasKey = false;
  while (rows.Next()) {
    SkipFailing([&] {
      const std::u16string_view number = CellText(rows.Field(0), numberScratch);
      if (hasKey && ClassNumberOfKey(key) == number) return;
      hasKey = false;
      key.assign(kClassKeyPrefix).append(number);
      const std::u16string_view name = Trim(CellText(rows.Field(1), nameScratch));
      text.assign(number).append(u"(").append(name).append(u")");
      AddNode(root, key, text);
      hasKey = true;
    });
  }
}

NodeIndex ClassTree::AddNode(NodeIndex parent, std::u16string_view key, std::u16string_view text) {
  const NodeIndex index = nodes_.Add(parent, key, text);
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
  if (node < 1 || static_cast<std::size_t>(node) > nodes_.Count()) return;
  // A copy, because the grid load may let messages run that reload the tree.
  const std::u16string key = nodes_.At(node).key;
  const NodeIndex parent = nodes_.At(node).parent;
  state_.currentNodeKey = key;
  state_.busy = true;
  state_.nodeIndex = node;
  if (key.find(kClassKeyPrefix) != std::u16string::npos) {
    state_.classNodeIndex = node;
  } else {
    state_.classNodeIndex = node == 1 ? 1 : parent;
  }
  SkipFailing([&] { environment_.screen.SetMousePointer(MousePointer::Hourglass); });
  SkipFailing([&] { grid_.LoadItemGrid(key); });
  SkipFailing([&] { environment_.screen.SetMousePointer(MousePointer::Default); });
  state_.busy = false;
  SkipFailing([&] { environment_.screen.RunPendingMessages(); });
}

void ClassTree::SelectAndClick(std::u16string_view key) {
  const NodeIndex node = nodes_.Find(key);
  if (node == kNoNode) {
    throw AutomationError(ErrorNumber::InvalidArgument, Concatenate({u"没有该节点: ", key}),
                          u"tvwBase");
  }
  view_.SelectNode(node);
  NodeClick(node);
}

void ClassTree::RestoreSelection(std::u16string_view key) {
  const NodeIndex node = nodes_.Find(key);
  if (node == kNoNode) return;
  SkipFailing([&] { view_.SelectNode(node); });
  NodeClick(node);
}

void ClassTree::RefreshCurrentNode() {
  if (!state_.currentNodeKey) return;
  const std::u16string key = *state_.currentNodeKey;
  std::optional<WaitCursor> wait;
  SkipFailing([&] { wait.emplace(environment_.screen); });
  grid_.LoadItemGrid(key);
}

std::u16string ClassTree::SelectedKey() const {
  const NodeIndex node = view_.SelectedNode();
  if (node < 1 || static_cast<std::size_t>(node) > nodes_.Count()) return {};
  return nodes_.At(node).key;
}

}  // namespace pricedown
