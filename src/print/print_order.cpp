// Counting in 64 bits: copies times pages may be more than 32 bits hold.
#include "print/print_order.h"

#include <algorithm>

namespace pricedown {

PrintOrder::PrintOrder(const PrintChoice& choice, std::int32_t pageCount)
    : first_(std::max(std::min(choice.first, choice.last), 1)),
      pages_(std::max(std::min(std::max(choice.first, choice.last), pageCount) - first_ + 1, 0)),
      copies_(std::max(choice.copies, 1)),
      collated_(choice.collated) {}

std::int32_t PrintOrder::PageOn(std::int64_t sheet) const {
  return first_ + static_cast<std::int32_t>(collated_ ? sheet % pages_ : sheet / copies_);
}

}  // namespace pricedown
