// Dates of accounting periods by the standard library's calendar.
#include "workbench/suite/calendar.h"

#include <chrono>

#include "platform/error.h"

namespace workbench {

pricedown::Date FirstDayOfPeriod(std::int32_t year, std::int32_t period, std::int32_t periodCount) {
  using namespace std::chrono;
  if (periodCount < 1 || period < 1 || period > periodCount || year < 1900 || year > 9998) {
    throw pricedown::AutomationError(pricedown::ErrorNumber::InvalidArgument, u"没有这个会计期间。",
                                     u"ZEPCBSSystemData.AisInfo");
  }
  constexpr sys_days kEpoch = std::chrono::year{1899} / December / 30;
  const sys_days first = std::chrono::year{year} / January / 1;
  sys_days day;
  if (periodCount == 12) {
    day = std::chrono::year{year} / std::chrono::month{static_cast<unsigned>(period)} / 1;
  } else {
    const auto length = (sys_days(std::chrono::year{year + 1} / January / 1) - first).count();
    day = first + days{length * (period - 1) / periodCount};
  }
  return pricedown::Date{static_cast<double>((day - kEpoch).count())};
}

}  // namespace workbench
