// Tests of the number that a text begins with.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/convert.h"
#include "tests/support/case_name.h"
#include "tests/support/failure.h"

namespace pricedown::testing {
namespace {

struct LeadingNumberCase {
  const char* name;
  std::u16string given;
  double expected;
};
void PrintTo(const LeadingNumberCase& row, std::ostream* stream) {
  *stream << row.name << " " << Quoted(row.given);
}

class LeadingNumberOf : public ::testing::TestWithParam<LeadingNumberCase> {};

TEST_P(LeadingNumberOf, StopsAtTheFirstCharacterThatDoesNotBelong) {
  EXPECT_EQ(LeadingNumber(GetParam().given), GetParam().expected);
}

using Row = LeadingNumberCase;

INSTANTIATE_TEST_SUITE_P(
    Decimal, LeadingNumberOf,
    ::testing::Values(Row{"Empty", u"", 0}, Row{"BlanksOnly", u"  ", 0}, Row{"Word", u"abc", 0},
                      Row{"Whole", u"1231", 1231}, Row{"Decimals", u"1231.10", 1231.1},
                      Row{"SecondPoint", u"1.2.3", 1.2},
                      Row{"AccountNumber", u"1131.01.02", 1131.01},
                      Row{"OtherSeparator", u"1131-01", 1131}, Row{"Comma", u"1,234", 1},
                      Row{"Unit", u"12.5%", 12.5}, Row{"LeadingPoint", u".5", 0.5},
                      Row{"TrailingPoint", u"5.", 5}, Row{"PointOnly", u".", 0},
                      Row{"PointAndWord", u".x", 0}, Row{"FullWidthDigits", u"１２", 0},
                      Row{"ChineseBehind", u"12元", 12},
                      Row{"NullBehind",
                          std::u16string(u"1\0"
                                         u"2",
                                         3),
                          1},
                      Row{"ManyDigits", u"0.1000000000000000055511151231257827", 0.1},
                      Row{"LeadingZeros", u"00012.50", 12.5}),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(
    SignAndBlanks, LeadingNumberOf,
    ::testing::Values(Row{"Minus", u"-5", -5}, Row{"Plus", u"+5", 5}, Row{"TwoSigns", u"--5", 0},
                      Row{"SignOnly", u"-", 0}, Row{"SignBehind", u"5-", 5},
                      Row{"BlanksAround", u"  12  ", 12}, Row{"BlanksInside", u"1 2 3", 123},
                      Row{"BlankAfterSign", u"- 5", -5}, Row{"BlankAroundPoint", u"1 . 5", 1.5},
                      Row{"TabsAndLineBreaks", u"\t1\r\n2", 12}, Row{"WideBlankStops", u"1　2", 1},
                      Row{"NoBreakSpaceStops", u"1\u00A02", 1}),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(
    Exponent, LeadingNumberOf,
    ::testing::Values(Row{"LowerE", u"1e2", 100}, Row{"UpperE", u"1E2", 100},
                      Row{"LowerD", u"1d2", 100}, Row{"UpperD", u"1.5D+2", 150},
                      Row{"Negative", u"15e-1", 1.5}, Row{"WithoutDigits", u"1e", 1},
                      Row{"WithSignOnly", u"1e+", 1}, Row{"WithTwoSigns", u"1e+-2", 1},
                      Row{"BlanksInside", u"1 e - 2", 0.01}, Row{"PointBehind", u"1e1.5", 10},
                      Row{"TwoExponents", u"1e2e3", 100}, Row{"ExponentOnly", u"e5", 0},
                      Row{"AfterTrailingPoint", u"5.e1", 50},
                      Row{"Largest", u"1.7976931348623157e308", std::numeric_limits<double>::max()},
                      Row{"TooSmall", u"1e-400", 0},
                      Row{"FarTooSmall", u"1e-99999999999999999999", 0},
                      Row{"ZeroToAnyPower", u"0e99999999999999999999", 0},
                      Row{"ZeroWithDecimalsToAnyPower", u"00.00e999", 0},
                      Row{"SmallDigitsLargeExponent", u"0.0000000001e310", 1e300},
                      Row{"ManyDigitsSmallExponent", u"10000000000e-310", 1e-300}),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(
    OtherBases, LeadingNumberOf,
    ::testing::Values(
        Row{"Hexadecimal", u"&H1F", 31}, Row{"LowerHexadecimal", u"&h1f", 31},
        Row{"Octal", u"&O17", 15}, Row{"LowerOctal", u"&o17", 15},
        Row{"OctalStopsAtEight", u"&O18", 1}, Row{"HexadecimalStops", u"&H1G", 1},
        Row{"PrefixOnly", u"&H", 0}, Row{"PrefixAndWord", u"&Hxyz", 0}, Row{"Ampersand", u"&", 0},
        Row{"OtherPrefix", u"&B101", 0}, Row{"Largest16Bits", u"&H7FFF", 32767},
        Row{"Negative16Bits", u"&HFFFF", -1}, Row{"Least16Bits", u"&H8000", -32768},
        Row{"MarkedAs32Bits", u"&HFFFF&", 65535}, Row{"First32Bits", u"&H10000", 65536},
        Row{"Negative32Bits", u"&HFFFFFFFF", -1}, Row{"Least32Bits", u"&H80000000&", -2147483648.0},
        Row{"Beyond32Bits", u"&H100000000", 4294967296.0}, Row{"BlanksInside", u" & H 1 0", 16},
        Row{"Signed", u"-&H10", 0}),
    CaseName<Row>);

TEST(LeadingNumber, FailsBeyondTheLargestNumber) {
  EXPECT_EQ(FailureOf([] { LeadingNumber(u"1E999"); }), "8002000A 溢出");
  EXPECT_EQ(FailureOf([] { LeadingNumber(u"-1E99999999999999999999"); }), "8002000A 溢出");
  EXPECT_EQ(FailureOf([] { LeadingNumber(u"&H1FFFFFFFFFFFFFFFF"); }), "8002000A 溢出");
  EXPECT_EQ(FailureOf([] { LeadingNumber(std::u16string(400, u'9')); }), "8002000A 溢出");
  EXPECT_EQ(FailureOf([] { LeadingNumber(u"1.8e308"); }), "8002000A 溢出");
}

TEST(LeadingNumber, ReturnsNumbersUnchanged) {
  EXPECT_EQ(LeadingNumber(Value(12.5)), 12.5);
  EXPECT_EQ(LeadingNumber(Value(0.1 + 0.2)), 0.1 + 0.2);
  EXPECT_EQ(LeadingNumber(Value(-7)), -7);
  EXPECT_EQ(LeadingNumber(Value(std::int16_t{7})), 7);
}

TEST(LeadingNumber, ReadsTheDefaultTextOfOtherValues) {
  EXPECT_EQ(LeadingNumber(Value()), 0);
  EXPECT_EQ(LeadingNumber(Value(Null{})), 0);
  EXPECT_EQ(LeadingNumber(Value(Missing{})), 0);
  EXPECT_EQ(LeadingNumber(Value(true)), 0);
  EXPECT_EQ(LeadingNumber(Value(u"0")), 0);
  EXPECT_EQ(LeadingNumber(Value(u"1 是")), 1);
  EXPECT_EQ(LeadingNumber(Value(Date{39448})), 2008);
  Value target = u"42";
  EXPECT_EQ(LeadingNumber(Value::ByReference(target)), 42);
}

TEST(LeadingNumber, FailsForObjects) {
  EXPECT_EQ(FailureOf([] { LeadingNumber(Value(nullptr)); }), "80020005 类型不匹配");
}

}  // namespace
}  // namespace pricedown::testing
