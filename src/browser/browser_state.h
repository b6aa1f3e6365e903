// What the browser keeps between calls, per control: mode, recordsets, the current node.
#pragma once

#include <cstdint>
#include <optional>

#include "browser/node_collection.h"
#include "platform/recordset.h"

namespace pricedown {

struct BrowserState {
  // 1: provisions are kept by item class; any other value: by item.
  std::int16_t itemClassType = 0;
  // Full item codes are shown, short ones otherwise.
  bool fullNumber = true;
  // The results of the last tree query and the last grid query, kept open until the next.
  Recordset classRecordset;
  Recordset itemRecordset;
  // The node that was clicked last; it may no longer be in the tree.
  std::optional<NodeId> currentNode;

  bool ByItemClass() const { return itemClassType == 1; }
};

}  // namespace pricedown
