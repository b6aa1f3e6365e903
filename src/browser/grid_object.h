// The item grid as an automation object, for hosts and for the block selection.
// Members: Col, Col2, Row, Row2, MaxCols, MaxRows, BlockMode, Lock, BackColor, Text, ReDraw,
// ColWidth(col), RowHeight(row). It adds nothing to the grid that it shows.
#pragma once

#include "browser/grid.h"
#include "platform/local_object.h"

namespace pricedown {

class GridObject : public LocalObject<GridObject> {
 public:
  // Requires: Detach is called before the grid dies; members fail with ObjectNotSet afterwards.
  explicit GridObject(Grid& grid) : grid_(&grid) {}
  void Detach() { grid_ = nullptr; }
  Grid& Required();

  static std::span<const Member<GridObject>> Members();

 private:
  Grid* grid_;
};

// Selects a block of a grid by its members Col, Col2, Row and Row2, in this order. Missing ends
// are 1 and the grid's MaxCols and MaxRows. Failing steps are skipped.
void SelectBlock(const ObjectPtr& grid, const Value& column, const Value& column2, const Value& row,
                 const Value& row2);

}  // namespace pricedown
