// Runs one step and deliberately ignores its failure.
#pragma once

#include <utility>

namespace pricedown {

// Returns false when the step has thrown.
template <typename Step>
bool SkipFailing(Step&& step) {
  try {
    std::forward<Step>(step)();
    return true;
  } catch (...) {
    return false;
  }
}

}  // namespace pricedown
