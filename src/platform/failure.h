// The exception being handled as number, description and source: the one ladder of catches that
// COM's codes and the user's messages are made from.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace pricedown {

// Describes a failure that has no description.
inline constexpr std::u16string_view kUnexpectedError = u"意外错误";

struct Failure {
  std::int32_t code = 0;  // an HRESULT; always a failure once filled
  std::u16string description;
  std::u16string source;  // may be empty
};

// Exceptions of the standard library are described in Chinese; their own text becomes the source.
// Requires: called inside a catch block.
Failure CurrentFailure() noexcept;

}  // namespace pricedown
