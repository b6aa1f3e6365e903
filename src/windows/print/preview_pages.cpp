// The pages of a preview. One is kept; turning to it again costs nothing.
#include "windows/print/preview_pages.h"

namespace pricedown::windows {

void PreviewPages::Remake() {
  pages_ = std::make_unique<PrintPages>(document_, printing_.CurrentPaper(), printing_.Date(),
                                        measurer_);
  shown_ = 0;
}

void PreviewPages::Turn(std::int32_t number) {
  if (number == shown_) return;
  page_ = {};
  // Also when it fails, so that it is not tried again with every movement.
  shown_ = number;
  page_ = pages_->PageAt(number);
}

void PreviewPages::Paint(HDC context, const PageScale& scale) {
  if (pages_ != nullptr) painter_.Paint(context, page_, pages_->Fonts(), scale);
}

}  // namespace pricedown::windows
