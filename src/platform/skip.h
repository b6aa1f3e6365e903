// The visible mark of a step whose failure is skipped by design.
// Use it around one step, never around a routine that must report its errors.
#pragma once

#include <utility>

namespace pricedown {

// Runs the step; false when it failed, and then its effects end where it failed.
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
