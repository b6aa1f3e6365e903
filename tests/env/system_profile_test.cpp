// The system profile and the dates of the current period, call by call.
// The calendar is scripted.
#include "env/system_profile.h"

#include <limits>

#include "platform/text.h"
#include "tests/env/env_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

constexpr std::u16string_view kProfile = u"ZEPEBSBase.SystemProfile";
constexpr std::u16string_view kCalendar = u"ZEPCBSSystemData.AisInfo";

// A company in that period, with twelve periods per year by default.
void InPeriod(RecordingFactory& factory, Value year, Value period, std::int32_t periodCount = 12) {
  SetProperties(factory, u"P=1");
  factory.Object(kProfile)
      .On(u"GetProfile", R"("P=1", "ic", "CurrentYear")", Reply(year))
      .On(u"GetProfile", R"("P=1", "IC", "CurrentYear")", Reply(std::move(year)))
      .On(u"GetProfile", R"("P=1", "ic", "CurrentPeriod")", Reply(period))
      .On(u"GetProfile", R"("P=1", "IC", "CurrentPeriod")", Reply(std::move(period)));
  factory.Object(kCalendar)
      .AllowPut(u"PropsString")
      .On(u"CBGetPeriodCount", Reply(periodCount))
      .On(u"GetPeriodDate", Reply::From([](std::span<Value> arguments) {
            return Value(FromUtf8(Arguments(arguments)));
          }));
}

class SystemProfileTest : public EnvTest {};

TEST_F(SystemProfileTest, ReturnsOneSetting) {
  SetProperties(factory, u"P=1");
  factory.Object(kProfile).On(u"GetProfile", Reply(u"0"));
  EXPECT_EQ(SystemSetting(factory, u"IC", u"UseShortNumber"), Value(u"0"));
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBSBase.SystemProfile
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      ZEPEBSBase.SystemProfile.GetProfile("P=1", "IC", "UseShortNumber")
      release ZEPEBSBase.SystemProfile
      )"));
}

TEST_F(SystemProfileTest, ReadsYearAndPeriodFromOneObjectWithFreshProperties) {
  InPeriod(factory, u"2008", u"3");
  const YearAndPeriod current = ReadYearAndPeriod(factory, u"IC");
  EXPECT_EQ(current.year, 2008);
  EXPECT_EQ(current.period, 3);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBSBase.SystemProfile
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      ZEPEBSBase.SystemProfile.GetProfile("P=1", "IC", "CurrentYear")
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      ZEPEBSBase.SystemProfile.GetProfile("P=1", "IC", "CurrentPeriod")
      release ZEPEBSBase.SystemProfile
      )"));
}

TEST_F(SystemProfileTest, ConvertsYearAndPeriodToWholeNumbers) {
  InPeriod(factory, 2008.0, Value());
  const YearAndPeriod current = ReadYearAndPeriod(factory, u"IC");
  EXPECT_EQ(current.year, 2008);
  EXPECT_EQ(current.period, 0);
}

TEST_F(SystemProfileTest, RefusesAYearOrPeriodThatIsNotANumber) {
  InPeriod(factory, u"", u"3");
  EXPECT_EQ(ErrorOf([&] { ReadYearAndPeriod(factory, u"IC"); }),
            NumberOf(ErrorNumber::TypeMismatch));
  RecordingFactory other(log);
  InPeriod(other, u"2008", u"三");
  EXPECT_EQ(ErrorOf([&] { ReadYearAndPeriod(other, u"IC"); }), NumberOf(ErrorNumber::TypeMismatch));
  EXPECT_EQ(factory.LiveObjects() + other.LiveObjects(), 0);
}

class CurrentPeriod : public EnvTest {
 protected:
  ThreadState state;
};

TEST_F(CurrentPeriod, IsReadWithItsDates) {
  InPeriod(factory, u"2008", u"3");
  ReadCurrentPeriod(factory, state);
  EXPECT_EQ(state.currentYear, 2008);
  EXPECT_EQ(state.currentPeriod, 3);
  EXPECT_EQ(Utf8(state.periodStart), "2008, 3");
  EXPECT_EQ(Utf8(state.followingPeriodStart), "2008, 4");
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBSBase.SystemProfile
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      ZEPEBSBase.SystemProfile.GetProfile("P=1", "ic", "CurrentYear")
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      ZEPEBSBase.SystemProfile.GetProfile("P=1", "ic", "CurrentPeriod")
      release ZEPEBSBase.SystemProfile
      create ZEPCBSSystemData.AisInfo
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      put ZEPCBSSystemData.AisInfo.PropsString = "P=1"
      ZEPCBSSystemData.AisInfo.CBGetPeriodCount()
      ZEPCBSSystemData.AisInfo.GetPeriodDate(2008, 3)
      ZEPCBSSystemData.AisInfo.GetPeriodDate(2008, 4)
      release ZEPCBSSystemData.AisInfo
      )"));
}

