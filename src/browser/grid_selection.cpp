// The table of the grid's keys, and the moves of the current cell.
#include "browser/grid_selection.h"

#include <algorithm>
#include <array>

namespace pricedown {
namespace {

struct KeyRow {
  Key key;
  bool control;
  GridKey meaning;
};

constexpr std::array kGridKeys{
    KeyRow{Key::Left, false, GridKey::Left},
    KeyRow{Key::Right, false, GridKey::Right},
    KeyRow{Key::Up, false, GridKey::Up},
    KeyRow{Key::Down, false, GridKey::Down},
    KeyRow{Key::PageUp, false, GridKey::PageUp},
    KeyRow{Key::PageDown, false, GridKey::PageDown},
    KeyRow{Key::Home, false, GridKey::RowStart},
    KeyRow{Key::End, false, GridKey::RowEnd},
    KeyRow{Key::Left, true, GridKey::RowStart},
    KeyRow{Key::Right, true, GridKey::RowEnd},
    KeyRow{Key::Up, true, GridKey::Top},
    KeyRow{Key::Down, true, GridKey::Bottom},
    KeyRow{Key::Home, true, GridKey::First},
    KeyRow{Key::End, true, GridKey::Last},
    KeyRow{Key::Space, false, GridKey::SelectRows},
    KeyRow{Key::A, true, GridKey::SelectAll},
};

std::int32_t LastColumn(const Grid& grid) { return std::max(grid.MaxColumns(), 1); }
std::int32_t LastRow(const Grid& grid) { return std::max(grid.MaxRows(), 1); }

}  // namespace

GridKey GridKeyOf(const KeyPress& press) {
  for (const KeyRow& row : kGridKeys) {
    if (row.key != press.key || row.control != press.control) continue;
    if (row.meaning == GridKey::SelectRows && !press.shift) break;
    return row.meaning;
  }
  return GridKey::None;
}

CellRange GridSelection::Range() const {
  return {std::min(column, anchorColumn), std::min(row, anchorRow), std::max(column, anchorColumn),
          std::max(row, anchorRow)};
}

bool GridSelection::Highlights(std::int32_t c, std::int32_t r) const {
  return IsBlock() && !(c == column && r == row) && Range().Contains(c, r);
}

void GridSelection::MoveTo(std::int32_t newColumn, std::int32_t newRow, bool extend,
                           const Grid& grid) {
  column = std::clamp(newColumn, 1, LastColumn(grid));
  row = std::clamp(newRow, 1, LastRow(grid));
  anchorColumn = extend ? std::clamp(anchorColumn, 1, LastColumn(grid)) : column;
  anchorRow = extend ? std::clamp(anchorRow, 1, LastRow(grid)) : row;
}

bool GridSelection::Move(GridKey key, bool extend, std::int32_t pageRows, const Grid& grid) {
  const std::int32_t lastColumn = LastColumn(grid);
  const std::int32_t lastRow = LastRow(grid);
  const auto to = [&](std::int32_t newColumn, std::int32_t newRow) {
    MoveTo(newColumn, newRow, extend, grid);
    return true;
  };
  switch (key) {
    case GridKey::Left:
      return to(column - 1, row);
    case GridKey::Right:
      return to(column + 1, row);
    case GridKey::Up:
      return to(column, row - 1);
    case GridKey::Down:
      return to(column, row + 1);
    case GridKey::PageUp:
      return to(column, row - pageRows);
    case GridKey::PageDown:
      return to(column, row > lastRow - pageRows ? lastRow : row + pageRows);
    case GridKey::RowStart:
      return to(1, row);
    case GridKey::RowEnd:
      return to(lastColumn, row);
    case GridKey::Top:
      return to(column, 1);
    case GridKey::Bottom:
      return to(column, lastRow);
    case GridKey::First:
      return to(1, 1);
    case GridKey::Last:
      return to(lastColumn, lastRow);
    default:
      return false;
  }
}

void GridSelection::SelectColumn(std::int32_t newColumn, const Grid& grid) {
  *this = {newColumn, 1, newColumn, LastRow(grid)};
}

void GridSelection::SelectRows(const Grid& grid) {
  column = 1;
  anchorColumn = LastColumn(grid);
}

void GridSelection::SelectAll(const Grid& grid) { *this = {1, 1, LastColumn(grid), LastRow(grid)}; }

void GridSelection::Fit(const Grid& grid) {
  if (grid.MaxRows() == 0) {
    *this = {};
  } else if (std::max(row, anchorRow) > grid.MaxRows()) {
    MoveTo(column, row, false, grid);
  }
}

CellLook LookOf(const Grid& grid, const GridSelection& selection, std::int32_t column,
                std::int32_t row, bool focused) {
  if (selection.Highlights(column, row)) {
    return focused ? CellLook::Selected : CellLook::SelectedUnfocused;
  }
  return grid.IsLocked(column, row) ? CellLook::Locked : CellLook::Open;
}

}  // namespace pricedown
