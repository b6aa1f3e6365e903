// The dialog counts in hundredths of a millimetre. Its paper size is used without a printer only;
// a printer is asked for its paper.
#include "windows/print/page_setup_dialog.h"

#include <algorithm>
#include <string_view>

#include "windows/base/global_memory.h"
#include "windows/print/print_failure.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kPageSetupFails = u"页面设置对话框无法打开";

RECT InHundredths(const Margins& margins) {
  return {margins.left * kHundredthsPerTenth, margins.top * kHundredthsPerTenth,
          margins.right * kHundredthsPerTenth, margins.bottom * kHundredthsPerTenth};
}

Margins InTenths(const RECT& box) {
  const auto tenths = [](LONG hundredths) {
    return static_cast<Tenths>((std::max<LONG>(hundredths, 0) + kHundredthsPerTenth / 2) /
                               kHundredthsPerTenth);
  };
  return {tenths(box.left), tenths(box.top), tenths(box.right), tenths(box.bottom)};
}

// Shows the dialog once; false when nothing was chosen, with an `error` unless it was cancelled.
bool AskOnce(HWND owner, Printer& printer, DWORD& error) {
  PAGESETUPDLGW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner;
  dialog.Flags =
      PSD_INHUNDREDTHSOFMILLIMETERS | PSD_MARGINS | PSD_DEFAULTMINMARGINS | PSD_NOWARNING;
  dialog.rtMargin = InHundredths(printer.CurrentPaper().margins);
  GlobalMemory mode(printer.CopyMode());
  GlobalMemory names(printer.CopyNames());
  dialog.hDevMode = mode.Get();
  dialog.hDevNames = names.Get();
  const BOOL answer = printer.GetDialogs().PageSetup(dialog, error);
  mode.Reset(dialog.hDevMode);
  names.Reset(dialog.hDevNames);
  if (answer == FALSE) return false;
  printer.Choose(mode.Get(), names.Get());
  Paper paper = printer.CurrentPaper();
  if (!printer.Exists() && dialog.ptPaperSize.x > 0 && dialog.ptPaperSize.y > 0) {
    paper.width = dialog.ptPaperSize.x / kHundredthsPerTenth;
    paper.height = dialog.ptPaperSize.y / kHundredthsPerTenth;
  }
  paper.margins = InTenths(dialog.rtMargin);
  printer.ChoosePaper(paper);
  return true;
}

}  // namespace

bool AskPageSetup(HWND owner, Printer& printer) {
  for (bool again = false;; again = true) {
    DWORD error = 0;
    if (AskOnce(owner, printer, error)) return true;
    if (error == 0) return false;
    if (again || !IsStale(error)) ThrowDialogFailure(kPageSetupFails, error);
    printer.Forget();
  }
}

}  // namespace pricedown::windows
