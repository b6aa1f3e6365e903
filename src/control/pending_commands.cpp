// The public commands whose pages are still to come: printing and its preview.
// They do nothing but say so to their caller.
#include "control/price_down.h"
#include "platform/error.h"

namespace pricedown {
namespace {

[[noreturn]] void ThrowNoPrinting(std::u16string source) {
  throw AutomationError(ErrorNumber::Unspecified, u"打印和打印预览尚未提供", std::move(source));
}

}  // namespace

Value PriceDown::PreviewPara() {
  if (terminated_) return {};
  ThrowNoPrinting(u"PriceDown.PreviewPara");
}

Value PriceDown::PrintPara() {
  if (terminated_) return {};
  ThrowNoPrinting(u"PriceDown.PrintPara");
}

}  // namespace pricedown
