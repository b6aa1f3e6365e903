// The pages that a preview shows, and the one of them that it shows now.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "print/print_pages.h"
#include "windows/print/device_measurer.h"
#include "windows/print/page_painter.h"
#include "windows/print/preview_printing.h"

namespace pricedown::windows {

class PreviewPages {
 public:
  // Both must outlive the pages.
  PreviewPages(PrintDocument& document, PreviewPrinting& printing)
      : document_(document), printing_(printing) {}

  PrintDocument& Document() { return document_; }
  PreviewPrinting& Printing() { return printing_; }

  // Makes the pages for the document's font and the printing's paper as they are now. Throws
  // AutomationError, and then the pages stay as they were.
  void Remake();
  // Requires of these three: made once.
  std::int32_t Count() const { return pages_->PageCount(); }
  const Paper& PrintedPaper() const { return pages_->PrintedPaper(); }
  // Makes that page the shown one. Throws AutomationError, and then a blank page is shown.
  void Turn(std::int32_t number);

  // Empty before there is one; valid until the next turn.
  const Page& Shown() const { return page_; }
  // The shown page; nothing before there is one. Throws AutomationError.
  void Paint(HDC context, const PageScale& scale);

 private:
  PrintDocument& document_;
  PreviewPrinting& printing_;
  DeviceMeasurer measurer_;
  PagePainter painter_{measurer_};
  std::unique_ptr<PrintPages> pages_;
  Page page_;
  std::int32_t shown_ = 0;
};

}  // namespace pricedown::windows
