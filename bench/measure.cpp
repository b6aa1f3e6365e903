// The measuring loop and its table. Standard library only, so that both platforms run the same
// code.
#include "bench/measure.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>

namespace bench {

namespace {

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

}  // namespace

Timing Compare(const std::function<void()>& product, const std::function<void()>& raw,
               int repetitions, const std::function<void()>& prepare) {
  const auto measure = [&](const std::function<void()>& work, double& best) {
    if (prepare) prepare();
    best = std::min(best, Milliseconds(work));
  };
  constexpr double kNone = std::numeric_limits<double>::infinity();
  Timing timing{kNone, kNone};
  for (int i = 0; i < repetitions; ++i) {
    measure(raw, timing.raw);
    measure(product, timing.product);
  }
  return timing;
}

Figures::Figures() {
  std::printf("%-12s  %8s  %10s  %10s  %6s  %6s\n", "operation", "amount", "product ms", "raw ms",
              "ratio", "growth");
}

void Figures::Add(const std::string& operation, std::size_t amount, const Timing& timing) {
  std::printf("%-12s  %8zu  %10.2f  %10.2f  %6.2f", operation.c_str(), amount, timing.product,
              timing.raw, timing.product / timing.raw);
  if (const auto last = last_.find(operation); last != last_.end()) {
    const double doublings =
        std::log2(static_cast<double>(amount) / static_cast<double>(last->second.amount));
    std::printf("  %6.2f", std::pow(timing.product / last->second.product, 1 / doublings));
  }
  std::printf("\n");
  std::fflush(stdout);
  last_[operation] = {amount, timing.product};
}

}  // namespace bench
