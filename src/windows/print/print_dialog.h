// The system's print dialog: which printer, which pages, how many copies.
// Printing them is print_job's.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>

#include "windows/print/printer.h"

namespace pricedown::windows {

struct PrintChoice {
  // Pages from 1, both included.
  std::int32_t first = 1;
  std::int32_t last = 1;
  std::int32_t copies = 1;
  bool collated = true;  // whole copies one behind the other
};

// Shows the dialog over `owner` for that many pages, and puts printer and set-up into `printer`.
// Nothing when the user has cancelled it; then nothing is changed. The set-up may have changed the
// paper, and so the number of pages: a choice of all pages has the largest `last` there is. Throws
// AutomationError, also when there is no printer.
std::optional<PrintChoice> AskPrint(HWND owner, Printer& printer, std::int32_t pageCount);

}  // namespace pricedown::windows
