// Off-screen painting, fills, frames and colours.
#include "windows/base/painting.h"

#include <uxtheme.h>

#include <cstdlib>

#include "windows/base/rectangles.h"

namespace pricedown::windows {

BufferedPaint::BufferedPaint(HDC target, const RECT& area)
    : target_(target), area_(area), memory_(target, WidthOf(area), HeightOf(area)) {
  if (memory_.Get() != nullptr) {
    SetViewportOrgEx(memory_.Get(), -area.left, -area.top, nullptr);
  }
}

BufferedPaint::~BufferedPaint() {
  if (memory_.Get() == nullptr) return;
  BitBlt(target_, area_.left, area_.top, WidthOf(area_), HeightOf(area_), memory_.Get(), area_.left,
         area_.top, SRCCOPY);
}

void FillArea(HDC context, const RECT& area, COLORREF colour) {
  const COLORREF previous = SetBkColor(context, colour);
  ExtTextOutW(context, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
  SetBkColor(context, previous);
}

void FillButtonFace(HDC context, const RECT& area) {
  FillArea(context, area, GetSysColor(COLOR_BTNFACE));
}

LRESULT OnEraseButtonFace(HWND window, WPARAM context) {
  RECT area{};
  GetClientRect(window, &area);
  FillButtonFace(reinterpret_cast<HDC>(context), area);
  return TRUE;
}

void PaintFrame(HDC context, HWND window, const RECT& frame) {
  RECT edge = frame;
  const HTHEME theme = OpenThemeData(window, L"TREEVIEW");
  if (theme == nullptr) {
    DrawEdge(context, &edge, EDGE_SUNKEN, BF_RECT);
    return;
  }
  InflateRect(&edge, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
  {
    const SavedDc saved(context);
    ExcludeClipRect(context, edge.left, edge.top, edge.right, edge.bottom);
    DrawThemeBackground(theme, context, 0, 0, &frame, nullptr);
  }
  CloseThemeData(theme);
}

COLORREF Blend(COLORREF from, COLORREF to, int share) {
  const auto mix = [share](int a, int b) {
    return static_cast<BYTE>((a * (255 - share) + b * share) / 255);
  };
  return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
             mix(GetBValue(from), GetBValue(to)));
}

namespace {

int Distance(COLORREF a, COLORREF b) {
  return std::abs(GetRValue(a) - GetRValue(b)) + std::abs(GetGValue(a) - GetGValue(b)) +
         std::abs(GetBValue(a) - GetBValue(b));
}

}  // namespace

LRESULT OnToolbarDraw(NMTBCUSTOMDRAW& drawing) {
  if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (drawing.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
    // The system dots the ground of a checked button and shades the text of a disabled one with the
    // highlight, which in high contrast is like the text.
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const COLORREF highlight = GetSysColor(COLOR_BTNHIGHLIGHT);
    if (Distance(highlight, GetSysColor(COLOR_BTNTEXT)) < Distance(highlight, face)) {
      drawing.clrBtnHighlight = face;
    }
  }
  return CDRF_DODEFAULT;
}

LRESULT OnButtonFace(WPARAM context) {
  const auto target = reinterpret_cast<HDC>(context);
  SetTextColor(target, GetSysColor(COLOR_BTNTEXT));
  SetBkColor(target, GetSysColor(COLOR_BTNFACE));
  return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
}

}  // namespace pricedown::windows
