// Documents whose contents are known by their names, filled as the control fills its own.
#pragma once

#include <string_view>

#include "print/paper.h"
#include "print/print_document.h"
#include "print/text_measurer.h"

namespace pricedown::testing {

inline constexpr const char16_t* kKnownDate = u"2008-03-31";

// Header and footer of the item list, and rows of numbered items. empty: titles alone; one: one
// row; full: as many rows as page 1 holds; more: one row more; many: 200 rows; wide: three rows of
// columns that need landscape paper. False for other names.
bool FillKnownDocument(std::string_view name, const Paper& paper, TextMeasurer& measurer,
                       PrintDocument& document);

}  // namespace pricedown::testing
