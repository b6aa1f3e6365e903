// Creation and end, painting, metrics, scrolling, and the dispatch of messages.
#include "windows/grid/grid_window.h"

#include <imm.h>

#include <algorithm>
#include <optional>

#include "windows/base/context_menu.h"
#include "windows/base/control_ids.h"
#include "windows/base/gdi.h"
#include "windows/base/painting.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

// Of SB_LINEUP, which is SB_LINELEFT, and so on; nothing for the end of a drag.
std::optional<ScrollStep> ScrollStepOf(int code) {
  switch (code) {
    case SB_LINEUP:
      return ScrollStep::LineBack;
    case SB_LINEDOWN:
      return ScrollStep::LineForward;
    case SB_PAGEUP:
      return ScrollStep::PageBack;
    case SB_PAGEDOWN:
      return ScrollStep::PageForward;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return ScrollStep::Track;
    case SB_TOP:
      return ScrollStep::Start;
    case SB_BOTTOM:
      return ScrollStep::End;
    default:
      return std::nullopt;
  }
}

}  // namespace

GridWindow::~GridWindow() {
  if (grid_ != nullptr) grid_->Attach(nullptr);
  grid_ = nullptr;
  accessibility_.End();
  // Here, while the editor can still report its end.
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
  // Nothing is composed over cells; the field of an open cell has the input method again.
  ImmAssociateContext(Handle(), nullptr);
  GridMetricsChanged();
}

void GridWindow::Show(Grid* grid) {
  if (grid_ != nullptr) grid_->Attach(nullptr);
  grid_ = nullptr;
  if (editor_.IsActive() && !CancelEditing()) return;
  grid_ = grid;
  selection_ = {};
  if (grid_ != nullptr) {
    grid_->Attach(this);
    GridMetricsChanged();
  } else if (Handle() != nullptr) {
    viewport_.Geometry().Clear();
    UpdateScrolling();
  }
}

bool GridWindow::FinishEditing() {
  const Lifetime window = WindowLifetime();
  editor_.Finish(0);
  return !window.HasEnded();
}

bool GridWindow::CancelEditing() {
  const Lifetime window = WindowLifetime();
  editor_.Cancel();
  return !window.HasEnded();
}

void GridWindow::UpdateAppearance() {
  if (Handle() == nullptr) return;
  if (Dpi::Of(Handle()) == dpi_) {
    // Typing goes on: only the scroll bars may have another size.
    UpdateScrolling();
  } else {
    GridMetricsChanged();
  }
}

void GridWindow::GridMetricsChanged() {
  if (Handle() == nullptr || !FinishEditing()) return;
  dpi_ = Dpi::Of(Handle());
  font_ = MakeFont(grid_ == nullptr ? Font{} : grid_->CellFont(), dpi_);
  lineHeight_ = LineHeight(Handle(), font_.Get());
  if (grid_ != nullptr) viewport_.Geometry().Update(*grid_, dpi_.Value(), lineHeight_);
  UpdateScrolling();
}

void GridWindow::UpdateScrolling() {
  // Setting a bar can show or hide it and so resize the window, which must not start over.
  if (updatingScrolling_) return;
  updatingScrolling_ = true;
  scrollBarsDue_ = false;
  // A bar that appears leaves less room for the other one.
  RECT area{};
  for (int pass = 0; pass < 3; ++pass) {
    GetClientRect(Handle(), &area);
    FitViewport(area);
    SetScrollBars();
    RECT after{};
    GetClientRect(Handle(), &after);
    if (EqualRect(&area, &after) != FALSE) break;
  }
  updatingScrolling_ = false;
  Invalidate();
}

void GridWindow::FitViewport(const RECT& area) {
  viewport_.Resize({area.right, area.bottom}, grid_ == nullptr ? 0 : grid_->MaxRows());
}

void GridWindow::SetScrollBars() {
  SetScrollBar(SB_VERT,
               {std::max(viewport_.Rows() - 1, 0), viewport_.PageRows(), viewport_.TopRow() - 1});
  SetScrollBar(SB_HORZ, {std::max(viewport_.Geometry().Width() - 1, 0), viewport_.PageWidth(),
                         viewport_.Left()});
}

// The system repaints a bar even if nothing about it changes.
void GridWindow::SetScrollBar(int bar, const ScrollBar& wanted) {
  ScrollBar& current = scrollBars_[static_cast<std::size_t>(bar)];
  if (current == wanted) return;
  current = wanted;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = wanted.last;
  info.nPage = static_cast<UINT>(wanted.page);
  info.nPos = wanted.position;
  SetScrollInfo(Handle(), bar, &info, TRUE);
}

void GridWindow::Scrolled(bool moved) {
  if (!moved) return;
  SetScrollBars();
  Invalidate();
}

void GridWindow::OnScrollBar(int bar, int code) {
  const auto step = ScrollStepOf(code);
  if (!step) return;
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(Handle(), bar, &info);
  Scrolled(bar == SB_VERT ? viewport_.ScrollRows(*step, info.nTrackPos)
                          : viewport_.ScrollColumns(*step, info.nTrackPos));
}

