// The pixels of a window, copied into a bitmap of our own and hashed.
#include "tests/windows/script_host/window_picture.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/text.h"
#include "windows/base/control_ids.h"
#include "windows/com/system_error.h"

namespace pricedown::testing {
namespace {

// The status line below tells how long loading took.
BOOL CALLBACK EndAtStatusLine(HWND child, LPARAM area) noexcept {
  if (GetDlgCtrlID(child) != windows::control_ids::kStatusBar) return TRUE;
  RECT line{};
  GetWindowRect(child, &line);
  MapWindowPoints(nullptr, GetAncestor(child, GA_ROOT), reinterpret_cast<POINT*>(&line), 2);
  reinterpret_cast<RECT*>(area)->bottom = line.top;
  return FALSE;
}

RECT PicturedArea(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  EnumChildWindows(window, EndAtStatusLine, reinterpret_cast<LPARAM>(&area));
  return area;
}

}  // namespace

std::u16string PictureOf(HWND window) {
  // What was posted may change the picture.
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  const RECT area = PicturedArea(window);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = area.right;
  info.bmiHeader.biHeight = -area.bottom;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const HDC context = GetDC(window);
  const HDC memory = CreateCompatibleDC(context);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  std::uint64_t hash = 14695981039346656037U;  // FNV-1a
  if (bitmap != nullptr) {
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, area.right, area.bottom, context, 0, 0, SRCCOPY);
    GdiFlush();
    const auto* pixels = static_cast<const std::uint32_t*>(bits);
    const auto count = static_cast<std::size_t>(area.right) * static_cast<std::size_t>(area.bottom);
    for (std::size_t i = 0; i < count; ++i) {
      hash = (hash ^ (pixels[i] & 0xFFFFFF)) * 1099511628211U;
    }
    SelectObject(memory, previous);
    DeleteObject(bitmap);
  }
  DeleteDC(memory);
  ReleaseDC(window, context);
  if (bitmap == nullptr) windows::ThrowLastError();
  std::array<char, 64> text{};
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg)
  std::snprintf(text.data(), text.size(), "%ldx%ld %08lX%08lX", area.right, area.bottom,
                static_cast<unsigned long>(hash >> 32),
                static_cast<unsigned long>(hash & 0xFFFFFFFF));
  return FromUtf8(text.data());
}

}  // namespace pricedown::testing
