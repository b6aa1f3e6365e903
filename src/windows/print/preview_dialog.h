// The print preview and its modal showing: the ledger's pages, the window over them, and the
// font dialog that it opens. What is printed on which paper is the printing's matter.
#pragma once

#include <windows.h>

#include "browser/print_commands.h"
#include "browser/print_document.h"
#include "windows/print/preview_pages.h"
#include "windows/print/preview_printing.h"
#include "windows/print/preview_window.h"

namespace pricedown::windows {

class PreviewDialog {
 public:
  // A font chosen in the preview is put into the document's appearance. Both references must
  // outlive the dialog.
  PreviewDialog(HINSTANCE module, LedgerDocument& document, PreviewPrinting& printing);
  ~PreviewDialog();
  PreviewDialog(const PreviewDialog&) = delete;
  PreviewDialog& operator=(const PreviewDialog&) = delete;

  // Shows the pages over `owner` (may be null) until the window is closed, by whomever, or the
  // thread is told to quit. Throws AutomationError when there is nothing that could be shown; all
  // later failures are told to the user. Requires: not shown; the document is not set and the
  // dialog not destroyed meanwhile.
  void ShowModal(HWND owner);
  // The same with another font dialog.
  void ShowModal(HWND owner, FontDialog& fonts);
  // Ends the showing, as when the control ends below it; ShowModal then returns. Harmless when
  // nothing is shown.
  void Close() noexcept { window_.Close(); }

 private:
  PreviewPages pages_;
  PreviewWindow window_;
};

}  // namespace pricedown::windows
