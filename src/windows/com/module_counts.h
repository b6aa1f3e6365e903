// What keeps this module in memory: living objects and server locks. One instance per module.
#pragma once

#include <atomic>

namespace pricedown::windows {

struct ModuleCounts {
  std::atomic<long> objects = 0;
  std::atomic<long> locks = 0;
  bool InUse() const { return objects != 0 || locks != 0; }
};

ModuleCounts& Counts();

}  // namespace pricedown::windows
