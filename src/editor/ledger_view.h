// The suite's general-ledger view, which shows the account and item pickers.
// What the pickers are asked for is in account_lookup and item_lookup.
#pragma once

#include "env/environment.h"

namespace pricedown {

// Made on first use and kept for the process. A caller holds it for its call: the last control may
// end inside a picker. Throws AutomationError.
inline ObjectPtr LedgerView(Environment& environment) {
  ObjectPtr& view = environment.state.ledgerView;
  if (view == nullptr) view = environment.factory.Create(u"ZEPEBCGLView.GLView");
  return view;
}

}  // namespace pricedown
