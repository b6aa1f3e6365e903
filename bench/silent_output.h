// A print output without windows and printer.
#pragma once

#include "print/print_output.h"

namespace bench {

class SilentOutput final : public pricedown::PrintOutput {
 public:
  void Preview(pricedown::PrintDocument&) override {}
  void Print(const pricedown::PrintDocument&) override {}
};

}  // namespace bench
