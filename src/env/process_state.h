// Everything of the library that outlives a call and is shared by all its controls in a process.
// The module owns the one instance; state of a single control lives in the control.
#pragma once

#include <cstdint>
#include <string>

#include "platform/automation.h"

namespace pricedown {

struct ProcessState {
  std::int32_t currentYear = 0;
  std::int32_t currentPeriod = 0;
  // Whether both are those of the suite, as the last control's creation read them.
  bool periodKnown = false;
  // The first day of the current period and of the one that follows it, as the suite writes them.
  std::u16string periodStart;
  std::u16string followingPeriodStart;
  // 0, 1 or 2; 0 locks the item grid. Keeps its value when no scope is granted.
  std::int32_t dataScope = 0;
  // What the data scope was asked for: 10 or 11.
  std::int32_t objectType = 0;
  // Conditions on the item category; kept for the suite, nothing in the library reads them.
  std::u16string itemFilterAppended;
  std::u16string itemFilterAlone;
  // The user setting that remembers the selected node: "NodeSel1" or "NodeSel2".
  std::u16string treeSelectionKey;
  // Set while and after a load, cleared only when the grid load fails; nothing reads it.
  bool loading = false;
  // Handed to the item lookup; nothing changes it.
  bool shortNumber = false;
  // `ZEPEBCGLView.GLData` and `ZEPEBCGLView.GLView`, made on first use and kept until the last
  // control ends.
  ObjectPtr ledgerData;
  ObjectPtr ledgerView;
  // Controls alive.
  std::int32_t controls = 0;
};

}  // namespace pricedown
