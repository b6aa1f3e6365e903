// The parking window, the grid pane and the lines.
#include "windows/base/frame_windows.h"

#include "windows/base/control_ids.h"
#include "windows/base/gdi.h"
#include "windows/base/painting.h"

namespace pricedown::windows {

void ParkingWindow::Create(HINSTANCE module) {
  Creation creation;
  creation.className = L"PriceDown.Parking";
  creation.style = WS_POPUP;
  creation.extendedStyle = WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE;
  creation.module = module;
  CreateOwn(creation);
}

LRESULT ParkingWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const LRESULT result = Default(message, wParam, lParam);
  if (message != WM_SETTINGCHANGE && message != WM_SYSCOLORCHANGE && message != WM_THEMECHANGED) {
    return result;
  }
  // A copy, and last, because the handler may end the control and this window with it.
  const std::function<void(UINT)> handler = handler_;
  if (handler) handler(message);
  return result;
}

void PaneWindow::Create(HWND parent, HINSTANCE module) {
  Creation creation;
  creation.className = L"PriceDown.Pane";
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
  creation.extendedStyle = WS_EX_CONTROLPARENT;
  creation.parent = parent;
  creation.id = control_ids::kGridPane;
  creation.module = module;
  CreateOwn(creation);
}

LRESULT PaneWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return 1;
  if (message != WM_PAINT) return Default(message, wParam, lParam);
  const PaintDc paint(Handle());
  FillButtonFace(paint.Get(), paint.Area());
  return 0;
}

void LineWindow::Create(HWND parent, HINSTANCE module, int id) {
  Creation creation;
  creation.className = L"PriceDown.Line";
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
  creation.parent = parent;
  creation.id = id;
  creation.module = module;
  creation.classStyle = CS_HREDRAW | CS_VREDRAW;
  CreateOwn(creation);
}

void LineWindow::Paint(HDC context) const {
  RECT area{};
  GetClientRect(Handle(), &area);
  const int middle = (area.top + area.bottom) / 2;
  FillArea(context, {area.left, area.top, area.right, middle}, GetSysColor(COLOR_BTNSHADOW));
  FillArea(context, {area.left, middle, area.right, area.bottom}, GetSysColor(COLOR_BTNHIGHLIGHT));
}

LRESULT LineWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PRINTCLIENT:
      Paint(reinterpret_cast<HDC>(wParam));
      return 0;
    case WM_PAINT:
      Paint(PaintDc(Handle()).Get());
      return 0;
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace pricedown::windows
