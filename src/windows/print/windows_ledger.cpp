// Each command first looks at which printer is the user's now.
// A preview without a printer shows A4.
#include "windows/print/windows_ledger.h"

#include "windows/print/ledger_printing.h"
#include "windows/print/page_setup_dialog.h"

namespace pricedown::windows {

void WindowsLedger::Preview() {
  printer_.UseDefault();
  preview_.ShowModal(window_.DialogOwner());
}

void WindowsLedger::Print() { Print(window_.DialogOwner()); }

std::u16string WindowsLedger::Date() { return TodayText(); }

void WindowsLedger::Print(HWND owner) {
  PrintLedgerDocument(module_, owner, *this, printer_, lifetime_);
}

void WindowsLedger::SetUpPage(HWND owner) { AskPageSetup(owner, printer_); }

}  // namespace pricedown::windows
