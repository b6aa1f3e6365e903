// Doubles quotes.
#include "env/quoting.h"

#include "platform/text.h"

namespace pricedown {

std::u16string QuoteText(std::u16string_view text, bool trim, bool quote) {
  constexpr char16_t kQuote = u'\'';
  std::u16string quoted;
  if (quote) quoted += kQuote;
  for (const char16_t character : trim ? Trim(text) : text) {
    if (character == kQuote) quoted += kQuote;
    quoted += character;
  }
  if (quote) quoted += kQuote;
  return quoted;
}

}  // namespace pricedown
