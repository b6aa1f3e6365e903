// The system's page set-up dialog: paper, its direction and margins, and the printer's set-up.
#pragma once

#include <windows.h>

#include "windows/print/printer.h"

namespace pricedown::windows {

// Shows the dialog over `owner` and puts what was chosen into `printer`. False when the user has
// cancelled it; then nothing is changed. Throws AutomationError, also when the system offers no
// page set-up without a printer.
bool AskPageSetup(HWND owner, Printer& printer);

}  // namespace pricedown::windows
