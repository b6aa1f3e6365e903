// Scrolling, and the way from a cell to its place and back.
#include "browser/grid_viewport.h"

#include <algorithm>

namespace pricedown {
namespace {

constexpr int kColumnStep = 24;  // pixels at 96 dpi, roughly two characters
constexpr int kWheelNotch = 120;

std::int64_t Stepped(ScrollStep step, std::int64_t position, int line, int page, int track,
                     std::int64_t end) {
  switch (step) {
    case ScrollStep::LineBack:
      return position - line;
    case ScrollStep::LineForward:
      return position + line;
    case ScrollStep::PageBack:
      return position - page;
    case ScrollStep::PageForward:
      return position + page;
    case ScrollStep::Track:
      return track;
    case ScrollStep::Start:
      return 0;
    case ScrollStep::End:
      return end;
  }
  return position;
}

}  // namespace

bool GridViewport::Resize(Size window, std::int32_t rows) {
  rows_ = rows;
  pageRows_ = geometry_.WholeRows(window.height);
  pageWidth_ = std::max(window.width, 1);
  return ScrollTo(topRow_, left_);
}

bool GridViewport::ScrollTo(std::int64_t topRow, std::int64_t left) {
  const auto newTop = static_cast<std::int32_t>(std::clamp<std::int64_t>(topRow, 1, LastTopRow()));
  const auto newLeft = static_cast<int>(std::clamp<std::int64_t>(left, 0, LastLeft()));
  if (newTop == topRow_ && newLeft == left_) return false;
  topRow_ = newTop;
  left_ = newLeft;
  return true;
}

bool GridViewport::ScrollRows(ScrollStep step, std::int32_t track) {
  const int page = std::max(pageRows_ - 1, 1);
  return ScrollTo(Stepped(step, topRow_ - 1, 1, page, track, rows_) + 1, left_);
}

bool GridViewport::ScrollColumns(ScrollStep step, int track) {
  const int line = std::max(geometry_.RowHeight(), kColumnStep);
  return ScrollTo(topRow_, Stepped(step, left_, line, pageWidth_, track, geometry_.Width()));
}

bool GridViewport::TurnWheel(int delta, int lines, bool horizontal) {
  WheelTurns& wheel = horizontal ? columnTurns_ : rowTurns_;
  const int turns = wheel.Steps(delta * (lines == kWheelPage ? pageRows_ : lines), kWheelNotch);
  if (!horizontal) return ScrollTo(std::int64_t{topRow_} - turns, left_);
  const int step = std::max(geometry_.RowHeight(), kColumnStep);
  return ScrollTo(topRow_, left_ + std::int64_t{turns} * step);
}

bool GridViewport::Reveal(std::int32_t column, std::int32_t row) {
  std::int64_t topRow = topRow_;
  if (row < topRow_) topRow = row;
  if (row >= topRow_ + pageRows_) topRow = row - pageRows_ + 1;
  std::int64_t left = left_;
  if (column >= 1 && column <= geometry_.Columns()) {
    if (geometry_.Right(column) > left_ + pageWidth_) left = geometry_.Right(column) - pageWidth_;
    if (geometry_.Left(column) < left) left = geometry_.Left(column);
  }
  return ScrollTo(topRow, left);
}

Rectangle GridViewport::CellArea(std::int32_t column, std::int32_t row) const {
  Rectangle area;
  if (column >= 1 && column <= geometry_.Columns()) {
    area.left = geometry_.Left(column) - left_;
    area.width = geometry_.Right(column) - geometry_.Left(column);
  }
  area.top = geometry_.TitleHeight() + (row - topRow_) * geometry_.RowHeight();
  area.height = geometry_.RowHeight();
  return area;
}

std::int32_t GridViewport::RowAt(int y) const {
  const int below = y - geometry_.TitleHeight();
  return below < 0 ? topRow_ - 1 : topRow_ + below / geometry_.RowHeight();
}

GridHit GridViewport::HitTest(int x, int y, int reach) const {
  GridHit hit;
  hit.title = y < geometry_.TitleHeight();
  if (hit.title && y >= 0) hit.edge = geometry_.EdgeAt(x + left_, reach);
  hit.column = geometry_.ColumnAt(x + left_);
  hit.row = RowAt(y);
  return hit;
}

}  // namespace pricedown
