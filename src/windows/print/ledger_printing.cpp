// The dialog wants the number of pages before the paper is chosen, so that pages may be laid out
// twice; that costs little.
#include "windows/print/ledger_printing.h"

#include <array>

#include "windows/com/failure.h"
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

bool PrintLedgerDocument(HINSTANCE module, HWND owner, const LedgerDocument& document,
                         Printer& printer, const Lifetime& lifetime) {
  printer.UseDefault();
  DeviceMeasurer measurer;
  const std::u16string date = TodayText();
  const std::int32_t pageCount = document.Pages(printer.ChosenPaper(), date, measurer).PageCount();
  const std::optional<PrintChoice> choice = AskPrint(owner, printer, pageCount);
  if (!choice || lifetime.HasEnded()) return false;
  const LedgerPages pages = document.Pages(printer.ChosenPaper(), date, measurer);
  const PrintOrder order(*choice, pages.PageCount());
  PrintProgress progress(module, owner);
  RunPrintJob(printer, pages, measurer, order, progress);
  return true;
}

}  // namespace pricedown::windows
