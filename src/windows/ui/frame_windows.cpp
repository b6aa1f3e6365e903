// The parking window and the grid pane.
// Neither takes part in what the user does.
#include "windows/ui/frame_windows.h"

#include "windows/ui/control_ids.h"
#include "windows/ui/gdi.h"

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
  if (message == WM_SETTINGCHANGE || message == WM_SYSCOLORCHANGE || message == WM_THEMECHANGED) {
    if (handler_) handler_(message);
  }
  return Default(message, wParam, lParam);
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
  PAINTSTRUCT paint{};
  const HDC context = BeginPaint(Handle(), &paint);
  FillArea(context, paint.rcPaint, GetSysColor(COLOR_BTNFACE));
  EndPaint(Handle(), &paint);
  return 0;
}

}  // namespace pricedown::windows