void GridWindow::OnWheel(int delta, bool horizontal) {
  static_assert(static_cast<int>(WHEEL_PAGESCROLL) == GridViewport::kWheelPage);
  UINT lines = 3;
  SystemParametersInfoW(horizontal ? SPI_GETWHEELSCROLLCHARS : SPI_GETWHEELSCROLLLINES, 0, &lines,
                        0);
  Scrolled(viewport_.TurnWheel(delta, static_cast<int>(lines), horizontal));
}

void GridWindow::Invalidate() {
  if (Handle() == nullptr) return;
  InvalidateRect(Handle(), nullptr, FALSE);
  // A load, and the end of typing, change the grid in steps that no client should see.
  if (!events_.Waiting() && !editor_.IsEnding()) accessibility_.Update();
}

void GridWindow::Announce(std::u16string_view text) {
  const Lifetime window = WindowLifetime();
  accessibility_.Update();
  if (!window.HasEnded()) accessibility_.Announce(text);
}

void GridWindow::GridChanged() {
  if (Handle() == nullptr || grid_ == nullptr) return;
  // A client that receives the events may end the window.
  const Lifetime window = WindowLifetime();
  selection_.Fit(*grid_);
  if (grid_->MaxRows() == 0) {
    if (!CancelEditing()) return;
    RECT area{};
    GetClientRect(Handle(), &area);
    FitViewport(area);
    // Every load empties the grid first; hiding the bars and showing them again would cost more
    // than the load of a small class.
    scrollBarsDue_ = true;
    if (events_.Waiting()) accessibility_.RowsReplaced();
    Invalidate();
  } else {
    UpdateScrolling();
  }
  if (!window.HasEnded()) events_.ItemsChanged();
}

void GridWindow::GridFilling() { events_.ItemsFilling(); }

void GridWindow::MarkCurrentCell(bool marked) {
  marked_ = marked;
  Invalidate();
}

GridScene GridWindow::Scene() const {
  RECT client{};
  GetClientRect(Handle(), &client);
  const HWND focus = GetFocus();
  const bool focused = focus != nullptr && (focus == Handle() || focus == editor_.Handle());
  return {grid_,       viewport_, selection_, {client.right, client.bottom},
          font_.Get(), dpi_,      focused,    marked_};
}

void GridWindow::OnPaint() {
  const Lifetime window = WindowLifetime();
  if (scrollBarsDue_) UpdateScrolling();
  if (window.HasEnded()) return;
  const PaintDc paint(Handle());
  if (IsRectEmpty(&paint.Area()) != FALSE) return;
  const BufferedPaint buffer(paint.Get(), paint.Area());
  PaintGrid(buffer.Context(), Scene(), paint.Area());
}

// The system draws the frame of a window of ours in the classic way even where visual styles give
// the tree a plain one.
LRESULT GridWindow::OnFramePaint(WPARAM wParam, LPARAM lParam) {
  const LRESULT result = Default(WM_NCPAINT, wParam, lParam);
  const WindowContext context(Handle(), WindowContext::Extent::Frame);
  RECT frame{};
  GetWindowRect(Handle(), &frame);
  OffsetRect(&frame, -frame.left, -frame.top);
  PaintFrame(context.Get(), Handle(), frame);
  return result;
}

LRESULT GridWindow::OnFocus(UINT message, WPARAM wParam) {
  // A client that receives the events may end the window.
  const Lifetime window = WindowLifetime();
  Invalidate();
  if (window.HasEnded()) return 0;
  const HWND other = reinterpret_cast<HWND>(wParam);
  if (message == WM_SETFOCUS) {
    events_.FocusEntered();
    return 0;
  }
  if (mouse_ != Mouse::Idle && other != Handle()) EndMouse(true);
  if (!window.HasEnded()) events_.FocusLeft(other);
  return 0;
}

LRESULT GridWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (IsContextMenuKey(message, wParam)) {
    OnContextMenu(kByKeyboard);
    return 0;
  }
  switch (message) {
    case WM_GETOBJECT:
      return IsProviderRequest(lParam) ? accessibility_.ReturnProvider(wParam, lParam)
                                       : Default(message, wParam, lParam);
    case WM_DESTROY:
      accessibility_.End();
      return Default(message, wParam, lParam);
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
      UpdateScrolling();
      return 0;
    case WM_VSCROLL:
    case WM_HSCROLL:
      if (FinishEditing()) OnScrollBar(message == WM_VSCROLL ? SB_VERT : SB_HORZ, LOWORD(wParam));
      return 0;
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL: {
      if (!FinishEditing()) return 0;
      const bool across = message == WM_MOUSEHWHEEL || (LOWORD(wParam) & MK_SHIFT) != 0;
      const int delta = static_cast<SHORT>(HIWORD(wParam));
      OnWheel(message == WM_MOUSEWHEEL && across ? -delta : delta, across);
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
