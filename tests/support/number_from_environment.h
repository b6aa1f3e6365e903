// How much a test does, so that a long run needs no other program.
#pragma once

#include <algorithm>
#include <cstdlib>

namespace pricedown::testing {

// The number in the environment variable `name`, but at least `usual`.
inline int NumberFromEnvironment(const char* name, int usual) {
  const char* const text = std::getenv(name);
  return text == nullptr ? usual : std::max(usual, std::atoi(text));
}

}  // namespace pricedown::testing
