// Where the table's columns stand between the margins, and which of them hold numbers.
// The rows are not placed here.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "print/ledger_content.h"

namespace pricedown {

struct PlacedColumn {
  Tenths left = 0;
  Tenths right = 0;
  bool holdsNumbers = false;
  Tenths Width() const { return right - left; }
};

// The width that the columns ask for; more than any paper when it cannot be counted.
std::int64_t WantedWidth(const LedgerContent& content);

// The columns from `left` on, one beside the other. Where they ask for more than `available`, the
// widest are narrowed to one width so that all fit; narrower ones keep theirs.
std::vector<PlacedColumn> PlaceColumns(const LedgerContent& content, Tenths left, Tenths available);

// Digits with an optional sign, commas and a fraction. A number with a leading zero, as 007 or
// 01.002, is a code and none.
bool IsPlainNumber(std::u16string_view text);

}  // namespace pricedown
