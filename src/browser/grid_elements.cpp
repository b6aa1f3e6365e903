// The names, places and neighbours of the elements, computed on request.
#include "browser/grid_elements.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/convert.h"
#include "platform/text.h"

namespace pricedown {
namespace {

constexpr std::u16string_view kTitlesName = u"列标题";

// The first number in the text, 0 for none: a row's name and id begin with its number, so that the
// only row that can have them is found without a walk.
std::int32_t FirstNumber(std::u16string_view text) {
  const auto isDigit = [](char16_t unit) { return unit >= u'0' && unit <= u'9'; };
  std::int64_t number = 0;
  for (auto unit = std::find_if(text.begin(), text.end(), isDigit);
       unit != text.end() && isDigit(*unit); ++unit) {
    number = number * 10 + (*unit - u'0');
    if (number > INT32_MAX) return 0;
  }
  return static_cast<std::int32_t>(number);
}

Rectangle Common(const Rectangle& a, const Rectangle& b) {
  Rectangle common;
  common.left = std::max(a.left, b.left);
  common.top = std::max(a.top, b.top);
  common.width = std::min(a.Right(), b.Right()) - common.left;
  common.height = std::min(a.Bottom(), b.Bottom()) - common.top;
  return common.IsEmpty() ? Rectangle{} : common;
}

// `position` runs from 0 to `last`.
ScrollExtent Extent(int position, int last, int page, int whole) {
  if (last <= 0) return {};
  return {true, position * 100.0 / last, page * 100.0 / whole};
}

}  // namespace

bool GridElements::Exists(GridElement element) const {
  return element.column >= 0 && element.column <= Columns() && element.row >= kTitleRow &&
         element.row <= Rows() && Columns() > 0;
}

std::u16string GridElements::Name(GridElement element) const {
  if (element.IsRow()) {
    return Concatenate({u"第 ", NumberText(element.row), u" 行，共 ", NumberText(Rows()), u" 行"});
  }
  if (element.column == 0) return std::u16string(kTitlesName);
  const std::u16string_view text = Text(element);
  const bool isNumber = grid_->UpperBound(element.column, element.row).has_value();
  return std::u16string(isNumber || text.empty() ? Text({element.column, kTitleRow}) : text);
}

std::u16string GridElements::FieldName(GridElement cell) const {
  return Concatenate({Text({cell.column, kTitleRow}), u"，第 ", NumberText(cell.row), u" 行"});
}

std::u16string GridElements::Id(GridElement element) const {
  const std::u16string column = NumberText(element.column);
  if (element.row == kTitleRow) {
    return element.column == 0 ? u"titles" : Concatenate({u"title", column});
  }
  const std::u16string row = Concatenate({u"row", NumberText(element.row)});
  return element.column == 0 ? row : Concatenate({row, u".column", column});
}

std::u16string_view GridElements::Text(GridElement cell) const {
  return grid_ == nullptr ? std::u16string_view() : grid_->Text(cell.column, cell.row);
}

bool GridElements::IsEditable(GridElement cell) const {
  return grid_ != nullptr && grid_->IsEditable(cell.column, cell.row);
}

Rectangle GridElements::Area(GridElement element) const {
  const GridGeometry& geometry = viewport_.Geometry();
  // A row that is scrolled far away has no position that fits.
  if (element.row != kTitleRow && !IsShown(element.row)) return {};
  Rectangle area = viewport_.CellArea(element.column, element.row);
  if (element.column == 0) {
    area.left = -viewport_.Left();
    area.width = geometry.Width();
  }
  const int below = std::min(geometry.TitleHeight(), window_.height);
  if (element.row == kTitleRow) {
    area.top = 0;
    area.height = geometry.TitleHeight();
    return Common(area, {0, 0, window_.width, below});
  }
  return Common(area, {0, below, window_.width, window_.height - below});
}

std::optional<GridElement> GridElements::At(int x, int y) const {
  // The grid's scroll bars lie beyond, over cells that would be found.
  if (x < 0 || y < 0 || x >= window_.width || y >= window_.height) return std::nullopt;
  const GridHit hit = viewport_.HitTest(x, y, 0);
  const GridElement element{hit.column, hit.title ? kTitleRow : hit.row};
  if (hit.column == 0 || !Exists(element)) return std::nullopt;
  return element;
}

std::int32_t GridElements::LastShown() const {
  const GridGeometry& geometry = viewport_.Geometry();
  const int below = std::max(window_.height - geometry.TitleHeight(), 0);
  // The last one may show in part.
  const int rows = (below + geometry.RowHeight() - 1) / geometry.RowHeight();
  return std::min(viewport_.TopRow() + rows - 1, Rows());
}

bool GridElements::IsShown(std::int32_t row) const {
  return row >= viewport_.TopRow() && row <= LastShown();
}

std::optional<GridElement> GridElements::Parent(GridElement element) const {
  return element.column == 0 ? std::nullopt : std::optional(GridElement{0, element.row});
}

std::optional<GridElement> GridElements::FirstChild(std::optional<GridElement> parent) const {
  if (Columns() == 0 || (parent && parent->column != 0)) return std::nullopt;
  return parent ? GridElement{1, parent->row} : GridElement{};
}

std::optional<GridElement> GridElements::LastChild(std::optional<GridElement> parent) const {
  if (Columns() == 0 || (parent && parent->column != 0)) return std::nullopt;
  if (parent) return GridElement{Columns(), parent->row};
  return IsShown(LastShown()) ? GridElement{0, LastShown()} : GridElement{};
}

std::optional<GridElement> GridElements::Next(GridElement element) const {
  if (element.column != 0) {
    if (element.column == Columns()) return std::nullopt;
    return GridElement{element.column + 1, element.row};
  }
  if (element.row != kTitleRow && !IsShown(element.row)) return std::nullopt;
  const std::int32_t next = element.row == kTitleRow ? viewport_.TopRow() : element.row + 1;
  return IsShown(next) ? std::optional(GridElement{0, next}) : std::nullopt;
}

std::optional<GridElement> GridElements::Previous(GridElement element) const {
  if (element.column != 0) {
    if (element.column == 1) return std::nullopt;
    return GridElement{element.column - 1, element.row};
  }
  if (!IsShown(element.row)) return std::nullopt;
  return element.row == viewport_.TopRow() ? GridElement{} : GridElement{0, element.row - 1};
}

bool GridElements::IsSelected(GridElement element) const {
  if (element.row == kTitleRow || !Exists(element)) return false;
  const CellRange range = selection_.Range();
  if (element.IsCell()) return range.Contains(element.column, element.row);
  return range.Contains(1, element.row) && range.Contains(Columns(), element.row);
}

std::vector<GridElement> GridElements::SelectedCells() const {
  std::vector<GridElement> cells;
  const auto current = Current();
  if (!current) return cells;
  if (!IsShown(current->row)) cells.push_back(*current);
  const CellRange range = selection_.Range();
  const std::int32_t last = std::min(range.row2, LastShown());
  for (std::int32_t row = std::max(range.row, viewport_.TopRow()); row <= last; ++row) {
    for (std::int32_t column = range.column; column <= range.column2; ++column) {
      cells.push_back({column, row});
    }
  }
  return cells;
}

std::optional<GridElement> GridElements::Current() const {
  const GridElement current{selection_.column, selection_.row};
  return Exists(current) ? std::optional(current) : std::nullopt;
}

GridSelection GridElements::Select(GridElement element, bool extend) const {
  GridSelection selection = selection_;
  const bool isRow = element.IsRow();
  selection.MoveTo(isRow ? selection.column : element.column, element.row, extend, *grid_);
  if (isRow) selection.SelectRows(*grid_);
  return selection;
}

std::optional<GridElement> GridElements::FindRow(std::int32_t row, RowKey key,
                                                 std::u16string_view text) const {
  const auto found = [&](std::int32_t candidate) {
    const GridElement element{0, candidate};
    const bool valid = candidate > row && Exists(element);
    return valid ? std::optional(element) : std::nullopt;
  };
  switch (key) {
    case RowKey::Any:
      return found(row + 1);
    case RowKey::Name:
    case RowKey::Id: {
      const auto candidate = found(FirstNumber(text));
      if (!candidate) return std::nullopt;
      const std::u16string own = key == RowKey::Name ? Name(*candidate) : Id(*candidate);
      return own == text ? candidate : std::nullopt;
    }
    case RowKey::Text:
      for (std::int32_t candidate = row + 1; candidate <= Rows(); ++candidate) {
        for (std::int32_t column = 1; column <= Columns(); ++column) {
          if (grid_->Text(column, candidate) == text) return GridElement{0, candidate};
        }
      }
      return std::nullopt;
    case RowKey::Selected: {
      const auto candidate = found(std::max(selection_.Range().row, row + 1));
      return candidate && IsSelected(*candidate) ? candidate : std::nullopt;
    }
    case RowKey::NotSelected: {
      const auto candidate = found(row + 1);
      if (!candidate || !IsSelected(*candidate)) return candidate;
      return found(selection_.Range().row2 + 1);
    }
  }
  return std::nullopt;
}

ScrollExtent VerticalExtent(const GridViewport& viewport) {
  return Extent(viewport.TopRow() - 1, viewport.LastTopRow() - 1, viewport.PageRows(),
                viewport.Rows());
}

ScrollExtent HorizontalExtent(const GridViewport& viewport) {
  return Extent(viewport.Left(), viewport.LastLeft(), viewport.PageWidth(),
                viewport.Geometry().Width());
}

std::int32_t TopRowAt(const GridViewport& viewport, double percent) {
  return static_cast<std::int32_t>(std::lround((viewport.LastTopRow() - 1) * percent / 100)) + 1;
}

std::int32_t LeftAt(const GridViewport& viewport, double percent) {
  return static_cast<std::int32_t>(std::lround(viewport.LastLeft() * percent / 100));
}

}  // namespace pricedown
