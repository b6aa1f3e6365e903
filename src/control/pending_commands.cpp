// The public commands whose windows and pages are still to come: adding, editing, printing.
// They say so to their caller; what can be refused before that is refused as it will be.
#include "control/price_down.h"
#include "platform/error.h"

namespace pricedown {
namespace {

[[noreturn]] void ThrowNoEditor(std::u16string source) {
  throw AutomationError(ErrorNumber::Unspecified, u"物料类别编辑窗口尚未提供", std::move(source));
}

[[noreturn]] void ThrowNoPrinting(std::u16string source) {
  throw AutomationError(ErrorNumber::Unspecified, u"打印和打印预览尚未提供", std::move(source));
}

}  // namespace

Value PriceDown::addRecord() {
  if (terminated_) return {};
  ThrowNoEditor(u"PriceDown.addRecord");
}

Value PriceDown::editRecord() {
  if (terminated_ || !commands_.RequireClass(u"请选择要修改的物料类别")) return {};
  ThrowNoEditor(u"PriceDown.editRecord");
}

Value PriceDown::PreviewPara() {
  if (terminated_) return {};
  ThrowNoPrinting(u"PriceDown.PreviewPara");
}

Value PriceDown::PrintPara() {
  if (terminated_) return {};
  ThrowNoPrinting(u"PriceDown.PrintPara");
}

}  // namespace pricedown
