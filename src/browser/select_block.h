// The selection of a block in a grid of the host.
#pragma once

#include "platform/automation.h"

namespace pricedown {

// Sets the grid's members Col, Col2, Row and Row2, in this order. Missing ends are 1 and the
// grid's MaxCols and MaxRows. Failing steps are skipped.
void SelectBlock(const ObjectPtr& grid, const Value& column, const Value& column2, const Value& row,
                 const Value& row2);

}  // namespace pricedown
