// A picture in memory that shows where something was drawn.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>

namespace pricedown::testing {

// 300 x 200 pixels.
class MemoryPicture {
 public:
  MemoryPicture() : context_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = kWidth;
    info.bmiHeader.biHeight = -kHeight;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    old_ = SelectObject(context_, bitmap_);
    pixels_ = static_cast<std::uint32_t*>(bits);
    std::fill(pixels_, pixels_ + kPixels, kMarker);
  }
  ~MemoryPicture() {
    SelectObject(context_, old_);
    DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  MemoryPicture(const MemoryPicture&) = delete;
  MemoryPicture& operator=(const MemoryPicture&) = delete;

  HDC Context() const { return context_; }
  // How many pixels of a rectangle were drawn.
  int Drawn(const RECT& rectangle) const {
    int drawn = 0;
    for (LONG y = rectangle.top; y < rectangle.bottom; ++y) {
      for (LONG x = rectangle.left; x < rectangle.right; ++x) {
        if ((pixels_[y * kWidth + x] & 0xFFFFFF) != kMarker) ++drawn;
      }
    }
    return drawn;
  }

  static constexpr int kWidth = 300;
  static constexpr int kHeight = 200;
  static constexpr int kPixels = kWidth * kHeight;
  static constexpr RECT kAll{0, 0, kWidth, kHeight};

 private:
  static constexpr std::uint32_t kMarker = 0x00FF00FE;
  HDC context_;
  HBITMAP bitmap_;
  HGDIOBJ old_;
  std::uint32_t* pixels_;
};

}  // namespace pricedown::testing
