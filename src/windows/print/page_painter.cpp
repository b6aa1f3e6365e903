// The painting of a page. Each edge and each character is rounded to a pixel by itself, so that no
// error adds up. Characters are drawn where they were measured, on a measured baseline.
#include "windows/print/page_painter.h"

#include <algorithm>
#include <cmath>

#include "windows/base/gdi.h"
#include "windows/base/painting.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr double kRuleThickness = 1.5;  // tenths
constexpr COLORREF kInk = RGB(0, 0, 0);
constexpr double kPalestRule = 0.45;  // of the ink

int Rounded(double pixels) { return static_cast<int>(std::lround(pixels)); }

void SetInk(HDC context) {
  SetMapMode(context, MM_TEXT);
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, kInk);
  SetTextAlign(context, TA_LEFT | TA_BASELINE | TA_NOUPDATECP);
  SetTextCharacterExtra(context, 0);
}

int Thickness(double pixelsPerTenth) {
  return std::max(Rounded(kRuleThickness * pixelsPerTenth), 1);
}

// A rule that is thinner than a pixel is one pixel of a paler ink, or a small page would be all
// rules.
HBRUSH RuleBrush(HDC context, const PageScale& scale) {
  const double thickness = kRuleThickness * std::min(scale.across, scale.down);
  if (thickness >= 1) return static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  const int share = Rounded(255 * std::max(thickness, kPalestRule));
  SetDCBrushColor(context, Blend(RGB(255, 255, 255), kInk, share));
  return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

// The part of the text's width that lies left of its anchor.
double ShareBefore(TextAlignment alignment) {
  switch (alignment) {
    case TextAlignment::Left:
      return 0;
    case TextAlignment::Centre:
      return 0.5;
    case TextAlignment::Right:
      return 1;
  }
  return 0;
}

}  // namespace

void PagePainter::Paint(HDC context, const Page& page, std::span<const Font> fonts,
                        const PageScale& scale) {
  const SavedDc saved(context);
  SetInk(context);
  const HBRUSH brush = RuleBrush(context, scale);
  for (const PageRule& rule : page.rules) PaintRule(context, brush, rule, scale);
  for (const PageText& text : page.texts) {
    if (text.font < fonts.size()) PaintText(context, text, fonts[text.font], scale);
  }
}

HFONT PagePainter::FontOf(const Font& font, double down) {
  if (down != down_) fonts_.clear();
  down_ = down;
  for (const ScaledFont& known : fonts_) {
    if (known.font == font) return known.handle.Get();
  }
  fonts_.push_back({font, MakeFont(font, down * kTenthsPerInch)});
  return fonts_.back().handle.Get();
}

// Both ends belong to it, so that rules that meet have no gap at the corner.
void PagePainter::PaintRule(HDC context, HBRUSH brush, const PageRule& rule,
                            const PageScale& scale) {
  const int wide = Thickness(scale.across);
  const int high = Thickness(scale.down);
  const RECT area{Rounded(scale.left + rule.left * scale.across) - wide / 2,
                  Rounded(scale.top + rule.top * scale.down) - high / 2,
                  Rounded(scale.left + rule.right * scale.across) - wide / 2 + wide,
                  Rounded(scale.top + rule.bottom * scale.down) - high / 2 + high};
  if (FillRect(context, &area, brush) == 0) ThrowLastError();
}

void PagePainter::PaintText(HDC context, const PageText& text, const Font& font,
                            const PageScale& scale) {
  const std::span<const int> ends = measurer_.Ends(font, text.text);
  if (ends.empty()) return;
  const double start = text.anchor - TenthsOfHundredths(ends.back()) * ShareBefore(text.alignment);
  const auto pixel = [&](int hundredths) {
    return Rounded(scale.left + (start + TenthsOfHundredths(hundredths)) * scale.across);
  };
  const int left = pixel(0);
  steps_.clear();
  int place = left;
  for (const int end : ends) {
    const int next = pixel(end);
    steps_.push_back(next - place);
    place = next;
  }
  const double baseline = text.top + TenthsOfHundredths(measurer_.Ascent(font));
  const RECT clip{Rounded(scale.left + text.clip.left * scale.across),
                  Rounded(scale.top + text.clip.top * scale.down),
                  Rounded(scale.left + text.clip.Right() * scale.across),
                  Rounded(scale.top + text.clip.Bottom() * scale.down)};
  const Selected selected(context, FontOf(font, scale.down));
  if (ExtTextOutW(context, left, Rounded(scale.top + baseline * scale.down), ETO_CLIPPED, &clip,
                  ToWide(text.text).c_str(), static_cast<UINT>(text.text.size()),
                  steps_.data()) == FALSE) {
    ThrowLastError();
  }
}

}  // namespace pricedown::windows
