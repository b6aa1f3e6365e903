// The view's print control `ldgPara` on this system: its preview window and its printer.
// What is printed comes with the document; the windows are the preview's and the dialogs'.
#pragma once

#include <windows.h>

#include <string>

#include "browser/print_document.h"
#include "windows/base/command_window.h"
#include "windows/print/preview_dialog.h"
#include "windows/print/preview_printing.h"
#include "windows/print/print_system.h"
#include "windows/print/printer.h"

namespace pricedown::windows {

// A printer and a page set-up that the user has chosen last as long as the ledger.
class WindowsLedger final : public LedgerDocument, private PreviewPrinting {
 public:
  // Windows are shown over the top-level window around `window`, which must outlive the ledger.
  WindowsLedger(HINSTANCE module, const CommandWindow& window)
      : module_(module), window_(window), preview_(module, *this, *this) {}

  // PrintLedger. Both run messages; the ledger must live until they return.
  void Preview() override;
  void Print() override;

  // Closes the preview, as when the control ends below it. Harmless when nothing is shown.
  // A print dialog that is still open prints nothing any more.
  void Close() noexcept {
    ended_ = true;
    preview_.Close();
  }

 private:
  // PreviewPrinting
  Paper CurrentPaper() override { return printer_.ChosenPaper(); }
  std::u16string Date() override;
  void Print(HWND owner) override;
  void SetUpPage(HWND owner) override;

  HINSTANCE module_;
  const CommandWindow& window_;
  bool ended_ = false;
  Spooler spooler_;
  PrintDialogs dialogs_;
  Printer printer_{spooler_, dialogs_};
  PreviewDialog preview_;
};

}  // namespace pricedown::windows
