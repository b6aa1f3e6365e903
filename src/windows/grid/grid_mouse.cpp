// GridWindow: the mouse. Cells are selected, column edges dragged.
#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "browser/grid_text.h"
#include "windows/base/context_menu.h"
#include "windows/base/gdi.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"
#include "windows/grid/grid_window.h"

namespace pricedown::windows {
namespace {

constexpr int kEdgeReach = 4;       // pixels at 96 dpi
constexpr int kFitMargin = 12;      // beside the widest text
constexpr int kMinimumColumn = 12;  // a column that is dragged does not vanish

}  // namespace

GridHit GridWindow::HitAt(POINT point) const {
  return viewport_.HitTest(point.x, point.y, dpi_.Scale(kEdgeReach));
}

void GridWindow::OnPress(POINT point, bool extend) {
  const Lifetime window = WindowLifetime();
  const GridAccessibility::Step step(accessibility_, window);
  if (!FinishEditing()) return;
  SetFocus(Handle());
  if (window.HasEnded() || grid_ == nullptr) return;
  const GridHit hit = HitAt(point);
  if (hit.edge != 0) {
    mouse_ = Mouse::Sizing;
    sizedColumn_ = hit.edge;
    widthBefore_ = grid_->ColumnWidth(hit.edge);
    SetCapture(Handle());
  } else if (hit.column != 0 && hit.title) {
    selection_.SelectColumn(hit.column, *grid_);
    Invalidate();
  } else if (hit.column != 0 && hit.row <= grid_->MaxRows()) {
    mouse_ = Mouse::Selecting;
    SetCapture(Handle());
    MoveTo(hit.column, hit.row, extend);
  }
}

// Selects the cell unless it is in a selected block, so that the menu is that of the selection.
void GridWindow::OnRightPress(POINT point) {
  const Lifetime window = WindowLifetime();
  const GridAccessibility::Step step(accessibility_, window);
  SetFocus(Handle());
  if (window.HasEnded() || grid_ == nullptr) return;
  const GridHit hit = HitAt(point);
  if (hit.column != 0 && !hit.title && hit.row <= grid_->MaxRows() &&
      !selection_.Range().Contains(hit.column, hit.row)) {
    MoveTo(hit.column, hit.row, false);
  }
}

void GridWindow::OnDrag(POINT point) {
  if (grid_ == nullptr) return;
  const int x = point.x + viewport_.Left();
  if (mouse_ == Mouse::Sizing) {
    SizeColumn(sizedColumn_, x - viewport_.Geometry().Left(sizedColumn_));
  } else if (mouse_ == Mouse::Selecting) {
    MoveTo(viewport_.Geometry().NearestColumn(x), viewport_.RowAt(point.y), true);
  }
}

void GridWindow::EndMouse(bool keep) {
  const Mouse mouse = std::exchange(mouse_, Mouse::Idle);
  if (mouse == Mouse::Idle) return;
  if (GetCapture() == Handle()) ReleaseCapture();
  if (mouse == Mouse::Sizing && !keep && grid_ != nullptr) {
    grid_->SetColumnWidth(sizedColumn_, widthBefore_);
  }
}

void GridWindow::SizeColumn(std::int32_t column, int pixels) {
  const int width = std::max(pixels, dpi_.Scale(kMinimumColumn));
  grid_->SetColumnWidth(column, ColumnWidthUnits(width, dpi_.Value()));
}

void GridWindow::FitColumn(std::int32_t column) {
  const WindowContext context(Handle());
  int width = 0;
  for (const std::int32_t row : RowsOfLongestTexts(*grid_, column)) {
    const std::wstring text = ToWide(grid_->Text(column, row));
    width = std::max(width, TextWidth(context.Get(), font_.Get(), text));
  }
  SizeColumn(column, width + dpi_.Scale(kFitMargin));
}

void GridWindow::OnDoubleClick(POINT point) {
  if (grid_ == nullptr) return;
  const GridHit hit = HitAt(point);
  if (hit.edge != 0) {
    FitColumn(hit.edge);
  } else if (!hit.title && hit.column == selection_.column && hit.row == selection_.row &&
             CanEdit()) {
    BeginEditing({});
  }
}

// False for a click beside the client area.
bool GridWindow::OnContextMenu(LPARAM place) {
  const RECT current = ToRect(viewport_.CellArea(selection_.column, selection_.row));
  const auto point = MenuPlace(Handle(), place, current);
  if (point) events_.MenuRequested(Handle(), *point);
  return point.has_value();
}

bool GridWindow::OnSetCursor() {
  POINT point{};
  GetCursorPos(&point);
  ScreenToClient(Handle(), &point);
  if (HitAt(point).edge == 0) return false;
  SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
  return true;
}

LRESULT GridWindow::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_LBUTTONDOWN:
      OnPress(point, (wParam & MK_SHIFT) != 0);
      return 0;
    case WM_LBUTTONDBLCLK:
      OnDoubleClick(point);
      return 0;
    case WM_RBUTTONDOWN:
      OnRightPress(point);
      return 0;
    case WM_MOUSEMOVE:
      OnDrag(point);
      return 0;
    case WM_LBUTTONUP:
    case WM_CAPTURECHANGED:
      EndMouse(true);
      return 0;
    case WM_SETCURSOR:
      if (LOWORD(lParam) == HTCLIENT && !events_.Waiting() && OnSetCursor()) return TRUE;
      return Default(message, wParam, lParam);
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace pricedown::windows
