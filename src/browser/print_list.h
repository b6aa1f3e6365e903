// The item list as a document to be printed.
#pragma once

#include "browser/grid.h"
#include "print/print_document.h"

namespace pricedown {

// Copies all rows of the item grid. Throws AutomationError for a column width beyond 32 bits of
// twips.
void FillPrintTable(const Grid& grid, PrintTable& table);

// Header and footer, with name and character set of the suite's title font, in 宋体 when it has no
// name.
void SetPageLines(const Font& titleFont, PrintDocument& document);

}  // namespace pricedown
