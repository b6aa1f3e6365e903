// The public commands for printing and its preview.
#include "control/price_down.h"

namespace pricedown {

Value PriceDown::PreviewPara() {
  if (HasEnded()) return {};
  // The host may close the control's window while the preview is open.
  printing_.Preview();
  return {};
}

Value PriceDown::PrintPara() {
  if (HasEnded()) return {};
  printing_.Print();
  return {};
}

}  // namespace pricedown
