// The upper case of single characters.
#pragma once

namespace pricedown {

// The character itself when it has no capital.
char32_t UpperCaseOf(char32_t character);

}  // namespace pricedown
