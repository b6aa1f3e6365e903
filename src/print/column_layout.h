// Where the table's columns are between the margins, and which of them hold numbers.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "print/page_units.h"
#include "print/print_document.h"

namespace pricedown {

struct PlacedColumn {
  Tenths left = 0;
  Tenths right = 0;
  bool holdsNumbers = false;
  Tenths Width() const { return right - left; }
};

// The width that the columns request.
std::int64_t WantedWidth(const PrintTable& table);

// The columns from `left` on, one beside the other. Where they need more than `available`, the
// widest are narrowed to one width so that all fit; narrower ones keep theirs.
std::vector<PlacedColumn> PlaceColumns(const PrintTable& table, Tenths left, Tenths available);

// Whether the text is digits with an optional sign, commas and a fraction. With a leading zero, as
// 007 or 01.002, it is a code.
bool IsPlainNumber(std::u16string_view text);

}  // namespace pricedown
