// Turns of a mouse wheel, added up to whole steps.
#pragma once

#include <cstdint>

namespace pricedown {

class WheelTurns {
 public:
  // Adds `delta`, of which `step` is one step, and returns the whole steps; signs are kept. What is
  // left of the last turn does not count for one in the other direction.
  std::int32_t Steps(std::int32_t delta, std::int32_t step) {
    if ((delta > 0) != (rest_ > 0)) rest_ = 0;
    rest_ += delta;
    const std::int32_t steps = rest_ / step;
    rest_ -= steps * step;
    return steps;
  }

 private:
  std::int32_t rest_ = 0;
};

}  // namespace pricedown
