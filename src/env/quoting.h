// Text as a literal of a statement.
// Only the per-user number uses it; the class statements put their values in as they are.
#pragma once

#include <string>
#include <string_view>

namespace pricedown {

// Every "'" doubled; first trimmed when `trim`, at last between "'" when `quote`.
std::u16string QuoteText(std::u16string_view text, bool trim, bool quote);

}  // namespace pricedown
