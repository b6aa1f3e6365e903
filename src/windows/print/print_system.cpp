// The system's own calls, forwarded one by one.
#include "windows/print/print_system.h"

#include "windows/base/focus_return.h"

namespace pricedown::windows {

HDC Spooler::OpenContext(PrinterUse use, const wchar_t* driver, const wchar_t* device,
                         const DEVMODEW* mode) {
  return use == PrinterUse::Print ? CreateDCW(driver, device, nullptr, mode)
                                  : CreateICW(driver, device, nullptr, mode);
}

PrinterDots Spooler::AskDots(HDC context) {
  const auto ask = [&](int index) { return GetDeviceCaps(context, index); };
  return {ask(LOGPIXELSX),      ask(LOGPIXELSY),      ask(PHYSICALWIDTH), ask(PHYSICALHEIGHT),
          ask(PHYSICALOFFSETX), ask(PHYSICALOFFSETY), ask(HORZRES),       ask(VERTRES)};
}

void Spooler::CloseContext(HDC context) { DeleteDC(context); }

int Spooler::BeginDocument(HDC context, const DOCINFOW& document) {
  return StartDocW(context, &document);
}

int Spooler::BeginPage(HDC context) { return StartPage(context); }

int Spooler::FinishPage(HDC context) { return EndPage(context); }

int Spooler::FinishDocument(HDC context) { return EndDoc(context); }

void Spooler::AbortDocument(HDC context) { AbortDoc(context); }

BOOL PrintDialogs::Print(PRINTDLGW& dialog, DWORD& error) {
  const FocusReturn focus;
  const BOOL answer = PrintDlgW(&dialog);
  error = answer == FALSE ? CommDlgExtendedError() : 0;
  return answer;
}

BOOL PrintDialogs::PageSetup(PAGESETUPDLGW& dialog, DWORD& error) {
  const FocusReturn focus;
  const BOOL answer = PageSetupDlgW(&dialog);
  error = answer == FALSE ? CommDlgExtendedError() : 0;
  return answer;
}

}  // namespace pricedown::windows
