// The resolution of a window, and the one place where twips become pixels and back.
// Which rectangle goes where is the core's layout.
#pragma once

#include <windows.h>

#include <cstdint>

#include "platform/geometry.h"

namespace pricedown::windows {

inline constexpr int kPointsPerInch = 72;

// Messages newer than the headers' lowest supported system.
inline constexpr UINT kDpiChanged = 0x02E0;
inline constexpr UINT kDpiChangedAfterParent = 0x02E3;

class Dpi {
 public:
  explicit Dpi(int dotsPerInch = kDesignDotsPerInch)
      : value_(dotsPerInch > 0 ? dotsPerInch : kDesignDotsPerInch) {}
  // As the window's process sees it; the screen's for null.
  static Dpi Of(HWND window);

  int Value() const { return value_; }
  bool operator==(const Dpi&) const = default;

  int ToPixels(std::int32_t twips) const { return Divide(twips, value_, kTwipsPerInch); }
  // Rounded down, so that a size that fits in twips fits in pixels.
  std::int32_t ToTwips(int pixels) const { return pixels * kTwipsPerInch / value_; }
  // Rounds the edges and not the sizes, so that neighbours stay neighbours.
  RECT ToPixels(const Rectangle& twips) const;
  // Pixels of a design at 96 dpi.
  int Scale(int pixels) const { return ScalePixels(pixels, value_); }
  // The font height for LOGFONT.
  int FontHeight(double points) const;

 private:
  static int Divide(int number, int numerator, int denominator) {
    return MulDiv(number, numerator, denominator);
  }

  int value_;
};

// Grows an inner area to the outer one of a top-level window without a menu.
void AdjustFrame(RECT& area, DWORD style, DWORD extendedStyle, Dpi dpi);

}  // namespace pricedown::windows
