// Conversions between values, numbers and text as the suite's variant conversions do them, without
// regard to the locale: the decimal point is ".".
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace pricedown {

// The default text of a number: the shortest decimal text that keeps 15 significant digits,
// "." as decimal point, no leading zero dropped (0.5), exponents as 1E+15 from 1E+15 up and
// below 1E-4, where the plain form would be longer. Zero has no sign. Infinities and
// not-a-number are "1.#INF", "-1.#INF" and "1.#QNAN", which no statement accepts.
std::u16string NumberText(double number);
std::u16string NumberText(std::int32_t number);

// The default text of a value: Empty, Null and Missing are "", booleans "True" and "False",
// dates "yyyy-MM-dd" with " HH:mm:ss" unless the time is midnight. Follows references.
// Throws AutomationError: TypeMismatch for objects, blocks and lists, Overflow for dates outside
// the years 100 to 9999.
std::u16string ToText(const Value& value);

// The leading number of a text: blanks (also tabs and line breaks) are skipped everywhere,
// an optional sign, digits, ".", an exponent with E or D, or a prefix &H or &O; reading stops at
// the first character that does not belong. 0 when the text does not begin with a number.
// &H and &O numbers up to 16 and up to 32 bits are signed (&HFFFF is -1), a mark "&" after them
// makes the narrow ones 32 bits wide. Throws AutomationError (Overflow) beyond a double.
double LeadingNumber(std::u16string_view text);

// The leading number of a value's default text; numbers unchanged; Empty and Null are 0.
double LeadingNumber(const Value& value);

// For texts that are convertible both to a view and to a value.
template <std::convertible_to<std::u16string_view> Text>
double LeadingNumber(const Text& text) {
  return LeadingNumber(std::u16string_view(text));
}

// The number of a value. Texts must be numbers as a whole (ScanWholeNumber); Empty is 0, booleans
// -1 and 0, dates their days. Throws AutomationError: Overflow for a text that is a number beyond
// a double, TypeMismatch for anything else, Null and Missing included.
double ToDouble(const Value& value);

// ToDouble, rounded half to even. Throws AutomationError (Overflow) outside the range.
std::int16_t ToInt16(const Value& value);
std::int32_t ToInt32(const Value& value);
std::int16_t RoundToInt16(double number);
std::int32_t RoundToInt32(double number);

// Booleans as they are, the texts "True" and "False" in any case; of everything else whether its
// number (ToDouble) is unequal 0, so Empty is false. Throws as ToDouble does.
bool ToBoolean(const Value& value);

}  // namespace pricedown
