// The current printer: which one, its set-up, and its paper.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

#include "print/paper.h"
#include "windows/print/print_system.h"

namespace pricedown::windows {

class Printer {
 public:
  // Both must outlive the printer.
  Printer(Spooler& spooler, PrintDialogs& dialogs) : spooler_(spooler), dialogs_(dialogs) {}
  Printer(const Printer&) = delete;
  Printer& operator=(const Printer&) = delete;

  // Uses the user's default printer as it is set up, unless a dialog has chosen one; there may be
  // none. One that does not report its paper has A4, so that its user can choose another.
  void UseDefault();
  // Forgets the choice of a dialog, as when the chosen printer has been removed.
  void Forget();
  bool Exists() const { return !setUp_.device.empty(); }
  const std::wstring& Name() const { return setUp_.device; }

  const Paper& CurrentPaper() const { return paper_.Current(); }
  // Sizes and margins from a dialog.
  void ChoosePaper(const Paper& paper) { paper_.Choose(paper); }

  // For the system's dialogs: movable memory that the dialog may change or replace, null without
  // a printer. The caller frees it. Throws std::bad_alloc.
  HGLOBAL CopyMode() const;
  HGLOBAL CopyNames() const;
  // Uses printer, set-up and paper that a dialog has left there; null changes nothing. The margins
  // stay. Throws AutomationError when the printer cannot be asked for its paper; then nothing is
  // changed.
  void Choose(HGLOBAL mode, HGLOBAL names);

  // A context to print on, on the current paper or on the same turned. Throws AutomationError.
  // Requires: there is a printer.
  PrinterContext Open(bool turned) const;
  Spooler& GetSpooler() const { return spooler_; }
  PrintDialogs& GetDialogs() const { return dialogs_; }

 private:
  struct SetUp {
    std::wstring device;
    std::wstring driver;
    std::wstring output;
    std::vector<std::byte> mode;  // DEVMODEW followed by the driver's data; may be empty
  };

  static SetUp Read(HGLOBAL mode, HGLOBAL names);
  void AskForPaper(const SetUp& setUp, PaperChoice& paper) const;
  PrinterContext OpenFor(PrinterUse use, const SetUp& setUp, bool turned) const;
  static std::vector<std::byte> ModeFor(const SetUp& setUp, bool turned);

  Spooler& spooler_;
  PrintDialogs& dialogs_;
  SetUp setUp_;
  PaperChoice paper_;
  bool chosen_ = false;
};

}  // namespace pricedown::windows
