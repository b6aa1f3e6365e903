// The system's dialog has page numbers of 16 bits; more pages are printed all the same.
#include "windows/print/print_dialog.h"

#include <algorithm>
#include <string_view>

#include "windows/base/global_memory.h"
#include "windows/print/print_failure.h"

namespace pricedown::windows {
namespace {

// The largest means an empty field.
constexpr std::int32_t kMaximumPages = 0xFFFE;
constexpr std::u16string_view kPrintDialogFails = u"打印对话框无法打开";

PrintChoice ChoiceOf(const PRINTDLGW& dialog) {
  PrintChoice choice;
  choice.copies = dialog.nCopies;
  choice.collated = (dialog.Flags & PD_COLLATE) != 0;
  if ((dialog.Flags & PD_PAGENUMS) != 0) {
    choice.first = dialog.nFromPage;
    choice.last = dialog.nToPage;
  }
  return choice;
}

}  // namespace

std::optional<PrintChoice> AskPrint(HWND owner, Printer& printer, std::int32_t pageCount) {
  for (bool again = false;; again = true) {
    if (!printer.Exists()) ThrowNoPrinter();
    PRINTDLGW dialog{};
    dialog.lStructSize = sizeof dialog;
    dialog.hwndOwner = owner;
    dialog.Flags = PD_ALLPAGES | PD_COLLATE | PD_NOSELECTION | PD_HIDEPRINTTOFILE | PD_NOWARNING;
    dialog.nMinPage = 1;
    dialog.nMaxPage = static_cast<WORD>(std::min(pageCount, kMaximumPages));
    dialog.nFromPage = dialog.nMinPage;
    dialog.nToPage = dialog.nMaxPage;
    dialog.nCopies = 1;
    GlobalMemory mode(printer.CopyMode());
    GlobalMemory names(printer.CopyNames());
    dialog.hDevMode = mode.Get();
    dialog.hDevNames = names.Get();
    DWORD error = 0;
    const BOOL answer = printer.GetDialogs().Print(dialog, error);
    mode.Reset(dialog.hDevMode);
    names.Reset(dialog.hDevNames);
    if (answer != FALSE) {
      printer.Choose(mode.Get(), names.Get());
      return ChoiceOf(dialog);
    }
    if (error == 0) return std::nullopt;
    if (again || !IsStale(error)) ThrowDialogFailure(kPrintDialogFails, error);
    printer.Forget();
  }
}

}  // namespace pricedown::windows
