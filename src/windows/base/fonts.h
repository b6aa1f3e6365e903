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

// A font by its name, at most 31 characters of it. Names in Chinese ask for the Chinese
// character set, so that a system without that font finds another one that has the characters.
FontHandle MakeFont(const Font& font, Dpi dpi);
FontHandle MakeFont(std::u16string_view name, std::int32_t charset, double points, Dpi dpi);

// The character set to ask for with a font's name.
BYTE CharsetOf(std::u16string_view name);

// The font that the user's system shows messages in.
FontHandle MakeMessageFont(Dpi dpi);
// The same in another size.
FontHandle MakeMessageFont(double points, Dpi dpi);

// Height of a line in pixels, on the given context.
int LineHeight(HDC context, HFONT font);
int LineHeight(HWND window, HFONT font);
// Width of one line of text in pixels.
int TextWidth(HDC context, HFONT font, std::wstring_view text);

}  // namespace pricedown::windows
