// The mouse on the grid: cells are selected, column edges dragged.
// Part of GridWindow.
#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "windows/base/context_menu.h"
#include "windows/base/gdi.h"
#include "windows/com/wide_text.h"
#include "windows/grid/grid_window.h"

namespace pricedown::windows {
namespace {

constexpr int kEdgeReach = 4;     // pixels at 96 dpi
constexpr int kFitMargin = 12;    // beside the widest text
constexpr int kLeastColumn = 12;  // a column that is dragged does not vanish
constexpr std::size_t kCandidates = 64;

// A measure without a device: Chinese characters are about twice as wide as Latin ones.
std::size_t Weight(std::u16string_view text) {
  std::size_t weight = 0;
  for (const char16_t unit : text) weight += unit > 0xFF ? 2 : 1;
  return weight;
}

}  // namespace

std::int32_t GridWindow::EdgeUnder(POINT point) const {
  if (point.y < 0 || point.y >= geometry_.TitleHeight()) return 0;
  return geometry_.EdgeAt(point.x + scroll_.Left(), dpi_.Scale(kEdgeReach));
}

// May lie outside the grid, above or below.
std::int32_t GridWindow::RowUnder(POINT point) const {
  const int below = point.y - geometry_.TitleHeight();
  if (below < 0) return scroll_.TopRow() - 1;
  return scroll_.TopRow() + below / geometry_.RowHeight();
}

void GridWindow::OnPress(POINT point, bool extend) {
  const std::shared_ptr<void> hold = events_.Hold();
  editor_.Finish(0);
  SetFocus(Handle());
  if (grid_ == nullptr || Handle() == nullptr) return;
  if (const std::int32_t column = EdgeUnder(point)) {
    mouse_ = Mouse::Sizing;
    sizedColumn_ = column;
    widthBefore_ = grid_->ColumnWidth(column);
    SetCapture(Handle());
    return;
  }
  const std::int32_t column = geometry_.ColumnAt(point.x + scroll_.Left());
  if (column == 0) return;
  if (point.y < geometry_.TitleHeight()) {
    // A title selects its column.
    selection_ = {column, 1, column, std::max(grid_->MaxRows(), 1)};
    Invalidate();
    return;
  }
  if (RowUnder(point) > grid_->MaxRows()) return;
  mouse_ = Mouse::Selecting;
  SetCapture(Handle());
  MoveTo(column, RowUnder(point), extend);
}

// Selects the cell unless it is in a selected block, so that the menu is the menu of what is
// selected.
void GridWindow::OnRightPress(POINT point) {
  const std::shared_ptr<void> hold = events_.Hold();
  SetFocus(Handle());
  if (grid_ == nullptr || Handle() == nullptr) return;
  const std::int32_t column = geometry_.ColumnAt(point.x + scroll_.Left());
  const std::int32_t row = RowUnder(point);
  if (column != 0 && row >= 1 && row <= grid_->MaxRows() && point.y >= geometry_.TitleHeight() &&
      !selection_.Range().Contains(column, row)) {
    MoveTo(column, row, false);
  }
}

void GridWindow::OnDrag(POINT point) {
  if (grid_ == nullptr) return;
  if (mouse_ == Mouse::Sizing) {
    SizeColumn(sizedColumn_, point.x + scroll_.Left() - geometry_.Left(sizedColumn_));
  } else if (mouse_ == Mouse::Selecting) {
    MoveTo(geometry_.NearestColumn(point.x + scroll_.Left()), RowUnder(point), true);
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
  const int width = std::max(pixels, dpi_.Scale(kLeastColumn));
  grid_->SetColumnWidth(column, ColumnWidthUnits(width, dpi_.Value()));
}

// Measuring every text of a long grid would take seconds: only the longest ones are.
void GridWindow::FitColumn(std::int32_t column) {
  struct Candidate {
    std::size_t weight;
    std::int32_t row;
  };
  std::vector<Candidate> longest;
  const auto longer = [](const Candidate& a, const Candidate& b) { return a.weight > b.weight; };
  for (std::int32_t row = kTitleRow; row <= grid_->MaxRows(); ++row) {
    const Candidate candidate{Weight(grid_->Text(column, row)), row};
    if (longest.size() == kCandidates) {
      if (candidate.weight <= longest.front().weight) continue;
      std::pop_heap(longest.begin(), longest.end(), longer);
      longest.pop_back();
    }
    longest.push_back(candidate);
    std::push_heap(longest.begin(), longest.end(), longer);
  }
  const WindowContext context(Handle());
  int width = TextWidth(context.Get(), font_.Get(), ToWide(grid_->Text(column, kTitleRow)));
  for (const Candidate& candidate : longest) {
    const std::wstring text = ToWide(grid_->Text(column, candidate.row));
    width = std::max(width, TextWidth(context.Get(), font_.Get(), text));
  }
  SizeColumn(column, width + dpi_.Scale(kFitMargin));
}

void GridWindow::OnDoubleClick(POINT point) {
  if (grid_ == nullptr) return;
  if (const std::int32_t column = EdgeUnder(point)) {
    FitColumn(column);
    return;
  }
  const std::int32_t column = geometry_.ColumnAt(point.x + scroll_.Left());
  if (column != selection_.column || RowUnder(point) != selection_.row) return;
  if (point.y >= geometry_.TitleHeight() && CanEdit()) BeginEditing({});
}

// False for a click beside the client area.
bool GridWindow::OnContextMenu(LPARAM place) {
  const RECT current = CellArea(Scene(), selection_.column, selection_.row);
  const auto point = MenuPlace(Handle(), place, current);
  if (point) events_.MenuRequested(Handle(), *point);
  return point.has_value();
}

bool GridWindow::OnSetCursor() {
  POINT point{};
  GetCursorPos(&point);
  ScreenToClient(Handle(), &point);
  if (EdgeUnder(point) == 0) return false;
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
      EndMouse(true);
      return 0;
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
