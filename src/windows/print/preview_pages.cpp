// One page is kept; turning to it again costs nothing.
// Making pages looks at every row once, making one page at its own rows only.
#include "windows/print/preview_pages.h"

#include <utility>

namespace pricedown::windows {

void PreviewPages::Remake() {
  auto made = std::make_unique<LedgerPages>(
      document_.Pages(printing_.CurrentPaper(), printing_.Date(), measurer_));
  pages_ = std::move(made);
  shown_ = 0;
}

void PreviewPages::Turn(std::int32_t number) {
  if (number == shown_) return;
  page_ = {};
  // Also when it fails: it is not tried again with every movement.
  shown_ = number;
  page_ = pages_->PageAt(number);
}

void PreviewPages::Paint(HDC context, const PageScale& scale) {
  if (pages_ != nullptr) painter_.Paint(context, page_, pages_->Fonts(), scale);
}

}  // namespace pricedown::windows
