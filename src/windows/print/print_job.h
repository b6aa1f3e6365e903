// One print job: the chosen pages, handed to the printer one by one.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "print/print_order.h"
#include "print/print_pages.h"
#include "windows/print/device_measurer.h"
#include "windows/print/printer.h"

namespace pricedown::windows {

// Receives a job's progress and may cancel it.
class PrintWatcher {
 public:
  virtual ~PrintWatcher() = default;
  // Called before each sheet, from 1. False cancels the job.
  virtual bool Continue(std::int64_t sheet, std::int64_t count) = 0;
};

// Prints and returns when the spooler has all pages. False when the job was cancelled by the
// watcher, or by the user in a dialog of the printer's; then nothing is printed. Throws
// AutomationError when a call fails; the job is aborted then. Requires: there is a printer, and
// `pages` were made with `measurer` for its paper.
bool RunPrintJob(const Printer& printer, const PrintPages& pages, DeviceMeasurer& measurer,
                 const PrintOrder& order, PrintWatcher& watcher);

// What spoolers show a job as: in ASCII where the code page, which they use, lacks the characters.
std::wstring DocumentName(UINT codePage);

}  // namespace pricedown::windows
