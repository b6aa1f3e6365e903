// Paints a heading panel in the system's colours.
#include "windows/control/heading_window.h"

#include "windows/base/dpi.h"
#include "windows/base/gdi.h"
#include "windows/base/painting.h"
#include "windows/base/plain_control.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr int kTextMargin = 6;  // pixels at 96 dpi

}  // namespace

void HeadingWindow::Create(HWND parent, HINSTANCE module, int id, std::u16string_view caption) {
  const std::wstring text = ToWide(caption);
  Creation creation;
  creation.className = L"PriceDown.Heading";
  creation.text = text.c_str();
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
  creation.parent = parent;
  creation.id = id;
  creation.module = module;
  creation.classStyle = CS_HREDRAW | CS_VREDRAW;
  CreateOwn(creation);
}

void HeadingWindow::Paint(HDC context, const RECT& area) {
  RECT panel = area;
  FillButtonFace(context, panel);
  DrawEdge(context, &panel, BDR_RAISEDINNER, BF_RECT | BF_ADJUST);
  panel.left += Dpi::Of(Handle()).Scale(kTextMargin);
  const std::wstring text = ToWide(TextOf(Handle()));
  const Selected font(context, font_ != nullptr ? font_ : GetStockObject(DEFAULT_GUI_FONT));
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
  DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &panel,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

LRESULT HeadingWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT: {
      const PaintDc paint(Handle());
      RECT area{};
      GetClientRect(Handle(), &area);
      Paint(BufferedPaint(paint.Get(), area).Context(), area);
      return 0;
    }
    case WM_PRINTCLIENT: {
      RECT area{};
      GetClientRect(Handle(), &area);
      Paint(reinterpret_cast<HDC>(wParam), area);
      return 0;
    }
    case WM_SETFONT:
      font_ = reinterpret_cast<HFONT>(wParam);
      InvalidateRect(Handle(), nullptr, FALSE);
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(font_);
    case WM_SETTEXT: {
      const LRESULT result = Default(message, wParam, lParam);
      InvalidateRect(Handle(), nullptr, FALSE);
      return result;
    }
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace pricedown::windows
