// The dragging of the splitter: it has the mouse capture and, for Escape, the focus. A cancelled
// drag ends where it began.
#include "windows/control/splitter_window.h"

#include <windowsx.h>

#include <utility>

#include "windows/base/control_ids.h"
#include "windows/base/gdi.h"
#include "windows/base/painting.h"
#include "windows/base/provider_values.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {

SplitterWindow::~SplitterWindow() { provider_.End(Handle()); }

void SplitterWindow::Create(HWND parent, HINSTANCE module, std::u16string_view name) {
  const std::wstring text = ToWide(name);
  Creation creation;
  creation.className = L"PriceDown.Splitter";
  creation.text = text.c_str();
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS;
  creation.parent = parent;
  creation.id = control_ids::kSplitter;
  creation.module = module;
  creation.cursor = IDC_SIZEWE;
  CreateOwn(creation);
}

void SplitterWindow::OnPaint() {
  const PaintDc paint(Handle());
  FillButtonFace(paint.Get(), paint.Area());
  if (GetFocus() == Handle() && !dragging_) {
    RECT area{};
    GetClientRect(Handle(), &area);
    DrawFocusRect(paint.Get(), &area);
  }
}

void SplitterWindow::OnPress(int x) {
  const Lifetime window = WindowLifetime();
  previousFocus_ = GetFocus();
  dragging_ = true;
  SetCapture(Handle());
  SetFocus(Handle());
  // A host that refuses the focus has ended the drag.
  if (window.HasEnded() || !dragging_) return;
  events_.SplitterEvent(SplitterAction::Press, x);
}

void SplitterWindow::EndDrag(bool keep) {
  if (!std::exchange(dragging_, false)) return;
  const Lifetime window = WindowLifetime();
  if (GetCapture() == Handle()) ReleaseCapture();
  if (previousFocus_ != nullptr && previousFocus_ != Handle() && IsWindow(previousFocus_)) {
    SetFocus(previousFocus_);
  }
  if (!keep && !window.HasEnded()) events_.SplitterEvent(SplitterAction::Drag, 0);
  if (!window.HasEnded()) events_.SplitterEvent(SplitterAction::Release, 0);
}

void SplitterWindow::OnKeyDown(WPARAM key) {
  if (key == VK_ESCAPE) {
    EndDrag(false);
  } else if (key == VK_TAB) {
    events_.TabPressed(GetKeyState(VK_SHIFT) < 0);
  } else if (!dragging_ && key == VK_LEFT) {
    events_.SplitterEvent(SplitterAction::StepLeft, 0);
  } else if (!dragging_ && key == VK_RIGHT) {
    events_.SplitterEvent(SplitterAction::StepRight, 0);
  }
}

bool SplitterWindow::MoveBy(int pixels) {
  if (dragging_) return false;
  const Lifetime window = WindowLifetime();
  events_.SplitterEvent(SplitterAction::Press, 0);
  if (!window.HasEnded()) events_.SplitterEvent(SplitterAction::Drag, pixels);
  if (!window.HasEnded()) events_.SplitterEvent(SplitterAction::Release, 0);
  return true;
}

LRESULT SplitterWindow::OnGetObject(WPARAM wParam, LPARAM lParam) {
  return provider_.Return(Handle(), wParam, lParam, [&] {
    reportedPosition_ = SplitterPosition(Handle());
    return MakeCom<SplitterProvider>(static_cast<SplitterAccess&>(*this), provider_.System());
  });
}

void SplitterWindow::ReportPosition() {
  const ComPtr<SplitterProvider> provider = provider_.Get();
  if (!provider) return;
  const int position = SplitterPosition(Handle());
  if (std::exchange(reportedPosition_, position) == position || !provider_.IsListenedTo()) return;
  provider_.System().RaisePropertyChanged(provider.get(), UIA_RangeValueValuePropertyId,
                                          PropertyNumber(static_cast<double>(position)));
}

LRESULT SplitterWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETOBJECT:
      return IsProviderRequest(lParam) ? OnGetObject(wParam, lParam)
                                       : Default(message, wParam, lParam);
    case WM_DESTROY:
      provider_.End(Handle());
      return 0;
    case WM_MOVE:
      ReportPosition();
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      OnPaint();
      return 0;
    case WM_LBUTTONDOWN:
      OnPress(GET_X_LPARAM(lParam));
      return 0;
    case WM_MOUSEMOVE:
      if (dragging_) events_.SplitterEvent(SplitterAction::Drag, GET_X_LPARAM(lParam));
      return 0;
    case WM_LBUTTONUP:
      EndDrag(true);
      return 0;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != Handle()) EndDrag(false);
      return 0;
    case WM_KEYDOWN:
      OnKeyDown(wParam);
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | (dragging_ ? DLGC_WANTALLKEYS : 0);
    case WM_SETFOCUS:
      InvalidateRect(Handle(), nullptr, FALSE);
      events_.FocusEntered();
      return 0;
    case WM_KILLFOCUS: {
      const Lifetime window = WindowLifetime();
      InvalidateRect(Handle(), nullptr, FALSE);
      // It is moving elsewhere.
      previousFocus_ = nullptr;
      EndDrag(false);
      if (!window.HasEnded()) events_.FocusLeft(reinterpret_cast<HWND>(wParam));
      return 0;
    }
    default:
      return Default(message, wParam, lParam);
  }
}

void DragBarWindow::Create(HWND parent, HINSTANCE module) {
  Creation creation;
  creation.className = L"PriceDown.DragBar";
  creation.style = WS_CHILD | WS_CLIPSIBLINGS;
  creation.parent = parent;
  creation.id = control_ids::kDragBar;
  creation.module = module;
  creation.cursor = IDC_SIZEWE;
  CreateOwn(creation);
}

void DragBarWindow::Show(const RECT& area) {
  if (Handle() == nullptr) return;
  SetWindowPos(Handle(), HWND_TOP, area.left, area.top, WidthOf(area), HeightOf(area),
               SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void DragBarWindow::Hide() {
  if (Handle() != nullptr) ShowWindow(Handle(), SW_HIDE);
}

LRESULT DragBarWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return 1;
  if (message != WM_PAINT) return Default(message, wParam, lParam);
  const PaintDc paint(Handle());
  FillArea(paint.Get(), paint.Area(), GetSysColor(COLOR_BTNSHADOW));
  return 0;
}

}  // namespace pricedown::windows
