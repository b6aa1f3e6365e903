// What the browser keeps between calls, per control: mode, recordsets, the current node.
// Values shared by all controls are env/process_state.h.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "browser/node_collection.h"
#include "platform/recordset.h"

namespace pricedown {

struct BrowserState {
  // 1: provisions are kept by item class; any other value: by item.
  std::int16_t itemClassType = 0;
  // Full item codes are shown, short ones otherwise.
  bool fullNumber = true;
  // The answers of the last tree query and the last grid query, kept open until the next.
  Recordset classRecordset;
  Recordset itemRecordset;
  // Rows of the grid when it was last handed to the editor; nothing reads it.
  std::int32_t editedRowCount = 0;
  // The node that was clicked last, by key, so that a reload of the tree leaves no stale node.
  std::optional<std::u16string> currentNodeKey;
  NodeIndex nodeIndex = kNoNode;
  NodeIndex classNodeIndex = kNoNode;
  // Stands left in the last line of the page header. Nothing sets it yet.
  std::u16string reportSubTitle;
  // A node click is being handled.
  bool busy = false;

  bool ByItemClass() const { return itemClassType == 1; }
};

}  // namespace pricedown
