// The state shared by the controls of one thread; the module owns it.
#pragma once

#include <cstdint>
#include <string>

#include "platform/automation.h"

namespace pricedown {

struct ThreadState {
  std::int32_t currentYear = 0;
  std::int32_t currentPeriod = 0;
  // Whether both are those of the suite, as the last control's creation read them.
  bool periodKnown = false;
  // The first day of the current period and of the one that follows it, as the suite writes them.
  // Nothing reads them; the suite sees the calls, and their failure fails the creation.
  std::u16string periodStart;
  std::u16string followingPeriodStart;
  // 0, 1 or 2; 0 locks the item grid. Keeps its value when no scope is granted.
  std::int32_t dataScope = 0;
  // The object type of the data scope: 10 or 11.
  std::int32_t objectType = 0;
  // `ZEPEBCGLView.GLData` and `ZEPEBCGLView.GLView`, created on first use and kept until the last
  // control ends.
  ObjectPtr ledgerData;
  ObjectPtr ledgerView;
  // Living controls.
  std::int32_t controls = 0;

  // Releases the ledger objects unless a control still lives.
  void ReleaseUnusedLedger() {
    if (controls > 0) return;
    ledgerData.reset();
    ledgerView.reset();
  }
};

}  // namespace pricedown
