// The dialog wants the number of pages before the paper is chosen, so pages are laid out twice.
#include "windows/print/dialog_printing.h"

#include <array>

#include "print/print_order.h"
#include "print/print_pages.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"
#include "windows/print/device_measurer.h"
#include "windows/print/print_dialog.h"
#include "windows/print/print_job.h"
#include "windows/print/print_progress.h"

namespace pricedown::windows {

std::u16string TodayText() {
  std::array<wchar_t, 128> text{};
  if (GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(),
                     static_cast<int>(text.size())) == 0) {
    ThrowLastError();
  }
  return FromWide(text.data());
}

bool PrintWithDialog(HINSTANCE module, HWND owner, const PrintDocument& document, Printer& printer,
                     const Lifetime& lifetime) {
  printer.UseDefault();
  DeviceMeasurer measurer;
  const std::u16string date = TodayText();
  const auto pagesNow = [&] {
    return PrintPages(document, printer.CurrentPaper(), date, measurer);
  };
  const std::optional<PrintChoice> choice = AskPrint(owner, printer, pagesNow().PageCount());
  if (!choice || lifetime.HasEnded()) return false;
  const PrintPages pages = pagesNow();
  PrintProgress progress(module, owner);
  RunPrintJob(printer, pages, measurer, PrintOrder(*choice, pages.PageCount()), progress);
  return true;
}

}  // namespace pricedown::windows
