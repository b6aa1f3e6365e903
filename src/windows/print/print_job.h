// One print job: the pages chosen, handed to the printer one by one.
// What is on them was laid out before; which ones are chosen is the dialog's.
#pragma once

#include <windows.h>

#include <cstdint>

#include "print/ledger_pages.h"
#include "windows/print/device_measurer.h"
#include "windows/print/print_dialog.h"
#include "windows/print/printer.h"

namespace pricedown::windows {

// The sheets of a job in the order in which they are printed.
class PrintOrder {
 public:
  // Pages that there are not are left out; no sheet is left when there are none.
  PrintOrder(const PrintChoice& choice, std::int32_t pageCount);
  std::int64_t SheetCount() const { return std::int64_t{pages_} * copies_; }
  // The page on a sheet. Requires: `sheet` is from 0 to below SheetCount().
  std::int32_t PageOn(std::int64_t sheet) const;

 private:
  std::int32_t first_ = 1;
  std::int32_t pages_ = 0;
  std::int32_t copies_ = 1;
  bool collated_ = true;
};

// How far a job is, and whether the user still wants it.
class PrintWatcher {
 public:
  virtual ~PrintWatcher() = default;
  // Before each sheet, which counts from 1. False to call the job off.
  virtual bool Continue(std::int64_t sheet, std::int64_t count) = 0;
};

// Prints and returns when the printer's system has taken all. False when the job was called off by
// the watcher, or by the user in a dialog of the printer's; then nothing is printed. Throws
// AutomationError when a call fails; the job is aborted then. Requires: there is a printer, and
// `pages` were made with `measurer` for its paper.
bool RunPrintJob(const Printer& printer, const LedgerPages& pages, DeviceMeasurer& measurer,
                 const PrintOrder& order, PrintWatcher& watcher);

}  // namespace pricedown::windows
