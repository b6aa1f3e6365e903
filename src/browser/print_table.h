// What the ledger is given before it previews or prints: the grid's rows, page header and footer.
// All of it stops at the first call that fails and lets the failure through.
#pragma once

#include <string_view>

#include "browser/grid.h"
#include "browser/print_ledger.h"
#include "env/language.h"

namespace pricedown {

// Copies all rows of the item grid. A "|" inside a cell's text is handed over as it is, and the
// ledger begins its next cell there.
void FillPrintTable(const Grid& sheet, PrintTable& table);

// The suite's font for titles, of which header and footer take name and character set.
void SetPageTypeface(PrintLedger& ledger, const FontProperties& font);
void SetPageHeader(PrintLedger& ledger, std::u16string_view subTitle);
void SetPageFooter(PrintLedger& ledger);

}  // namespace pricedown
