// Fonts of the windows: the suite's by name and size, the system's for captions.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>

#include "env/font.h"
#include "windows/base/dpi.h"
#include "windows/base/gdi.h"

namespace pricedown::windows {

using FontHandle = GdiObject<HFONT>;

// A font by its name, at most 31 characters of it, one pixel high or more. Throws AutomationError.
FontHandle MakeFont(const Font& font, double dotsPerInch);
inline FontHandle MakeFont(const Font& font, Dpi dpi) { return MakeFont(font, dpi.Value()); }

// What MakeFont asks the system for.
LOGFONTW DescribeFont(const Font& font, double dotsPerInch);

// The character set to ask for: for kAnyCharset and a Chinese name the Chinese one, so that a
// system without that font finds another one that has the characters.
BYTE CharsetOf(const Font& font);

// The font that the user's system shows messages in.
FontHandle MakeMessageFont(Dpi dpi);
// The same in the size of `font`, and in its character set unless that is kAnyCharset.
FontHandle MakeMessageFont(const Font& font, Dpi dpi);

// Height of a line in pixels, on the context.
int LineHeight(HDC context, HFONT font);
int LineHeight(HWND window, HFONT font);
// Width of one line of text in pixels.
int TextWidth(HDC context, HFONT font, std::wstring_view text);

}  // namespace pricedown::windows
