// The sheets of a print job in the order in which they are printed.
#pragma once

#include <cstdint>
#include <limits>

namespace pricedown {

// What the user chose in the print dialog; all pages by default.
struct PrintChoice {
  // Pages from 1, both included, in either order.
  std::int32_t first = 1;
  std::int32_t last = std::numeric_limits<std::int32_t>::max();
  std::int32_t copies = 1;  // 0 and less is one
  bool collated = true;     // whole copies one after the other
};

class PrintOrder {
 public:
  // Pages beyond `pageCount` are left out; there may be no sheet.
  PrintOrder(const PrintChoice& choice, std::int32_t pageCount);
  std::int64_t SheetCount() const { return std::int64_t{pages_} * copies_; }
  // The page on a sheet. Requires: `sheet` is from 0 to below SheetCount().
  std::int32_t PageOn(std::int64_t sheet) const;

 private:
  std::int32_t first_;
  std::int32_t pages_;
  std::int32_t copies_;
  bool collated_;
};

}  // namespace pricedown
