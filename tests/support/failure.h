// What an action threw, as one readable line or as its number.
// For exceptions of the core only; any other exception passes through and fails the test.
#pragma once

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>

#include "platform/error.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

// The error that `action` throws as "80020005 description", "" when it throws none.
template <typename Action>
std::string FailureOf(Action action) {
  try {
    action();
  } catch (const AutomationError& error) {
    std::array<char, 8> digits{};
    const auto number = static_cast<std::uint32_t>(error.Number());
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
    std::string text(digits.data(), end);
    for (char& c : text) {
      if (c >= 'a') c = static_cast<char>(c - 'a' + 'A');
    }
    return text + " " + Utf8(error.Description());
  }
  return {};
}

// The error number that `action` throws; none when it returns.
template <typename Action>
std::optional<std::int32_t> ErrorOf(Action&& action) {
  try {
    action();
  } catch (const AutomationError& error) {
    return error.Number();
  }
  return std::nullopt;
}

inline std::int32_t NumberOf(ErrorNumber number) { return static_cast<std::int32_t>(number); }

}  // namespace pricedown::testing
