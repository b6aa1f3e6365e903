// The grid's window: its life, painting, metrics and the spreading of messages.
// Mouse, keyboard and editing are in files of their own.
#include "windows/grid/grid_window.h"

#include "windows/base/context_menu.h"
#include "windows/base/control_ids.h"
#include "windows/base/gdi.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {

GridWindow::~GridWindow() {
  if (grid_ != nullptr) grid_->Attach(nullptr);
  grid_ = nullptr;
  // Now, while the editor can still tell of its end.
  Destroy();
}

void GridWindow::Create(HWND parent, HINSTANCE module, std::u16string_view name) {
  const std::wstring text = ToWide(name);
  module_ = module;
  Creation creation;
  creation.className = L"PriceDown.Grid";
  creation.text = text.c_str();
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_TABSTOP |
                   WS_HSCROLL | WS_VSCROLL;
  creation.extendedStyle = WS_EX_CLIENTEDGE;
  creation.parent = parent;
  creation.id = control_ids::kGrid;
  creation.module = module;
  creation.classStyle = CS_DBLCLKS;
  CreateOwn(creation);
  TakeAppearance();
}

void GridWindow::Show(Grid* grid) {
  if (grid_ != nullptr) grid_->Attach(nullptr);
  editor_.Cancel();
  grid_ = grid;
  selection_ = {};
  if (grid_ != nullptr) {
    grid_->Attach(this);
    TakeAppearance();
  } else if (Handle() != nullptr) {
    // Nothing that could fail: this is also how the grid's owner ends.
    geometry_.Clear();
    scroll_.Update(Handle(), geometry_, 0);
    Invalidate();
  }
}

void GridWindow::TakeAppearance() {
  if (Handle() == nullptr) return;
  dpi_ = Dpi::Of(Handle());
  UpdateMetrics();
}

void GridWindow::UpdateMetrics() {
  if (Handle() == nullptr) return;
  editor_.Cancel();
  font_ = MakeFont(grid_ == nullptr ? Font{} : grid_->CellFont(), dpi_);
  lineHeight_ = LineHeight(Handle(), font_.Get());
  if (grid_ != nullptr) geometry_.Update(*grid_, dpi_.Value(), lineHeight_);
  scroll_.Update(Handle(), geometry_, grid_ == nullptr ? 0 : grid_->MaxRows());
  Invalidate();
}

void GridWindow::Invalidate() {
  if (Handle() != nullptr) InvalidateRect(Handle(), nullptr, FALSE);
}

void GridWindow::GridChanged() {
  if (Handle() == nullptr || grid_ == nullptr) return;
  if (grid_->MaxRows() == 0) {
    editor_.Cancel();
    selection_ = {};
  } else if (selection_.row > grid_->MaxRows() || selection_.anchorRow > grid_->MaxRows()) {
    selection_.MoveTo(selection_.column, selection_.row, false, *grid_);
  }
  scroll_.Update(Handle(), geometry_, grid_->MaxRows());
  Invalidate();
  events_.ItemsChanged();
}

void GridWindow::GridMetricsChanged() { UpdateMetrics(); }

void GridWindow::GridFilling() { events_.ItemsFilling(); }

GridScene GridWindow::Scene() const {
  RECT client{};
  GetClientRect(Handle(), &client);
  GridScene scene{grid_, geometry_, selection_};
  scene.topRow = scroll_.TopRow();
  scene.left = scroll_.Left();
  scene.window = {client.right, client.bottom};
  scene.font = font_.Get();
  scene.dpi = dpi_;
  const HWND focus = GetFocus();
  scene.focused = focus != nullptr && (focus == Handle() || focus == editor_.Handle());
  return scene;
}

void GridWindow::OnPaint() {
  const PaintDc paint(Handle());
  if (IsRectEmpty(&paint.Area()) != FALSE) return;
  const BufferedPaint buffer(paint.Get(), paint.Area());
  PaintGrid(buffer.Context(), Scene(), paint.Area());
}

// The system draws the frame of a window of ours in the classic way even where visual styles give
// the tree a plain one.
LRESULT GridWindow::OnFramePaint(WPARAM wParam, LPARAM lParam) {
  const LRESULT result = Default(WM_NCPAINT, wParam, lParam);
  const HDC context = GetWindowDC(Handle());
  RECT frame{};
  GetWindowRect(Handle(), &frame);
  OffsetRect(&frame, -frame.left, -frame.top);
  PaintFrame(context, Handle(), frame);
  ReleaseDC(Handle(), context);
  return result;
}

LRESULT GridWindow::OnFocus(UINT message, WPARAM wParam) {
  Invalidate();
  const HWND from = reinterpret_cast<HWND>(wParam);
  if (message == WM_SETFOCUS) {
    events_.FocusEntered(from);
  } else if (mouse_ != Mouse::Idle && from != Handle()) {
    EndMouse(true);
  }
  return 0;
}

LRESULT GridWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (AsksForMenu(message, wParam)) {
    OnContextMenu(kByKeyboard);
    return 0;
  }
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      OnPaint();
      return 0;
    case WM_NCPAINT:
      return OnFramePaint(wParam, lParam);
    case WM_PRINTCLIENT: {
      const GridScene scene = Scene();
      PaintGrid(reinterpret_cast<HDC>(wParam), scene, {0, 0, scene.window.cx, scene.window.cy});
      return 0;
    }
    case WM_SIZE:
      scroll_.Update(Handle(), geometry_, grid_ == nullptr ? 0 : grid_->MaxRows());
      Invalidate();
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
      editor_.Finish(0);
      if (scroll_.OnBar(Handle(), message == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(wParam))) {
        Invalidate();
      }
      return 0;
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL: {
      editor_.Finish(0);
      const bool across = message == WM_MOUSEHWHEEL || (LOWORD(wParam) & MK_SHIFT) != 0;
      const int delta = static_cast<SHORT>(HIWORD(wParam));
      if (scroll_.OnWheel(Handle(), message == WM_MOUSEWHEEL && across ? -delta : delta, across)) {
        Invalidate();
      }
      return 0;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      return OnFocus(message, wParam);
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS | DLGC_WANTCHARS;
    case WM_KEYDOWN:
    case WM_CHAR:
    case WM_COPY:
      return OnKeyboard(message, wParam, lParam);
    case WM_CONTEXTMENU:
      return OnContextMenu(lParam) ? 0 : Default(message, wParam, lParam);
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN:
    case WM_MOUSEMOVE:
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
    case WM_SETCURSOR:
      return OnMouse(message, wParam, lParam);
    case WM_CTLCOLOREDIT:
      SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
      SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
      return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace pricedown::windows
