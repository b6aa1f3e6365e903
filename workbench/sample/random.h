// The generator's random numbers: the SplitMix64 sequence, the same on every platform. The results
// of std's distributions differ between libraries.
#pragma once

#include <cstdint>

namespace workbench {

class Random {
 public:
  // `stream` separates subjects, so that a change to one leaves the others as they were.
  Random(std::uint64_t seed, std::uint64_t stream)
      : state_(Mix(seed) ^ Mix(stream * 0xD1342543DE82EF95U)) {}

  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    return Mix(state_);
  }

  // 0 to limit-1. Requires: limit > 0.
  std::uint32_t Below(std::uint32_t limit) {
    return static_cast<std::uint32_t>(((Next() >> 32) * limit) >> 32);
  }

  // low to high, both included. Requires: 0 <= low <= high.
  int Between(int low, int high) {
    return low + static_cast<int>(Below(static_cast<std::uint32_t>(high - low) + 1));
  }

  // True `parts` times in `whole` on average.
  bool Chance(std::uint32_t parts, std::uint32_t whole) { return Below(whole) < parts; }

 private:
  static std::uint64_t Mix(std::uint64_t value) {
    value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
    value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
    return value ^ (value >> 31);
  }

  std::uint64_t state_;
};

}  // namespace workbench
