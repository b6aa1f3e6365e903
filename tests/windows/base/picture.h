// Pictures of windows, for people and for tests that look at pixels.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace pricedown::testing {

struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;  // 0x00RRGGBB, rows from the top

  std::uint32_t At(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

// The window with its children, its client area only.
Picture CapturePicture(HWND window);
// Also of a part of a device context.
Picture CapturePicture(HDC context, const RECT& area);

// Writes `name`.bmp into the folder that PRICEDOWN_PICTURES names; does nothing without it.
void KeepPicture(HWND window, const std::string& name);
void KeepPicture(const Picture& picture, const std::string& name);

}  // namespace pricedown::testing
