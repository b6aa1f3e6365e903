// Bitmaps in memory.
#include "windows/base/gdi.h"

namespace pricedown::windows {

MemoryDc::MemoryDc(HDC like, int width, int height)
    : bitmap_(CreateCompatibleBitmap(like, width, height)) {
  if (bitmap_) context_.reset(CreateCompatibleDC(like));
  if (context_ != nullptr) previous_ = SelectObject(context_.get(), bitmap_.Get());
}

MemoryDc::~MemoryDc() {
  if (context_ != nullptr) SelectObject(context_.get(), previous_);
}

}  // namespace pricedown::windows
