// A print control without windows and printer. It keeps its contents, as a real ledger does.
#pragma once

#include "browser/print_document.h"

namespace bench {

class SilentLedger final : public pricedown::LedgerDocument {
 public:
  void Preview() override {}
  void Print() override {}
};

}  // namespace bench
