// The public commands for printing and its preview.
// What they do is browser/print_commands; without a ledger they do nothing but say so.
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
  if (!printing_) ThrowNoPrinting(u"PriceDown.PreviewPara");
  // The host may close the control's window while the preview is open.
  const std::shared_ptr<void> held = ports_.hold ? ports_.hold() : nullptr;
  printing_->Preview();
  return {};
}

Value PriceDown::PrintPara() {
  if (terminated_) return {};
  if (!printing_) ThrowNoPrinting(u"PriceDown.PrintPara");
  const std::shared_ptr<void> held = ports_.hold ? ports_.hold() : nullptr;
  printing_->Print();
  return {};
}

}  // namespace pricedown
