// The system's colours of high contrast, for a test, and how well two colours can be distinguished.
#pragma once

#include <windows.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "tests/windows/base/picture.h"
#include "windows/base/system_functions.h"

namespace pricedown::testing {

// White on black or black on white, from construction to destruction.
class HighContrast {
 public:
  explicit HighContrast(bool dark) {
    const COLORREF ground = dark ? RGB(0, 0, 0) : RGB(255, 255, 255);
    const COLORREF text = dark ? RGB(255, 255, 255) : RGB(0, 0, 0);
    std::array<COLORREF, kColours.size()> colours{};
    for (std::size_t i = 0; i < kColours.size(); ++i) {
      before_[i] = GetSysColor(kColours[i]);
      colours[i] = i < kGrounds ? ground : text;
    }
    colours[kColours.size() - 4] = RGB(128, 128, 128);
    colours[kColours.size() - 3] = dark ? RGB(63, 242, 63) : RGB(96, 0, 0);
    colours[kColours.size() - 2] = dark ? RGB(26, 235, 255) : RGB(55, 0, 110);
    colours[kColours.size() - 1] = ground;
    Set(colours);
  }
  ~HighContrast() { Set(before_); }
  HighContrast(const HighContrast&) = delete;
  HighContrast& operator=(const HighContrast&) = delete;

  // Sends the window the change of colours and removes the visual styles, which have colours of
  // their own, from all its children.
  static void Apply(HWND window) {
    EnumChildWindows(window, &RemoveStyle, 0);
    SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
  }

 private:
  static BOOL CALLBACK RemoveStyle(HWND child, LPARAM) {
    using SetTheme = HRESULT(WINAPI*)(HWND, const wchar_t*, const wchar_t*);
    LoadLibraryW(L"uxtheme.dll");
    if (const auto set = windows::SystemFunction<SetTheme>(L"uxtheme.dll", "SetWindowTheme")) {
      set(child, L"", L"");
    }
    return TRUE;
  }

  // Grounds, then texts and lines; the last four are shadows, grey text and the two of a selection.
  static constexpr std::size_t kGrounds = 8;
  static constexpr std::array<int, 20> kColours{
      COLOR_WINDOW,       COLOR_BTNFACE,    COLOR_MENU,      COLOR_INFOBK,
      COLOR_APPWORKSPACE, COLOR_BACKGROUND, COLOR_SCROLLBAR, COLOR_MENUBAR,
      COLOR_WINDOWTEXT,   COLOR_BTNTEXT,    COLOR_MENUTEXT,  COLOR_INFOTEXT,
      COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW, COLOR_3DLIGHT,   COLOR_WINDOWFRAME,
      COLOR_BTNSHADOW,    COLOR_GRAYTEXT,   COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT};

  static void Set(const std::array<COLORREF, kColours.size()>& colours) {
    SetSysColors(static_cast<int>(kColours.size()), kColours.data(), colours.data());
  }

  std::array<COLORREF, kColours.size()> before_{};
};

// The contrast ratio of two colours 0x00RRGGBB, 1 to 21: from 3 on a picture, from 4.5 on a text
// can be made out.
inline double Contrast(std::uint32_t a, std::uint32_t b) {
  const auto luminance = [](std::uint32_t colour) {
    const auto linear = [](std::uint32_t part) {
      const double share = static_cast<double>(part & 0xFF) / 255;
      return share <= 0.03928 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour >> 16) + 0.7152 * linear(colour >> 8) + 0.0722 * linear(colour);
  };
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

// The share of an area's pixels that stand out against its first one.
inline double ShareThatStandsOut(const Picture& picture, const RECT& area, double contrast) {
  const std::uint32_t ground = picture.At(area.left, area.top);
  int out = 0;
  for (LONG y = area.top; y < area.bottom; ++y) {
    for (LONG x = area.left; x < area.right; ++x) {
      if (Contrast(picture.At(x, y), ground) >= contrast) ++out;
    }
  }
  return static_cast<double>(out) /
         static_cast<double>((area.right - area.left) * (area.bottom - area.top));
}

}  // namespace pricedown::testing
