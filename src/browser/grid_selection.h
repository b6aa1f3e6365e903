// The selected cells of the grid and what keys do to them.
#pragma once

#include <cstdint>

#include "browser/grid.h"
#include "platform/key.h"

namespace pricedown {

// What a key means on the grid, apart from the keys of commands. Shift extends a move.
enum class GridKey {
  None,
  Left,
  Right,
  Up,
  Down,
  PageUp,
  PageDown,
  RowStart,
  RowEnd,
  Top,
  Bottom,
  First,
  Last,
  SelectRows,
  SelectAll,
};
GridKey GridKeyOf(const KeyPress& press);

// The current cell and the corner where the selected block began.
struct GridSelection {
  std::int32_t column = 1;
  std::int32_t row = 1;
  std::int32_t anchorColumn = 1;
  std::int32_t anchorRow = 1;

  CellRange Range() const;
  bool IsBlock() const { return column != anchorColumn || row != anchorRow; }
  // Whether the cell is in a block and not the current one.
  bool Highlights(std::int32_t c, std::int32_t r) const;

  // Makes a cell the current one. The block grows when `extend`, else it is that cell alone. The
  // position is clamped to the grid.
  void MoveTo(std::int32_t newColumn, std::int32_t newRow, bool extend, const Grid& grid);
  // The target of a move key; a page is `pageRows` rows. False for a key that moves nothing.
  bool Move(GridKey key, bool extend, std::int32_t pageRows, const Grid& grid);
  void SelectColumn(std::int32_t newColumn, const Grid& grid);
  // The whole rows of the selection.
  void SelectRows(const Grid& grid);
  void SelectAll(const Grid& grid);
  // After a change of the number of rows: an empty grid starts again at its first cell.
  void Fit(const Grid& grid);

  bool operator==(const GridSelection&) const = default;
};

enum class CellLook { Open, Locked, Selected, SelectedUnfocused };
// How the cell is shown; a selection covers a lock. `focused`: the grid has the focus.
CellLook LookOf(const Grid& grid, const GridSelection& selection, std::int32_t column,
                std::int32_t row, bool focused);

}  // namespace pricedown
