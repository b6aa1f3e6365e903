// Tests of the default text of numbers.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <random>

#include "platform/convert.h"
#include "platform/number_scan.h"
#include "tests/support/case_name.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

struct NumberTextCase {
  const char* name;
  double given;
  const char* expected;
};
void PrintTo(const NumberTextCase& row, std::ostream* stream) { *stream << row.name; }

class TextOfNumber : public ::testing::TestWithParam<NumberTextCase> {};

TEST_P(TextOfNumber, IsTheShortestOfFifteenDigits) {
  EXPECT_EQ(Utf8(NumberText(GetParam().given)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, TextOfNumber,
    ::testing::Values(
        NumberTextCase{"Zero", 0.0, "0"}, NumberTextCase{"NegativeZero", -0.0, "0"},
        NumberTextCase{"Whole", 1231, "1231"}, NumberTextCase{"Percentage", 12.5, "12.5"},
        NumberTextCase{"NoTrailingZero", 1231.10, "1231.1"},
        NumberTextCase{"LeadingZeroStays", 0.5, "0.5"}, NumberTextCase{"Negative", -2.25, "-2.25"},
        NumberTextCase{"SumOfTenths", 0.1 + 0.2, "0.3"},
        NumberTextCase{"FourDecimals", 0.0001, "0.0001"},
        NumberTextCase{"NineDotNine", 9.9999, "9.9999"},
        NumberTextCase{"Third", 1.0 / 3, "0.333333333333333"},
        NumberTextCase{"TwoThirds", 2.0 / 3, "0.666666666666667"},
        NumberTextCase{"SmallestPlain", 0.00012345, "0.00012345"},
        NumberTextCase{"OneDigitBelowPlain", 0.00001, "1E-05"},
        NumberTextCase{"BelowPlain", 0.000015, "1.5E-05"},
        NumberTextCase{"RoundedUpToPlain", 0.00009999999999999999, "0.0001"},
        NumberTextCase{"FifteenDigits", 123456789012345, "123456789012345"},
        NumberTextCase{"LargestPlain", 999999999999999, "999999999999999"},
        NumberTextCase{"FirstWithExponent", 1e15, "1E+15"},
        NumberTextCase{"RoundedUpToExponent", 999999999999999.9, "1E+15"},
        NumberTextCase{"SixteenDigits", 1234567890123456, "1.23456789012346E+15"},
        NumberTextCase{"ThreeDigitExponent", 1.5e300, "1.5E+300"},
        NumberTextCase{"Smallest", 2.2250738585072014e-308, "2.2250738585072E-308"},
        NumberTextCase{"Largest", std::numeric_limits<double>::max(), "1.79769313486232E+308"},
        NumberTextCase{"Infinity", std::numeric_limits<double>::infinity(), "1.#INF"},
        NumberTextCase{"MinusInfinity", -std::numeric_limits<double>::infinity(), "-1.#INF"},
        NumberTextCase{"NotANumber", std::numeric_limits<double>::quiet_NaN(), "1.#QNAN"}),
    CaseName<NumberTextCase>);

TEST(NumberText, WritesWholeNumbersInFull) {
  EXPECT_EQ(Utf8(NumberText(std::int32_t{0})), "0");
  EXPECT_EQ(Utf8(NumberText(std::int32_t{-2147483647 - 1})), "-2147483648");
  EXPECT_EQ(Utf8(NumberText(std::int32_t{2147483647})), "2147483647");
}

// Doubles of all magnitudes, from their bits.
double AnyFiniteDouble(std::mt19937_64& random) {
  for (;;) {
    const std::uint64_t bits = random();
    double number = 0;
    std::memcpy(&number, &bits, sizeof number);
    if (std::isnormal(number)) return number;
  }
}

TEST(NumberText, AgreesWithTheCLibraryOnAnyNumber) {
  std::mt19937_64 random(11);
  for (int round = 0; round < 20000; ++round) {
    const double number = AnyFiniteDouble(random);
    char expected[40];
    std::snprintf(expected, sizeof expected, "%.15G", number);
    ASSERT_EQ(Utf8(NumberText(number)), expected);
  }
}

TEST(NumberText, AgreesWithTheCLibraryOnWholeNumbers) {
  std::mt19937_64 random(12);
  for (int round = 0; round < 20000; ++round) {
    // Up to beyond the first one with an exponent, all magnitudes equally often.
    const double number =
        static_cast<double>(static_cast<std::int64_t>(random() >> (12 + random() % 52))) *
        (round % 2 == 0 ? 1 : -1);
    char expected[40];
    std::snprintf(expected, sizeof expected, "%.15G", number == 0 ? 0 : number);
    ASSERT_EQ(Utf8(NumberText(number)), expected);
  }
}

TEST(NumberText, AgreesWithTheCLibraryOnDecimalsAndTheirNeighbours) {
  std::mt19937_64 random(14);
  constexpr double kScales[] = {10, 100, 1000, 10000, 100000};
  for (int round = 0; round < 20000; ++round) {
    const double decimal =
        static_cast<double>(static_cast<std::int64_t>(random() >> (12 + random() % 52))) *
        (round % 2 == 0 ? 1 : -1) / kScales[random() % std::size(kScales)];
    for (const double number :
         {std::nextafter(decimal, -HUGE_VAL), decimal, std::nextafter(decimal, HUGE_VAL)}) {
      char expected[40];
      std::snprintf(expected, sizeof expected, "%.15G", number == 0 ? 0 : number);
      ASSERT_EQ(Utf8(NumberText(number)), expected);
    }
  }
}

TEST(NumberText, IsReadBackAsTheSameDecimalNumber) {
  std::mt19937_64 random(7);
  constexpr double kPowers[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9, 1e10};
  for (int round = 0; round < 20000; ++round) {
    const auto digits = static_cast<double>(random() % 1000000000000000u);
    const double number = digits / kPowers[random() % std::size(kPowers)];
    const std::u16string text = NumberText(number);
    ASSERT_EQ(LeadingNumber(text), number) << Utf8(text);
    ASSERT_EQ(ToDouble(text), number) << Utf8(text);
    ASSERT_EQ(LeadingNumber(NumberText(-number)), -number) << Utf8(text);
  }
}

TEST(NumberText, StaysTheSameWhenReadAndWrittenAgain) {
  std::mt19937_64 random(13);
  for (int round = 0; round < 20000; ++round) {
    const std::u16string text = NumberText(AnyFiniteDouble(random));
    // Rounded up beyond the largest double.
    if (ScanWholeNumber(text).outcome == ScannedNumber::Outcome::Overflow) continue;
    ASSERT_EQ(Utf8(NumberText(LeadingNumber(text))), Utf8(text));
  }
}

TEST(NumberText, WritesEveryPercentageOfFourDecimalsExactly) {
  for (int number = 0; number <= 1000000; number += 7) {
    char expected[20];
    std::snprintf(expected, sizeof expected, "%d.%04d", number / 10000, number % 10000);
    std::string shortest = expected;
    shortest.erase(shortest.find_last_not_of('0') + 1);
    if (shortest.back() == '.') shortest.pop_back();
    ASSERT_EQ(Utf8(NumberText(LeadingNumber(std::u16string(shortest.begin(), shortest.end())))),
              shortest);
  }
}

}  // namespace
}  // namespace pricedown::testing
