// Creates fonts from points at a resolution, and measures text.
#include "windows/base/fonts.h"

#include <algorithm>
#include <cmath>

#include "windows/base/system_functions.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

FontHandle Make(const LOGFONTW& description) {
  FontHandle font(CreateFontIndirectW(&description));
  if (!font) ThrowLastError();
  return font;
}

LOGFONTW MessageFont(Dpi dpi) {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  using ForDpi = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);
  if (auto function = SystemFunction<ForDpi>(L"user32.dll", "SystemParametersInfoForDpi")) {
    if (function(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                 static_cast<UINT>(dpi.Value())) != FALSE) {
      return metrics.lfMessageFont;
    }
  }
  if (SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0) != FALSE) {
    LOGFONTW font = metrics.lfMessageFont;
    font.lfHeight = MulDiv(font.lfHeight, dpi.Value(), Dpi::Of(nullptr).Value());
    return font;
  }
  return DescribeFont({u"MS Shell Dlg 2"}, dpi.Value());
}

}  // namespace

LOGFONTW DescribeFont(const Font& font, double dotsPerInch) {
  LOGFONTW description{};
  const auto height = static_cast<LONG>(std::lround(font.size * dotsPerInch / kPointsPerInch));
  description.lfHeight = -std::max<LONG>(height, 1);
  description.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
  description.lfItalic = font.italic ? TRUE : FALSE;
  description.lfUnderline = font.underlined ? TRUE : FALSE;
  description.lfCharSet = CharsetOf(font);
  CopyWide(std::u16string_view(font.name).substr(0, LF_FACESIZE - 1), description.lfFaceName);
  return description;
}

BYTE CharsetOf(const Font& font) {
  if (font.charset != kAnyCharset) return static_cast<BYTE>(font.charset);
  const bool chinese =
      std::any_of(font.name.begin(), font.name.end(), [](char16_t unit) { return unit > 0x7F; });
  return chinese ? GB2312_CHARSET : DEFAULT_CHARSET;
}

FontHandle MakeFont(const Font& font, double dotsPerInch) {
  return Make(DescribeFont(font, dotsPerInch));
}

FontHandle MakeMessageFont(Dpi dpi) { return Make(MessageFont(dpi)); }

FontHandle MakeMessageFont(const Font& font, Dpi dpi) {
  LOGFONTW description = MessageFont(dpi);
  description.lfHeight = dpi.FontHeight(font.size);
  if (font.charset != kAnyCharset) description.lfCharSet = CharsetOf(font);
  return Make(description);
}

int LineHeight(HDC context, HFONT font) {
  const Selected selected(context, font);
  TEXTMETRICW metrics{};
  GetTextMetricsW(context, &metrics);
  return metrics.tmHeight;
}

int LineHeight(HWND window, HFONT font) {
  const WindowContext context(window);
  return LineHeight(context.Get(), font);
}

int TextWidth(HDC context, HFONT font, std::wstring_view text) {
  const Selected selected(context, font);
  SIZE size{};
  GetTextExtentPoint32W(context, text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

}  // namespace pricedown::windows
