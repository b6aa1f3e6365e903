// Conversions between values, numbers and text as the suite's variant conversions do them.
// The only place with such rules; no locale is consulted, the decimal point is ".".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace pricedown {

// The default text of a number: the shortest decimal text that keeps 15 significant digits,
// "." as decimal point, no leading zero dropped (0.5), exponents as 1E+15 from 1E+15 up and
// below 1E-4 where the plain form would be longer.
std::u16string NumberText(double number);
std::u16string NumberText(std::int32_t number);

// The default text of a value: Empty, Null and Missing are "", booleans "True" and "False",
// dates "yyyy-MM-dd" with " HH:mm:ss" unless the time is midnight. Follows references.
// Throws AutomationError (TypeMismatch) for objects, blocks and lists.
std::u16string ToText(const Value& value);

// The leading number of a text: blanks (also tabs and line breaks) are skipped everywhere,
// an optional sign, digits, ".", an exponent with E or D, or a prefix &H or &O; reading stops at
// the first character that does not belong. 0 when the text does not begin with a number.
double LeadingNumber(std::u16string_view text);

// The leading number of a value's default text; numbers as they are; Empty and Null give 0.
double LeadingNumber(const Value& value);

// Whether a whole text is a number: blanks around it, one sign before or behind, digits with
// thousands separators ",", one ".", an exponent, &H and &O prefixes. Empty is not a number.
bool IsNumeric(std::u16string_view text);

// The number of a value. Texts must be numeric as a whole (IsNumeric); Empty gives 0.
// Throws AutomationError: TypeMismatch for anything else, Null included.
double ToDouble(const Value& value);

// ToDouble, rounded half to even. Throws AutomationError (Overflow) outside the range.
std::int16_t ToInt16(const Value& value);
std::int32_t ToInt32(const Value& value);
std::int16_t RoundToInt16(double number);
std::int32_t RoundToInt32(double number);

// Booleans as they are, numbers unequal 0, the texts "True"/"False" in any case, numeric texts.
// Empty gives false. Throws AutomationError (TypeMismatch) for anything else.
bool ToBoolean(const Value& value);

// A number compared with a text: as numbers when the text is numeric, else unequal.
bool EqualsNumber(double number, std::u16string_view text);

}  // namespace pricedown
