// The measuring loop and its report. Standard library only, so that both platforms run the same.
#include "bench/measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

namespace bench {

namespace {

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

}  // namespace

Timing Compare(const std::function<void()>& product, const std::function<void()>& raw,
               int repetitions) {
  std::vector<double> products;
  std::vector<double> raws;
  for (int i = 0; i < repetitions; ++i) {
    raws.push_back(Milliseconds(raw));
    products.push_back(Milliseconds(product));
  }
  return {Median(products), Median(raws)};
}

void Report(const std::string& what, std::size_t amount, const Timing& timing, const Timing* half) {
  std::printf("%-12s %9zu  product %9.1f ms  raw %9.1f ms  ratio %5.2f", what.c_str(), amount,
              timing.product, timing.raw, timing.product / timing.raw);
  if (half != nullptr) std::printf("  x2 -> x%.2f", timing.product / half->product);
  std::printf("\n");
  std::fflush(stdout);
}

}  // namespace bench
