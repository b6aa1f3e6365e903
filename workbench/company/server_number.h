// The server's implicit conversion of text to a number, which is stricter than SQLite's.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace workbench {

enum class NumberType { Integer, Decimal, Float };

struct ServerNumber {
  bool isInteger;
  std::int64_t integer;  // where isInteger
  double real;           // otherwise
};

// Blanks around the number are ignored and an empty text is 0, except for Decimal. Nothing where
// the server refuses the conversion.
std::optional<ServerNumber> NumberFromText(std::string_view text, NumberType type);

// The server's name for the type: int, numeric, float.
const char* ServerTypeName(NumberType type);

// The server's message and error number for a failed conversion.
std::string ConversionFailure(std::string_view text, NumberType type);
int ConversionFailureNumber(NumberType type);

}  // namespace workbench
