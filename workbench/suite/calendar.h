// The accounting calendar of the stand-in suite: a calendar year cut into equal periods.
#pragma once

#include <cstdint>

#include "platform/value.h"

namespace workbench {

// The first day of a period. With twelve periods they are the months; otherwise the days of the
// year are divided evenly. Throws AutomationError when there is no such period.
pricedown::Date FirstDayOfPeriod(std::int32_t year, std::int32_t period, std::int32_t periodCount);

}  // namespace workbench
