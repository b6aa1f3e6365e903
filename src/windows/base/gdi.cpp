// Off-screen painting and solid fills.
// The owners are in the header.
#include "windows/base/gdi.h"

#include <uxtheme.h>

namespace pricedown::windows {

BufferedPaint::BufferedPaint(HDC target, const RECT& area) : target_(target), area_(area) {
  bitmap_ = GdiObject(CreateCompatibleBitmap(target, WidthOf(area), HeightOf(area)));
  if (!bitmap_) return;
  memory_ = CreateCompatibleDC(target);
  if (memory_ == nullptr) return;
  previous_ = SelectObject(memory_, bitmap_.Get());
  SetViewportOrgEx(memory_, -area.left, -area.top, nullptr);
}

BufferedPaint::~BufferedPaint() {
  if (memory_ == nullptr) return;
  BitBlt(target_, area_.left, area_.top, WidthOf(area_), HeightOf(area_), memory_, area_.left,
         area_.top, SRCCOPY);
  SelectObject(memory_, previous_);
  DeleteDC(memory_);
}

void FillArea(HDC context, const RECT& area, COLORREF colour) {
  const COLORREF previous = SetBkColor(context, colour);
  ExtTextOutW(context, 0, 0, ETO_OPAQUE, &area, nullptr, 0, nullptr);
  SetBkColor(context, previous);
}

void PaintFrame(HDC context, HWND window, const RECT& frame) {
  RECT edge = frame;
  const HTHEME theme = OpenThemeData(window, L"TREEVIEW");
  if (theme == nullptr) {
    DrawEdge(context, &edge, EDGE_SUNKEN, BF_RECT);
    return;
  }
  InflateRect(&edge, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
  const int saved = SaveDC(context);
  ExcludeClipRect(context, edge.left, edge.top, edge.right, edge.bottom);
  DrawThemeBackground(theme, context, 0, 0, &frame, nullptr);
  RestoreDC(context, saved);
  CloseThemeData(theme);
}

COLORREF Blend(COLORREF from, COLORREF to, int share) {
  const auto mix = [share](int a, int b) {
    return static_cast<BYTE>((a * (255 - share) + b * share) / 255);
  };
  return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
             mix(GetBValue(from), GetBValue(to)));
}

}  // namespace pricedown::windows
