// The view's print control `ldgPara` on this system: its preview window and its printer.
// What is printed comes with the document; the windows are the preview's and the dialogs'.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

#include "browser/print_document.h"
#include "platform/lifetime.h"
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
  // `lifetime` is the control's.
  WindowsLedger(HINSTANCE module, const CommandWindow& window, Lifetime lifetime)
      : module_(module),
        window_(window),
        lifetime_(std::move(lifetime)),
        preview_(module, *this, *this) {}

  // PrintLedger. Both run messages; the ledger must live until they return.
  void Preview() override;
  void Print() override;

  // Closes the preview, as when the control ends below it. A no-op when nothing is shown.
  void Close() noexcept { preview_.Close(); }

 private:
  // PreviewPrinting
  Paper CurrentPaper() override { return printer_.ChosenPaper(); }
  std::u16string Date() override;
  void Print(HWND owner) override;
  void SetUpPage(HWND owner) override;

  HINSTANCE module_;
  const CommandWindow& window_;
  Lifetime lifetime_;
  Spooler spooler_;
  PrintDialogs dialogs_;
  Printer printer_{spooler_, dialogs_};
  PreviewDialog preview_;
};

}  // namespace pricedown::windows
