// What a print preview needs from the printer.
#pragma once

#include <windows.h>

#include <string>

#include "print/paper.h"
#include "print/print_document.h"

namespace pricedown::windows {

// All members throw AutomationError, which the preview shows. Dialogs belong to `owner`, the
// preview's window, which may be destroyed when they return.
class PreviewPrinting {
 public:
  // The paper that pages are made for, and the value of "&[日期]".
  virtual Paper CurrentPaper() = 0;
  virtual std::u16string Date() = 0;
  // Let the user print, or change the page set-up. The paper may be another one afterwards.
  virtual void Print(HWND owner, const PrintDocument& document) = 0;
  virtual void SetUpPage(HWND owner) = 0;

 protected:
  ~PreviewPrinting() = default;
};

}  // namespace pricedown::windows
