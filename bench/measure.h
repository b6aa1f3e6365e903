// Measures two ways of doing the same work in turns and reports the ratio of their medians.
// It judges nothing; people read the figures.
#pragma once

#include <functional>
#include <string>

namespace bench {

struct Timing {
  double product = 0;  // milliseconds, median
  double raw = 0;
};

// Runs both in turns, so that a slow moment of the machine hits both alike.
Timing Compare(const std::function<void()>& product, const std::function<void()>& raw,
               int repetitions);

// One line: what, how much of it, both times, their ratio and, when `half` is given, how the
// product's time grew from half the amount.
void Report(const std::string& what, std::size_t amount, const Timing& timing,
            const Timing* half = nullptr);

}  // namespace bench
