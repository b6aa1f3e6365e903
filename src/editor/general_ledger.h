// The suite's general-ledger view, which shows the account and item pickers.
#pragma once

#include "env/environment.h"

namespace pricedown {

// Created on first use and kept for the process. Hold it for the whole call: the last control may
// end inside a picker. Throws AutomationError.
inline ObjectPtr GeneralLedger(Environment& environment) {
  ObjectPtr& view = environment.state.ledgerView;
  if (view == nullptr) view = environment.factory.Create(u"ZEPEBCGLView.GLView");
  return view;
}

}  // namespace pricedown
