// Creates fonts from points at a resolution, and measures text.
#include "windows/base/fonts.h"

#include <algorithm>

#include "windows/base/system_functions.h"
#include "windows/com/failure.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

LOGFONTW Describe(std::u16string_view name, BYTE charset, double points, Dpi dpi) {
  LOGFONTW description{};
  description.lfHeight = dpi.FontHeight(points);
  description.lfWeight = FW_NORMAL;
  description.lfCharSet = charset;
  CopyWide(name.substr(0, LF_FACESIZE - 1), description.lfFaceName);
  return description;
}

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
  return Describe(u"MS Shell Dlg 2", DEFAULT_CHARSET, 9, dpi);
}

}  // namespace

BYTE CharsetOf(std::u16string_view name) {
  const bool chinese =
      std::any_of(name.begin(), name.end(), [](char16_t unit) { return unit > 0x7F; });
  return chinese ? GB2312_CHARSET : DEFAULT_CHARSET;
}

FontHandle MakeFont(const Font& font, Dpi dpi) {
  LOGFONTW description = Describe(font.name, CharsetOf(font.name), font.size, dpi);
  if (font.bold) description.lfWeight = FW_BOLD;
  if (font.italic) description.lfItalic = TRUE;
  return Make(description);
}

FontHandle MakeFont(std::u16string_view name, std::int32_t charset, double points, Dpi dpi) {
  return Make(Describe(name, static_cast<BYTE>(charset), points, dpi));
}

FontHandle MakeMessageFont(Dpi dpi) { return Make(MessageFont(dpi)); }

FontHandle MakeMessageFont(double points, Dpi dpi) {
  LOGFONTW description = MessageFont(dpi);
  description.lfHeight = dpi.FontHeight(points);
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
