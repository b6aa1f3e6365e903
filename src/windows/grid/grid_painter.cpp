// One painter per painting, with the system's colours of that moment.
#include "windows/grid/grid_painter.h"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "windows/base/gdi.h"
#include "windows/base/painting.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr int kGridLineShare = 45;  // of 255, from the background to the text
constexpr int kCursorWidth = 2;
// Of 255, where the tooltip's colour is that of open cells: also seen in white on black.
constexpr int kTintShare = 28;
constexpr int kTooLike = 8;  // of 255, in each part of a colour
// Of 255: distinct from locked cells in every colour scheme.
constexpr int kUnfocusedShare = 55;

bool LookAlike(COLORREF a, COLORREF b) {
  return std::abs(GetRValue(a) - GetRValue(b)) < kTooLike &&
         std::abs(GetGValue(a) - GetGValue(b)) < kTooLike &&
         std::abs(GetBValue(a) - GetBValue(b)) < kTooLike;
}

class Painter {
 public:
  Painter(HDC context, const GridScene& scene, const RECT& area)
      : context_(context),
        scene_(scene),
        geometry_(scene.viewport.Geometry()),
        area_(area),
        line_(std::max(scene.dpi.Scale(1), 1)),
        lineColour_(
            Blend(GetSysColor(COLOR_WINDOW), GetSysColor(COLOR_WINDOWTEXT), kGridLineShare)),
        fontScope_(context, scene.font) {
    SetBkMode(context, TRANSPARENT);
  }

  void Paint() {
    PaintRows();
    PaintCursor();
    // Last, because a row may be scrolled half under the titles.
    PaintTitles();
  }

 private:
  std::int32_t Rows() const { return scene_.grid == nullptr ? 0 : scene_.grid->MaxRows(); }

  RECT CellArea(std::int32_t column, std::int32_t row) const {
    return ToRect(scene_.viewport.CellArea(column, row));
  }

  bool IsVisible(const RECT& area) const {
    RECT common{};
    return IntersectRect(&common, &area, &area_) != FALSE;
  }

  void PaintRows() {
    const RECT rows{area_.left, std::max<LONG>(area_.top, geometry_.TitleHeight()), area_.right,
                    area_.bottom};
    if (rows.top >= rows.bottom) return;
    FillArea(context_, rows, GetSysColor(COLOR_WINDOW));
    const int rowHeight = geometry_.RowHeight();
    const int first = (rows.top - geometry_.TitleHeight()) / rowHeight;
    const int last = (rows.bottom - geometry_.TitleHeight()) / rowHeight;
    for (int index = first; index <= last; ++index) {
      const std::int32_t row = scene_.viewport.TopRow() + index;
      if (row <= Rows()) PaintCells(row);
      const LONG bottom = CellArea(1, row).bottom;
      FillArea(context_, {rows.left, bottom - line_, rows.right, bottom}, lineColour_);
    }
    for (std::int32_t column = 1; column <= geometry_.Columns(); ++column) {
      const LONG right = geometry_.Right(column) - scene_.viewport.Left();
      if (geometry_.Left(column) == geometry_.Right(column)) continue;
      FillArea(context_, {right - line_, rows.top, right, rows.bottom}, lineColour_);
    }
  }

  void PaintCells(std::int32_t row) {
    for (std::int32_t column = 1; column <= geometry_.Columns(); ++column) {
      const RECT area = CellArea(column, row);
      if (area.left != area.right && IsVisible(area)) PaintCell(column, row, area);
    }
  }

  // Without the lines, and on a background of open cells.
  void PaintCell(std::int32_t column, std::int32_t row, const RECT& area) {
    const COLORREF open = GetSysColor(COLOR_WINDOW);
    COLORREF background = open;
    COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    FindColours(column, row, background, text);
    const RECT inner{area.left, area.top, area.right - line_, area.bottom - line_};
    if (background != open) FillArea(context_, inner, background);
    SetTextColor(context_, text);
    const bool isNumber = scene_.grid->UpperBound(column, row).has_value();
    PaintText(scene_.grid->Text(column, row), inner, isNumber ? DT_RIGHT : DT_LEFT);
  }

