// The print preview and its modal showing: the pages, the window over them, and the font dialog
// that it opens.
#pragma once

#include <windows.h>

#include "print/font_dialog.h"
#include "print/print_document.h"
#include "windows/print/preview_pages.h"
#include "windows/print/preview_printing.h"
#include "windows/print/preview_window.h"

namespace pricedown::windows {

class PreviewDialog {
 public:
  // A font chosen in the preview becomes the document's. Both references must outlive the dialog.
  PreviewDialog(HINSTANCE module, PrintDocument& document, PreviewPrinting& printing);
  ~PreviewDialog();
  PreviewDialog(const PreviewDialog&) = delete;
  PreviewDialog& operator=(const PreviewDialog&) = delete;

  // Shows the pages over `owner` (may be null) until the window is closed or the thread's loop
  // quits. Throws AutomationError when the pages or the window cannot be made; the user sees
  // all later failures in messages. Requires: not shown; the dialog lives until the call returns,
  // and the document's table and lines do not change meanwhile.
  void ShowModal(HWND owner);
  // The same with another font dialog.
  void ShowModal(HWND owner, FontDialog& fonts);
  // Ends the showing, as when the control ends; ShowModal then returns. A no-op when nothing is
  // shown.
  void Close() noexcept { window_.RequestClose(); }

 private:
  PreviewPages pages_;
  PreviewWindow window_;
};

}  // namespace pricedown::windows
