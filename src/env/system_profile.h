// The suite's system profile: settings by category and key, and the current year and period.
#pragma once

#include <cstdint>
#include <string_view>

#include "env/thread_state.h"

namespace pricedown {

// A system-wide setting from a new `ZEPEBSBase.SystemProfile`. Throws AutomationError.
Value SystemSetting(ObjectFactory& factory, std::u16string_view category, std::u16string_view key);

struct YearAndPeriod {
  std::int32_t year = 0;
  std::int32_t period = 0;
};

// The inventory module's current year and period, read afresh; `category` is "IC" in the spelling
// that the caller sends. Throws AutomationError, also when a value is not a number.
YearAndPeriod ReadYearAndPeriod(ObjectFactory& factory, std::u16string_view category);

// Reads year and period ("ic") and then the period dates into the state. When a step fails the
// values read before it are kept and AutomationError is thrown; the period counts as known from
// when both of its numbers were read.
void ReadCurrentPeriod(ObjectFactory& factory, ThreadState& state);

}  // namespace pricedown
