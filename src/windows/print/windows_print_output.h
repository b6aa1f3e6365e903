// Preview and print on this system: the preview window, the printer and its dialogs.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

#include "platform/lifetime.h"
#include "print/print_output.h"
#include "windows/base/command_window.h"
#include "windows/print/preview_dialog.h"
#include "windows/print/preview_printing.h"
#include "windows/print/print_system.h"
#include "windows/print/printer.h"

namespace pricedown::windows {

// A printer and a page set-up that the user has chosen last as long as the object, which must live
// until Preview and Print return.
class WindowsPrintOutput final : public PrintOutput, private PreviewPrinting {
 public:
  // Windows are shown over the top-level window around `window`, which must outlive the object.
  // `lifetime` is the control's: a print dialog that outlives it prints nothing.
  WindowsPrintOutput(HINSTANCE module, const CommandWindow& window, Lifetime lifetime)
      : module_(module), window_(window), lifetime_(std::move(lifetime)) {}

  // PrintOutput
  void Preview(PrintDocument& document) override;
  void Print(const PrintDocument& document) override { Print(window_.DialogOwner(), document); }

  // Closes the preview, as when the control ends while it is shown. A no-op when nothing is shown.
  void Close() noexcept;

 private:
  // PreviewPrinting
  Paper CurrentPaper() override { return printer_.CurrentPaper(); }
  std::u16string Date() override;
  void Print(HWND owner, const PrintDocument& document) override;
  void SetUpPage(HWND owner) override;

  HINSTANCE module_;
  const CommandWindow& window_;
  Lifetime lifetime_;
  Spooler spooler_;
  PrintDialogs dialogs_;
  Printer printer_{spooler_, dialogs_};
  PreviewDialog* shown_ = nullptr;  // while Preview runs
};

}  // namespace pricedown::windows
