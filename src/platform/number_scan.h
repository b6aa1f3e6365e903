// Scans numbers: at the beginning of a text, or a whole text. convert.h documents the accepted
// forms.
#pragma once

#include <string_view>

namespace pricedown {

struct ScannedNumber {
  enum class Outcome { None, Number, Overflow };
  Outcome outcome = Outcome::None;
  double number = 0;  // Outcome::Number
};

// The number that the text begins with, blanks skipped everywhere.
ScannedNumber ScanLeadingNumber(std::u16string_view text);

// The number that the whole text is.
ScannedNumber ScanWholeNumber(std::u16string_view text);

}  // namespace pricedown
