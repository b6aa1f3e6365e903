// The pages that a preview shows, and the one of them that it shows now.
// It knows neither window nor zoom; those are preview_window and the core's PreviewState.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "browser/print_document.h"
#include "print/ledger_pages.h"
#include "windows/print/device_measurer.h"
#include "windows/print/page_painter.h"
#include "windows/print/preview_printing.h"

namespace pricedown::windows {

class PreviewPages {
 public:
  // Both must outlive the pages.
  PreviewPages(LedgerDocument& document, PreviewPrinting& printing)
      : document_(document), printing_(printing) {}

  LedgerDocument& Document() { return document_; }
  PreviewPrinting& Printing() { return printing_; }

  // For the document's font and the printing's paper as they are now. Throws AutomationError, and
  // then the pages stay those that they were.
  void Remake();
  // Requires of these three: made once.
  std::int32_t Count() const { return pages_->PageCount(); }
  const Paper& PrintedPaper() const { return pages_->PrintedPaper(); }
  // Makes that page the shown one, unless it is. Throws AutomationError, and then a blank page is
  // shown.
  void Turn(std::int32_t number);

  // The shown page; nothing before there is one. Throws AutomationError.
  void Paint(HDC context, const PageScale& scale);

 private:
  LedgerDocument& document_;
  PreviewPrinting& printing_;
  DeviceMeasurer measurer_;
  PagePainter painter_{measurer_};
  std::unique_ptr<LedgerPages> pages_;
  Page page_;
  std::int32_t shown_ = 0;
};

}  // namespace pricedown::windows
