// The public commands for printing and its preview.
// What they do is browser/print_commands.
#include "control/price_down.h"

namespace pricedown {

Value PriceDown::PreviewPara() {
  if (terminated_) return {};
  // The host may close the control's window while the preview is open.
  const std::shared_ptr<void> held = ports_.hold ? ports_.hold() : nullptr;
  printing_.Preview();
  return {};
}

Value PriceDown::PrintPara() {
  if (terminated_) return {};
  const std::shared_ptr<void> held = ports_.hold ? ports_.hold() : nullptr;
  printing_.Print();
  return {};
}

}  // namespace pricedown
