// Tests of the conversions between kinds of values: text, numbers, booleans, rounding.
#include "platform/convert.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

#include "tests/support/case_name.h"
#include "tests/support/failure.h"

namespace pricedown::testing {
namespace {

constexpr const char* kTypeMismatch = "80020005 类型不匹配";
constexpr const char* kOverflow = "8002000A 溢出";

TEST(ToText, HasNoTextForNothing) {
  EXPECT_EQ(Utf8(ToText(Value())), "");
  EXPECT_EQ(Utf8(ToText(Null{})), "");
  EXPECT_EQ(Utf8(ToText(Missing{})), "");
}

TEST(ToText, ReturnsTheDefaultTextOfEachKind) {
  EXPECT_EQ(Utf8(ToText(true)), "True");
  EXPECT_EQ(Utf8(ToText(false)), "False");
  EXPECT_EQ(Utf8(ToText(std::int16_t{-32768})), "-32768");
  EXPECT_EQ(Utf8(ToText(16394)), "16394");
  EXPECT_EQ(Utf8(ToText(12.5)), "12.5");
  EXPECT_EQ(Utf8(ToText(u" 原料 ")), " 原料 ");
}

TEST(ToText, FollowsReferences) {
  Value target = 5;
  EXPECT_EQ(Utf8(ToText(Value::ByReference(target))), "5");
}

TEST(ToText, FailsForObjectsBlocksAndLists) {
  EXPECT_EQ(FailureOf([] { ToText(Value(nullptr)); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToText(Value(CellBlockPtr())); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToText(Value(std::vector<Value>{})); }), kTypeMismatch);
}

struct DateCase {
  const char* name;
  double days;
  const char* expected;
};
void PrintTo(const DateCase& row, std::ostream* stream) { *stream << row.name; }

class TextOfDate : public ::testing::TestWithParam<DateCase> {};

TEST_P(TextOfDate, ShowsTheTimeUnlessItIsMidnight) {
  EXPECT_EQ(Utf8(ToText(Date{GetParam().days})), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, TextOfDate,
    ::testing::Values(
        DateCase{"FirstOf2008", 39448, "2008-01-01"},
        DateCase{"Afternoon", 39448.75, "2008-01-01 18:00:00"},
        DateCase{"LeapDay", 39507, "2008-02-29"}, DateCase{"DayZero", 0, "1899-12-30"},
        DateCase{"Noon", 0.5, "1899-12-30 12:00:00"}, DateCase{"BeforeDayZero", -1, "1899-12-29"},
        DateCase{"MorningBeforeDayZero", -1.25, "1899-12-29 06:00:00"},
        DateCase{"LastSecond", 39448 + 86399.0 / 86400, "2008-01-01 23:59:59"},
        DateCase{"RoundedToMidnight", 39448 + 86399.9 / 86400, "2008-01-02"},
        DateCase{"RoundedToMidnightBeforeDayZero", -1.9999999, "1899-12-30"},
        DateCase{"FirstDay", -657434, "0100-01-01"}, DateCase{"LastDay", 2958465, "9999-12-31"}),
    CaseName<DateCase>);

TEST(ToText, FailsForDatesOutsideTheirRange) {
  EXPECT_EQ(FailureOf([] { ToText(Date{-657435}); }), kOverflow);
  EXPECT_EQ(FailureOf([] { ToText(Date{2958466}); }), kOverflow);
  EXPECT_EQ(FailureOf([] { ToText(Date{1e300}); }), kOverflow);
  EXPECT_EQ(FailureOf([] { ToText(Date{std::nan("")}); }), kOverflow);
}

TEST(ToText, AgreesWithTheCalendarOnEveryDay) {
  using std::chrono::days;
  const std::chrono::sys_days dayZero = std::chrono::year(1899) / 12 / 30;
  for (int day = -657434; day <= 2958465; day += 5) {
    const std::chrono::year_month_day date(dayZero + days(day));
    char expected[40];
    std::snprintf(expected, sizeof expected, "%04d-%02u-%02u", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
    ASSERT_EQ(Utf8(ToText(Date{static_cast<double>(day)})), expected);
  }
}

TEST(ToDouble, ReturnsTheNumberOfEachKind) {
  EXPECT_EQ(ToDouble(Value()), 0);
  EXPECT_EQ(ToDouble(true), -1);
  EXPECT_EQ(ToDouble(false), 0);
  EXPECT_EQ(ToDouble(std::int16_t{3}), 3);
  EXPECT_EQ(ToDouble(-70000), -70000);
  EXPECT_EQ(ToDouble(0.25), 0.25);
  EXPECT_EQ(ToDouble(Date{39448.5}), 39448.5);
  EXPECT_EQ(ToDouble(u" 12.5 "), 12.5);
  Value target = u"7";
  EXPECT_EQ(ToDouble(Value::ByReference(target)), 7);
}

TEST(ToDouble, FailsForNonNumbers) {
  EXPECT_EQ(FailureOf([] { ToDouble(Null{}); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToDouble(Missing{}); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToDouble(u""); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToDouble(u"12 元"); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToDouble(nullptr); }), kTypeMismatch);
}

struct RoundingCase {
  const char* name;
  double given;
  std::int32_t expected;
};
void PrintTo(const RoundingCase& row, std::ostream* stream) { *stream << row.name; }

class Rounding : public ::testing::TestWithParam<RoundingCase> {};

TEST_P(Rounding, RoundsToTheNearestWholeNumberAndHalvesToEven) {
  EXPECT_EQ(RoundToInt32(GetParam().given), GetParam().expected);
  EXPECT_EQ(RoundToInt16(GetParam().given), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Rounding,
    ::testing::Values(RoundingCase{"Zero", 0, 0}, RoundingCase{"HalfDown", 0.5, 0},
                      RoundingCase{"HalfUp", 1.5, 2}, RoundingCase{"HalfDownAgain", 2.5, 2},
                      RoundingCase{"NegativeHalf", -0.5, 0},
                      RoundingCase{"NegativeHalfDown", -1.5, -2},
                      RoundingCase{"NegativeHalfUp", -2.5, -2}, RoundingCase{"Below", 2.4999, 2},
                      RoundingCase{"Above", 2.5001, 3}, RoundingCase{"NegativeBelow", -2.5001, -3},
                      RoundingCase{"JustBelowHalf", 0.49999999999999994, 0}),
    CaseName<RoundingCase>);

TEST(RoundToInt32, AgreesWithTheFloatingPointUnit) {
  ASSERT_EQ(std::fegetround(), FE_TONEAREST);
  std::mt19937 random(3);
  for (int round = 0; round < 20000; ++round) {
    const double number = (static_cast<double>(random()) - 2147483648.0) / 8;
    ASSERT_EQ(RoundToInt32(number), static_cast<std::int32_t>(std::nearbyint(number))) << number;
  }
}

TEST(RoundToInt32, HoldsItsWholeRangeAndNoMore) {
  EXPECT_EQ(RoundToInt32(2147483647.49), 2147483647);
  EXPECT_EQ(RoundToInt32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(FailureOf([] { RoundToInt32(2147483647.5); }), kOverflow);
  EXPECT_EQ(FailureOf([] { RoundToInt32(-2147483648.51); }), kOverflow);
  EXPECT_EQ(FailureOf([] { RoundToInt32(1e300); }), kOverflow);
  EXPECT_EQ(FailureOf([] { RoundToInt32(std::nan("")); }), kOverflow);
  EXPECT_EQ(FailureOf([] { RoundToInt32(-HUGE_VAL); }), kOverflow);
}

TEST(RoundToInt16, HoldsItsWholeRangeAndNoMore) {
  EXPECT_EQ(RoundToInt16(32767.49), 32767);
  EXPECT_EQ(RoundToInt16(-32768.5), -32768);
  EXPECT_EQ(FailureOf([] { RoundToInt16(32767.5); }), kOverflow);
  EXPECT_EQ(FailureOf([] { RoundToInt16(-32768.51); }), kOverflow);
  EXPECT_EQ(FailureOf([] { RoundToInt16(65536); }), kOverflow);
}

TEST(ToInt32, RoundsTheNumberOfAValue) {
  EXPECT_EQ(ToInt32(u"2008"), 2008);
  EXPECT_EQ(ToInt32(u" 11.5 "), 12);
  EXPECT_EQ(ToInt32(10.5), 10);
  EXPECT_EQ(ToInt32(Value()), 0);
  EXPECT_EQ(ToInt32(true), -1);
  EXPECT_EQ(FailureOf([] { ToInt32(u"二〇〇八"); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToInt32(Null{}); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToInt32(u"2147483648"); }), kOverflow);
}

TEST(ToInt16, RoundsTheNumberOfAValue) {
  EXPECT_EQ(ToInt16(u"1"), 1);
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(FailureOf([] { ToInt16(32768); }), kOverflow);
  EXPECT_EQ(FailureOf([] { ToInt16(u""); }), kTypeMismatch);
}

TEST(ToBoolean, ConvertsBooleansNumbersAndTheirTexts) {
  EXPECT_TRUE(ToBoolean(true));
  EXPECT_FALSE(ToBoolean(false));
  EXPECT_FALSE(ToBoolean(Value()));
  EXPECT_TRUE(ToBoolean(-1));
  EXPECT_FALSE(ToBoolean(std::int16_t{0}));
  EXPECT_TRUE(ToBoolean(0.001));
  EXPECT_TRUE(ToBoolean(u"TRUE"));
  EXPECT_FALSE(ToBoolean(u"false"));
  EXPECT_TRUE(ToBoolean(u" 2 "));
  EXPECT_FALSE(ToBoolean(u"0"));
  Value target = u"True";
  EXPECT_TRUE(ToBoolean(Value::ByReference(target)));
}

TEST(ToBoolean, FailsForOtherValues) {
  EXPECT_EQ(FailureOf([] { ToBoolean(Null{}); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToBoolean(u"是"); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToBoolean(u""); }), kTypeMismatch);
  EXPECT_EQ(FailureOf([] { ToBoolean(nullptr); }), kTypeMismatch);
}

}  // namespace
}  // namespace pricedown::testing
