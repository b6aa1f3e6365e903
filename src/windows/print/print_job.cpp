// The calls of one job in order. The error of a failing call is read before anything else is
// called.
#include "windows/print/print_job.h"

#include <string>

#include "env/translation.h"
#include "platform/text.h"
#include "windows/com/wide_text.h"
#include "windows/print/page_painter.h"
#include "windows/print/print_failure.h"

namespace pricedown::windows {
namespace {

// Runs a call that returns more than 0 on success; throws otherwise.
template <typename Call>
void RunCall(std::u16string_view failing, Call&& call) {
  SetLastError(ERROR_SUCCESS);
  const int answer = call();
  const DWORD error = GetLastError();
  if (answer <= 0) ThrowPrintFailure(failing, error);
}

// A document that has begun; aborted unless it was finished.
class Document {
 public:
  Document(Spooler& spooler, HDC context) : spooler_(spooler), context_(context) {}
  ~Document() {
    if (begun_) spooler_.AbortDocument(context_);
  }
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;

  // False when the user has cancelled.
  bool Begin() {
    DOCINFOW document{};
    document.cbSize = sizeof document;
    const std::wstring name = DocumentName(GetACP());
    document.lpszDocName = name.c_str();
    SetLastError(ERROR_SUCCESS);
    const int answer = spooler_.BeginDocument(context_, document);
    const DWORD error = GetLastError();
    if (answer > 0) {
      begun_ = true;
      return true;
    }
    // Printers that print to a file ask for its name.
    if (error == ERROR_CANCELLED || error == ERROR_PRINT_CANCELLED) return false;
    ThrowPrintFailure(u"打印作业无法开始", error);
  }

  void Finish() {
    RunCall(u"打印作业无法完成", [&] { return spooler_.FinishDocument(context_); });
    begun_ = false;
  }

 private:
  Spooler& spooler_;
  HDC context_;
  bool begun_ = false;
};

// The printer's pixels begin where it can print, not where the paper does.
PageScale ScaleOf(const PrinterDots& dots) {
  return {-static_cast<double>(dots.offsetX), -static_cast<double>(dots.offsetY),
          dots.perInchX / double{kTenthsPerInch}, dots.perInchY / double{kTenthsPerInch}};
}

}  // namespace

std::wstring DocumentName(UINT codePage) {
  std::wstring name = ToWide(Translate(u"物料类别维护-明细物料"));
  BOOL lacks = FALSE;
  if (codePage != CP_UTF8) {
    WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, name.data(), static_cast<int>(name.size()),
                        nullptr, 0, nullptr, &lacks);
  }
  return lacks == FALSE ? name : L"PriceDown item list";
}

bool RunPrintJob(const Printer& printer, const PrintPages& pages, DeviceMeasurer& measurer,
                 const PrintOrder& order, PrintWatcher& watcher) {
  if (order.SheetCount() == 0) return true;
  Spooler& spooler = printer.GetSpooler();
  const PrinterContext owner = printer.Open(pages.IsTurned());
  const HDC context = owner.Get();
  const PrinterDots dots = spooler.AskDots(context);
  if (dots.perInchX <= 0 || dots.perInchY <= 0) {
    ThrowPrintFailure(u"打印机没有给出分辨率", ERROR_SUCCESS);
  }
  const PageScale scale = ScaleOf(dots);
  PagePainter painter(measurer);
  Document document(spooler, context);
  if (!document.Begin()) return false;
  for (std::int64_t sheet = 0; sheet < order.SheetCount(); ++sheet) {
    if (!watcher.Continue(sheet + 1, order.SheetCount())) return false;
    RunCall(u"打印页无法开始", [&] { return spooler.BeginPage(context); });
    painter.Paint(context, pages.PageAt(order.PageOn(sheet)), pages.Fonts(), scale);
    RunCall(u"打印页无法完成", [&] { return spooler.FinishPage(context); });
  }
  document.Finish();
  return true;
}

}  // namespace pricedown::windows
