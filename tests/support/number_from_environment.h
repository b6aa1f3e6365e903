// How much a test does, so that a long run needs no other program.
#pragma once

#include <charconv>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>

namespace pricedown::testing {

// The number in the environment variable `name`, or `usual` if it is not set. Throws
// std::invalid_argument for anything but a whole number from 1, so that a mistyped amount is no
// short run that passes.
inline int NumberFromEnvironment(const char* name, int usual) {
  const char* const value = std::getenv(name);
  if (value == nullptr) return usual;
  const std::string_view text(value);
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 1) {
    throw std::invalid_argument(std::string(name) + " is no number from 1: " + value);
  }
  return number;
}

}  // namespace pricedown::testing
