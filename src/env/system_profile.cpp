// The system profile object, and the accounting calendar for the current period's dates.
#include "env/system_profile.h"

#include "env/suite_properties.h"
#include "platform/convert.h"

namespace pricedown {
namespace {

constexpr std::u16string_view kYearKey = u"CurrentYear";
constexpr std::u16string_view kPeriodKey = u"CurrentPeriod";

class SystemProfile {
 public:
  explicit SystemProfile(ObjectFactory& factory)
      : factory_(factory), object_(factory.Create(u"ZEPEBSBase.SystemProfile")) {}

  Value Get(std::u16string_view category, std::u16string_view key) {
    return object_->Call(u"GetProfile", {PropertiesString(factory_), category, key});
  }

 private:
  ObjectFactory& factory_;
  ObjectPtr object_;
};

void ReadPeriodDates(ObjectFactory& factory, ThreadState& state) {
  const ObjectPtr calendar = factory.Create(u"ZEPCBSSystemData.AisInfo");
  calendar->Put(u"PropsString", PropertiesString(factory));
  const std::int32_t periods = ToInt32(calendar->Get(u"CBGetPeriodCount"));

  const auto dateOf = [&calendar](std::int32_t year, std::int32_t period) {
    return ToText(calendar->Call(u"GetPeriodDate", {year, period}));
  };
  state.periodStart = dateOf(state.currentYear, state.currentPeriod);
  // Added as doubles, so that an invalid profile ends in an overflow error.
  if (state.currentPeriod >= periods) {
    state.followingPeriodStart = dateOf(RoundToInt32(state.currentYear + 1.0), 1);
  } else {
    state.followingPeriodStart = dateOf(state.currentYear, RoundToInt32(state.currentPeriod + 1.0));
  }
}

}  // namespace

Value SystemSetting(ObjectFactory& factory, std::u16string_view category, std::u16string_view key) {
  return SystemProfile(factory).Get(category, key);
}

YearAndPeriod ReadYearAndPeriod(ObjectFactory& factory, std::u16string_view category) {
  SystemProfile profile(factory);
  YearAndPeriod current;
  current.year = ToInt32(profile.Get(category, kYearKey));
  current.period = ToInt32(profile.Get(category, kPeriodKey));
  return current;
}

void ReadCurrentPeriod(ObjectFactory& factory, ThreadState& state) {
  state.periodKnown = false;
  {
    SystemProfile profile(factory);
    state.currentYear = ToInt32(profile.Get(u"ic", kYearKey));
    state.currentPeriod = ToInt32(profile.Get(u"ic", kPeriodKey));
  }
  state.periodKnown = true;
  ReadPeriodDates(factory, state);
}

}  // namespace pricedown
