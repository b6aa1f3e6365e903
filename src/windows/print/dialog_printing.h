// Printing with the system dialog: the dialog, the pages for the paper chosen in it, the job.
#pragma once

#include <windows.h>

#include <string>

#include "platform/lifetime.h"
#include "print/print_document.h"
#include "windows/print/printer.h"

namespace pricedown::windows {

// The value of the field "&[日期]": today in the user's short form. Throws AutomationError.
std::u16string TodayText();

// Lets the user choose and prints. False when the dialog was cancelled, or when the control has
// ended while it was open. A job that was cancelled halfway is no error. The paper of `printer`
// may be another one afterwards. Throws AutomationError.
bool PrintWithDialog(HINSTANCE module, HWND owner, const PrintDocument& document, Printer& printer,
                     const Lifetime& lifetime);

}  // namespace pricedown::windows
