// Texts and values in UTF-8, so that expectations and failures can be read.
// Values are shown unconverted, with their kind.
#pragma once

#include <initializer_list>
#include <iosfwd>
#include <span>
#include <string>
#include <string_view>

#include "platform/value.h"

namespace pricedown::testing {

// The text itself. A lone surrogate shows as U+FFFD.
std::string Utf8(std::u16string_view text);

// The text between double quotes, with \" \\ \r \n \t and \u{..} for other control characters.
std::string Quoted(std::u16string_view text);

// A value as the logs show it: 12 (32 bits), int16 12, 12.0 and 0.5 (double), "text", True,
// Empty, Null, Missing, Nothing, date 39448.75, [name] for an object, ["a", "b"] for a list,
// block 2x3 (columns x rows), ref 12 for an argument by reference.
std::string Readable(const Value& value);

// Several of them, as they are written between the parentheses of a logged call.
std::string Arguments(std::span<const Value> values);
std::string Arguments(std::initializer_list<Value> values);

// An object that has a name in logs; any other shows as [object].
class NamedObject {
 public:
  virtual ~NamedObject() = default;
  virtual std::string ObjectName() const = 0;
};

}  // namespace pricedown::testing

namespace pricedown {

// Found by GoogleTest when it prints a value.
void PrintTo(const Value& value, std::ostream* stream);

}  // namespace pricedown
