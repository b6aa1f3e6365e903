// Scans numbers: at the beginning of a text, or a whole text.
#pragma once

#include <string_view>

namespace pricedown {

struct ScannedNumber {
  enum class Outcome { None, Number, Overflow };
  Outcome outcome = Outcome::None;
  double number = 0;  // Outcome::Number
};

// The number that the text begins with; LeadingNumber (convert.h) documents the forms.
ScannedNumber ScanLeadingNumber(std::u16string_view text);

// The number that the whole text is. Accepted: blanks, tabs and line breaks around it and between
// sign and digits; one sign "+" or "-", before or after; digits; one "." with a digit on at least
// one side; an exponent E or D with an optional sign and digits; or, unsigned, &H or &O and
// digits of that base. Refused: empty text, anything else, and what no double can hold.
// Commas are refused everywhere: texts are checked as whole numbers and stored as leading numbers,
// which end at a comma. So are parentheses and currency signs.
ScannedNumber ScanWholeNumber(std::u16string_view text);

}  // namespace pricedown
