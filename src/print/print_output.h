// The port through which a document is previewed and printed.
#pragma once

#include "print/print_document.h"

namespace pricedown {

// Both members show windows and run messages, so that their caller's owner may have ended when
// they return. Throw AutomationError. Requires: the document's table and lines do not change
// meanwhile.
class PrintOutput {
 public:
  virtual ~PrintOutput() = default;
  // Shows the pages and returns when the user has closed them. The user may change the font.
  virtual void Preview(PrintDocument& document) = 0;
  // Returns when the printer's system has all pages, or when the user has cancelled.
  virtual void Print(const PrintDocument& document) = 0;
};

}  // namespace pricedown
