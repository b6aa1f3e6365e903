// The system's print dialog: which printer, which pages, how many copies.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "print/print_order.h"
#include "windows/print/printer.h"

namespace pricedown::windows {

// Shows the dialog over `owner` for that many pages, and puts printer and set-up into `printer`.
// Nothing when the user has cancelled it; then nothing is changed. The set-up may have changed the
// paper, and so the number of pages. Throws AutomationError, also when there is no printer.
std::optional<PrintChoice> AskPrint(HWND owner, Printer& printer, std::int32_t pageCount);

}  // namespace pricedown::windows
