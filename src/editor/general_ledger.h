// The suite's general-ledger view, which shows the account and item pickers.
#pragma once

#include "env/environment.h"

namespace pricedown {

// Created on first use and kept until the thread's last control ends, which may happen inside a
// picker: hold it for the whole call. Throws AutomationError.
inline ObjectPtr GeneralLedger(Environment& environment) {
  ObjectPtr& view = environment.state.ledgerView;
  if (view == nullptr) view = environment.factory.Create(u"ZEPEBCGLView.GLView");
  return view;
}

}  // namespace pricedown
