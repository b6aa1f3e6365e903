// What a print preview needs of the printer behind it.
// Showing pages is the preview's own matter; choosing and printing are done by whoever has the
// printer.
#pragma once

#include <windows.h>

#include <string>

#include "print/paper.h"

namespace pricedown::windows {

// All members throw AutomationError; the preview shows it and goes on. Dialogs belong to `owner`,
// the preview's window, which may be gone when they return.
class PreviewPrinting {
 public:
  // The paper that pages are made for, as chosen, and what "&[日期]" stands for.
  virtual Paper CurrentPaper() = 0;
  virtual std::u16string Date() = 0;
  // Let the user print, or change the page set-up. The paper may be another one afterwards.
  virtual void Print(HWND owner) = 0;
  virtual void SetUpPage(HWND owner) = 0;

 protected:
  ~PreviewPrinting() = default;
};

}  // namespace pricedown::windows
