// The resolution of windows; older systems have one for the whole screen.
#include "windows/base/dpi.h"

#include <cmath>

#include "windows/base/gdi.h"
#include "windows/base/system_functions.h"

namespace pricedown::windows {

Dpi Dpi::Of(HWND window) {
  using GetDpiForWindow = UINT(WINAPI*)(HWND);
  if (window != nullptr) {
    if (auto function = SystemFunction<GetDpiForWindow>(L"user32.dll", "GetDpiForWindow")) {
      if (const UINT dpi = function(window); dpi != 0) return Dpi(static_cast<int>(dpi));
    }
  }
  return Dpi(GetDeviceCaps(WindowContext(nullptr).Get(), LOGPIXELSY));
}

RECT Dpi::ToPixels(const Rectangle& twips) const {
  return {ToPixels(twips.left), ToPixels(twips.top), ToPixels(twips.left + twips.width),
          ToPixels(twips.top + twips.height)};
}

int Dpi::FontHeight(double points) const {
  return -static_cast<int>(std::lround(points * value_ / kPointsPerInch));
}

void AdjustFrame(RECT& area, DWORD style, DWORD extendedStyle, Dpi dpi) {
  using ForDpi = BOOL(WINAPI*)(LPRECT, DWORD, BOOL, DWORD, UINT);
  if (auto function = SystemFunction<ForDpi>(L"user32.dll", "AdjustWindowRectExForDpi")) {
    if (function(&area, style, FALSE, extendedStyle, static_cast<UINT>(dpi.Value())) != FALSE) {
      return;
    }
  }
  AdjustWindowRectEx(&area, style, FALSE, extendedStyle);
}

}  // namespace pricedown::windows
