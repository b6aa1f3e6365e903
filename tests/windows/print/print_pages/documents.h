// Ledger documents with known contents, by name.
#pragma once

#include <string>
#include <string_view>

#include "browser/print_document.h"

namespace pricedown::testing {

inline constexpr const char16_t* kKnownDate = u"2008-03-31";

// Header and footer of the item list, and rows of numbered items.
class KnownDocument final : public LedgerDocument {
 public:
  // empty: titles alone; one: one row; full: as many rows as page 1 takes; more: one row more;
  // many: 200 rows; wide: three rows of columns that need landscape paper. False for others.
  bool Fill(std::string_view name, const Paper& paper, TextMeasurer& measurer);

 private:
  void FillRows(std::int32_t rows, std::int32_t nameWidth);

  // Nothing is shown; the program does the printing.
  void Preview() override {}
  void Print() override {}
};

}  // namespace pricedown::testing
