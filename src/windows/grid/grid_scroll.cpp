// Scrolling by whole rows and by pixels of columns.
// Setting a bar can show or hide it and so resize the window, which must not start over.
#include "windows/grid/grid_scroll.h"

#include <algorithm>
#include <cstdlib>

#include "windows/base/gdi.h"

namespace pricedown::windows {
namespace {

constexpr int kColumnStep = 24;  // design pixels, roughly two characters

SCROLLINFO TrackInfo(HWND window, int bar) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_TRACKPOS;
  GetScrollInfo(window, bar, &info);
  return info;
}

// SB_LINEUP is SB_LINELEFT and so on: one set of codes for both bars.
std::int64_t Moved(int code, std::int64_t position, int line, int page, int track,
                   std::int64_t end) {
  switch (code) {
    case SB_LINEUP:
      return position - line;
    case SB_LINEDOWN:
      return position + line;
    case SB_PAGEUP:
      return position - page;
    case SB_PAGEDOWN:
      return position + page;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return track;
    case SB_TOP:
      return 0;
    case SB_BOTTOM:
      return end;
    default:
      return position;
  }
}

}  // namespace

bool GridScroll::Update(HWND window, const GridGeometry& geometry, std::int32_t rows) {
  if (updating_) return false;
  updating_ = true;
  const std::int32_t topRow = topRow_;
  const int left = left_;
  rows_ = rows;
  width_ = geometry.Width();
  columnStep_ = std::max(geometry.RowHeight(), kColumnStep);
  // A bar that appears takes room from the other one.
  RECT area{};
  for (int pass = 0; pass < 3; ++pass) {
    GetClientRect(window, &area);
    pageRows_ = geometry.WholeRows(HeightOf(area));
    pageWidth_ = std::max(WidthOf(area), 1);
    ScrollTo(window, topRow_, left_);
    SetBars(window);
    RECT after{};
    GetClientRect(window, &after);
    if (EqualRect(&area, &after) != FALSE) break;
  }
  updating_ = false;
  return topRow != topRow_ || left != left_;
}

void GridScroll::SetBars(HWND window) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  info.nMax = std::max(rows_ - 1, 0);
  info.nPage = static_cast<UINT>(pageRows_);
  info.nPos = topRow_ - 1;
  SetScrollInfo(window, SB_VERT, &info, TRUE);
  info.nMax = std::max(width_ - 1, 0);
  info.nPage = static_cast<UINT>(pageWidth_);
  info.nPos = left_;
  SetScrollInfo(window, SB_HORZ, &info, TRUE);
}

bool GridScroll::ScrollTo(HWND window, std::int64_t topRow, std::int64_t left) {
  const std::int64_t lastTop = std::max(rows_ - pageRows_, 0) + 1;
  const std::int64_t lastLeft = std::max(width_ - pageWidth_, 0);
  const auto newTop = static_cast<std::int32_t>(std::clamp<std::int64_t>(topRow, 1, lastTop));
  const auto newLeft = static_cast<int>(std::clamp<std::int64_t>(left, 0, lastLeft));
  if (newTop == topRow_ && newLeft == left_) return false;
  topRow_ = newTop;
  left_ = newLeft;
  if (!updating_) SetBars(window);
  return true;
}

bool GridScroll::OnBar(HWND window, int bar, int code) {
  const int track = TrackInfo(window, bar).nTrackPos;
  if (bar == SB_VERT) {
    const int page = std::max(pageRows_ - 1, 1);
    return ScrollTo(window, Moved(code, topRow_ - 1, 1, page, track, rows_) + 1, left_);
  }
  return ScrollTo(window, topRow_, Moved(code, left_, columnStep_, pageWidth_, track, width_));
}

bool GridScroll::OnWheel(HWND window, int delta, bool horizontal) {
  UINT lines = 3;
  SystemParametersInfoW(horizontal ? SPI_GETWHEELSCROLLCHARS : SPI_GETWHEELSCROLLLINES, 0, &lines,
                        0);
  const int step = lines == WHEEL_PAGESCROLL ? pageRows_ : static_cast<int>(lines);
  wheelRest_ += delta * step;
  const int turns = wheelRest_ / WHEEL_DELTA;
  wheelRest_ -= turns * WHEEL_DELTA;
  if (horizontal) return ScrollTo(window, topRow_, std::int64_t{left_} + turns * columnStep_);
  return ScrollTo(window, std::int64_t{topRow_} - turns, left_);
}

bool GridScroll::Reveal(HWND window, const GridGeometry& geometry, std::int32_t column,
                        std::int32_t row) {
  std::int64_t topRow = topRow_;
  if (row < topRow_) topRow = row;
  if (row >= topRow_ + pageRows_) topRow = row - pageRows_ + 1;
  std::int64_t left = left_;
  if (column >= 1 && column <= geometry.Columns()) {
    if (geometry.Right(column) > left_ + pageWidth_) left = geometry.Right(column) - pageWidth_;
    if (geometry.Left(column) < left) left = geometry.Left(column);
  }
  return ScrollTo(window, topRow, left);
}

}  // namespace pricedown::windows