  void FindColours(std::int32_t column, std::int32_t row, COLORREF& background, COLORREF& text) {
    switch (LookOf(*scene_.grid, scene_.selection, column, row, scene_.focused)) {
      case CellLook::Open:
        break;
      case CellLook::Selected:
        background = GetSysColor(COLOR_HIGHLIGHT);
        text = GetSysColor(COLOR_HIGHLIGHTTEXT);
        break;
      case CellLook::SelectedUnfocused:
        background = Blend(background, text, kUnfocusedShare);
        break;
      case CellLook::Locked:
        FindLockedColours(background, text);
        break;
    }
  }

  void FindLockedColours(COLORREF& background, COLORREF& text) {
    background = GetSysColor(COLOR_INFOBK);
    const COLORREF open = GetSysColor(COLOR_WINDOW);
    if (LookAlike(background, open)) {
      background = Blend(open, text, kTintShare);
    } else {
      text = GetSysColor(COLOR_INFOTEXT);
    }
  }

  void PaintText(std::u16string_view text, RECT area, UINT alignment) {
    if (text.empty()) return;
    const int margin = scene_.dpi.Scale(kCellTextMargin);
    area.left += margin;
    area.right -= margin;
    if (area.left >= area.right) return;
    buffer_.resize(text.size());
    CopyWide(text, buffer_.data());
    DrawTextW(context_, buffer_.data(), static_cast<int>(buffer_.size()), &area,
              alignment | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
  }

  void PaintTitles() {
    const RECT band{0, 0, scene_.window.cx, geometry_.TitleHeight()};
    if (!IsVisible(band)) return;
    FillButtonFace(context_, band);
    SetTextColor(context_, GetSysColor(COLOR_BTNTEXT));
    for (std::int32_t column = 1; column <= geometry_.Columns(); ++column) {
      RECT area{geometry_.Left(column) - scene_.viewport.Left(), 0,
                geometry_.Right(column) - scene_.viewport.Left(), band.bottom};
      if (area.left == area.right) continue;
      PaintRaised(area);
      // A grid may be detached before its columns are.
      if (scene_.grid != nullptr) PaintText(scene_.grid->Text(column, kTitleRow), area, DT_CENTER);
    }
    const int end = std::max(geometry_.Width() - scene_.viewport.Left(), 0);
    if (end < band.right) PaintRaised({end, 0, band.right, band.bottom});
  }

  void PaintRaised(const RECT& area) {
    const COLORREF light = GetSysColor(COLOR_BTNHIGHLIGHT);
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    FillArea(context_, {area.left, area.top, area.right, area.top + line_}, light);
    FillArea(context_, {area.left, area.top, area.left + line_, area.bottom}, light);
    FillArea(context_, {area.left, area.bottom - line_, area.right, area.bottom}, shadow);
    FillArea(context_, {area.right - line_, area.top, area.right, area.bottom}, shadow);
  }

  void PaintCursor() {
    if (scene_.selection.row > Rows() || scene_.selection.row < scene_.viewport.TopRow()) return;
    const RECT cell = CellArea(scene_.selection.column, scene_.selection.row);
    if (cell.left == cell.right || !IsVisible(cell)) return;
    const bool bold = scene_.focused || scene_.marked;
    const int width = bold ? scene_.dpi.Scale(kCursorWidth) : line_;
    const COLORREF colour = GetSysColor(bold ? COLOR_HIGHLIGHT : COLOR_BTNSHADOW);
    FillArea(context_, {cell.left, cell.top, cell.right, cell.top + width}, colour);
    FillArea(context_, {cell.left, cell.bottom - width, cell.right, cell.bottom}, colour);
    FillArea(context_, {cell.left, cell.top, cell.left + width, cell.bottom}, colour);
    FillArea(context_, {cell.right - width, cell.top, cell.right, cell.bottom}, colour);
  }

  HDC context_;
  const GridScene& scene_;
  const GridGeometry& geometry_;
  RECT area_;
  int line_;
  COLORREF lineColour_;
  Selected fontScope_;
  std::wstring buffer_;
};

}  // namespace

void PaintGrid(HDC context, const GridScene& scene, const RECT& area) {
  Painter(context, scene, area).Paint();
}

}  // namespace pricedown::windows
