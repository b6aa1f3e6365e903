// The printer that the ledger prints on: which one, its set-up, and the paper that this gives.
// Choosing is the dialogs' matter, printing print_job's.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "print/paper.h"
#include "windows/print/print_system.h"

namespace pricedown::windows {

// The paper, with the strips at its edges that cannot be printed on as margins, rounded up.
// A printer that tells no sizes has A4 without such strips.
Paper PaperOf(const PrinterDots& dots);

// Requires: what it is made of outlives it.
class Printer {
 public:
  Printer(Spooler& spooler, PrintDialogs& dialogs) : spooler_(spooler), dialogs_(dialogs) {}
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;

  // Takes the user's default printer as it is set up, unless a dialog has chosen one; none when
  // there is none. One that does not tell its paper has A4, so that its user can choose another.
  void UseDefault();
  // Like one that no dialog has chosen, as when the chosen one has gone.
  void Forget();
  bool IsThere() const { return !setUp_.device.empty(); }
  const std::wstring& Name() const { return setUp_.device; }

  // As chosen, upright or turned. A4 with margins of 2 cm until something else is known. Margins
  // are never less than what the printer cannot print on, whichever way the paper is turned.
  const Paper& ChosenPaper() const { return setUp_.paper; }
  // Sizes and margins from a dialog.
  void ChoosePaper(const Paper& paper);

  // For the system's dialogs: movable memory that the dialog may change or replace, null without
  // a printer. The caller frees it. Throws std::bad_alloc.
  HGLOBAL CopyMode() const;
  HGLOBAL CopyNames() const;
  // Takes printer, set-up and paper from what a dialog has left there; null leaves all as it is.
  // The margins stay. Throws AutomationError when the printer cannot be asked for its paper; then
  // nothing is changed.
  void Choose(HGLOBAL mode, HGLOBAL names);

  // A context to print on, on the chosen paper or on the same turned. Throws AutomationError.
  // Requires: there is a printer.
  PrinterContext Open(bool turned) const;
  Spooler& GetSpooler() const { return spooler_; }
  PrintDialogs& GetDialogs() const { return dialogs_; }

 private:
  struct SetUp {
    std::wstring device;
    std::wstring driver;
    std::wstring output;
    std::vector<std::byte> mode;  // DEVMODEW with the driver's data behind it; may be empty
    Paper paper;
    PageBox unprintable;  // upright and turned alike
  };

  SetUp Read(HGLOBAL mode, HGLOBAL names) const;
  void AskForPaper(SetUp& setUp) const;
  PrinterContext OpenFor(PrinterUse use, const SetUp& setUp, bool turned) const;
  static std::vector<std::byte> ModeFor(const SetUp& setUp, bool turned);

  Spooler& spooler_;
  PrintDialogs& dialogs_;
  SetUp setUp_;
  bool chosen_ = false;
  bool marginsChosen_ = false;
};

}  // namespace pricedown::windows