TEST_F(CurrentPeriod, IsFollowedByTheFirstOfTheNextYearWhenItIsTheLast) {
  InPeriod(factory, u"2008", u"12");
  ReadCurrentPeriod(factory, state);
  EXPECT_EQ(Utf8(state.periodStart), "2008, 12");
  EXPECT_EQ(Utf8(state.followingPeriodStart), "2009, 1");
}

TEST_F(CurrentPeriod, IsFollowedByTheNextYearEvenAfterTheLastPeriod) {
  InPeriod(factory, u"2008", u"13");
  ReadCurrentPeriod(factory, state);
  EXPECT_EQ(Utf8(state.followingPeriodStart), "2009, 1");
}

TEST_F(CurrentPeriod, IsFollowedInTheSameYearJustBeforeTheLastPeriod) {
  InPeriod(factory, u"2008", u"11");
  ReadCurrentPeriod(factory, state);
  EXPECT_EQ(Utf8(state.followingPeriodStart), "2008, 12");
}

TEST_F(CurrentPeriod, AcceptsDatesAsTexts) {
  InPeriod(factory, u"2008", u"3");
  factory.Object(kCalendar)
      .On(u"GetPeriodDate", "2008, 3", Reply(Date{39508}))
      .On(u"GetPeriodDate", "2008, 4", Reply(u"2008年4月1日"));
  ReadCurrentPeriod(factory, state);
  EXPECT_EQ(Utf8(state.periodStart), "2008-03-01");
  EXPECT_EQ(Utf8(state.followingPeriodStart), "2008年4月1日");
}

TEST_F(CurrentPeriod, OfTheLastPossibleYearEndsInAnOverflow) {
  InPeriod(factory, std::numeric_limits<std::int32_t>::max(), 12);
  EXPECT_EQ(ErrorOf([&] { ReadCurrentPeriod(factory, state); }), NumberOf(ErrorNumber::Overflow));
  EXPECT_EQ(Utf8(state.periodStart), "2147483647, 12");
}

TEST(CurrentPeriodFailures, KeepsWhatWasReadBeforeAFailure) {
  // The calls of the first test above, in their order.
  constexpr int kYearRead = 5;    // the first call after the year
  constexpr int kPeriodRead = 8;  // after the period
  constexpr int kStartRead = 14;  // after the start of the period
  FailEachCallInTurn([](int failingCall) {
    CallLog log;
    RecordingFactory factory(log);
    InPeriod(factory, u"2008", u"3");
    ThreadState state;
    factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { ReadCurrentPeriod(factory, state); });
    const bool whole = failingCall == 0;
    EXPECT_EQ(error, whole ? std::nullopt : std::optional(kInjectedFailure));
    EXPECT_EQ(state.currentYear, whole || failingCall >= kYearRead ? 2008 : 0);
    EXPECT_EQ(state.currentPeriod, whole || failingCall >= kPeriodRead ? 3 : 0);
    EXPECT_EQ(state.periodKnown, whole || failingCall >= kPeriodRead);
    EXPECT_EQ(Utf8(state.periodStart), whole || failingCall >= kStartRead ? "2008, 3" : "");
    EXPECT_EQ(Utf8(state.followingPeriodStart), whole ? "2008, 4" : "");
    EXPECT_EQ(factory.LiveObjects(), 0);
    return factory.CallCount();
  });
}

TEST_F(CurrentPeriod, WithoutACalendarKeepsYearAndPeriod) {
  InPeriod(factory, u"2008", u"3");
  factory.Refuses(kCalendar);
  EXPECT_EQ(ErrorOf([&] { ReadCurrentPeriod(factory, state); }),
            NumberOf(ErrorNumber::CannotCreateObject));
  EXPECT_EQ(state.currentYear, 2008);
  EXPECT_EQ(state.currentPeriod, 3);
}

TEST_F(CurrentPeriod, EndsAYearAsTheCalendarDefines) {
  InPeriod(factory, u"2008", u"4", 4);
  ReadCurrentPeriod(factory, state);
  EXPECT_EQ(Utf8(state.followingPeriodStart), "2009, 1");
  InPeriod(factory, u"2008", u"12", 13);
  ReadCurrentPeriod(factory, state);
  EXPECT_EQ(Utf8(state.followingPeriodStart), "2008, 13");
}

}  // namespace
}  // namespace pricedown
