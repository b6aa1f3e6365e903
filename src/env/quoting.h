// Text as a literal of a statement.
#pragma once

#include <string>
#include <string_view>

namespace pricedown {

// `text` with every "'" doubled; trimmed before that with `trim`, enclosed in "'" with `quote`.
std::u16string QuoteText(std::u16string_view text, bool trim, bool quote);

}  // namespace pricedown
