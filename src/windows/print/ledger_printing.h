// Print as the user knows it: the dialog, the pages for the paper chosen in it, the job.
// The ledger's own command and the preview's button come here.
#pragma once

#include <windows.h>

#include <string>

#include "browser/print_document.h"
#include "platform/lifetime.h"
#include "windows/print/printer.h"

namespace pricedown::windows {

// What the field "&[日期]" stands for: today in the user's short form.
std::u16string TodayText();

// Lets the user choose and prints. False when the dialog was cancelled, or when the control
// has ended while it was open. A job that was called off halfway is no error. The paper of
// `printer` may be another one afterwards. Throws AutomationError.
bool PrintLedgerDocument(HINSTANCE module, HWND owner, const LedgerDocument& document,
                         Printer& printer, const Lifetime& lifetime);

}  // namespace pricedown::windows
