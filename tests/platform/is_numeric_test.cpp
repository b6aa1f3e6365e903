// Tests of texts that are numbers as a whole: the is-numeric test, and their values.
#include <gtest/gtest.h>

#include <optional>

#include "platform/convert.h"
#include "tests/support/case_name.h"
#include "tests/support/failure.h"

namespace pricedown::testing {
namespace {

struct NumericCase {
  const char* name;
  const char16_t* given;
  std::optional<double> expected;  // none: not numeric
};
void PrintTo(const NumericCase& row, std::ostream* stream) {
  *stream << row.name << " " << Quoted(row.given);
}

using Row = NumericCase;

class NumericText : public ::testing::TestWithParam<NumericCase> {};

TEST_P(NumericText, IsANumberAsAWholeOrNotAtAll) {
  const std::u16string text = GetParam().given;
  ASSERT_EQ(IsNumeric(text), GetParam().expected.has_value());
  if (GetParam().expected.has_value()) {
    EXPECT_EQ(ToDouble(text), *GetParam().expected);
    EXPECT_TRUE(EqualsNumber(*GetParam().expected, text));
    EXPECT_FALSE(EqualsNumber(*GetParam().expected + 1, text));
  } else {
    EXPECT_EQ(FailureOf([&] { ToDouble(text); }), "80020005 类型不匹配");
    EXPECT_FALSE(EqualsNumber(0, text));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Accepted, NumericText,
    ::testing::Values(Row{"Zero", u"0", 0.0}, Row{"Hundred", u"100", 100.0},
                      Row{"Decimals", u"12.3456", 12.3456}, Row{"BlanksAround", u" 12 ", 12.0},
                      Row{"TabsAndLineBreaks", u"\t12\r\n", 12.0}, Row{"LeadingPoint", u".5", 0.5},
                      Row{"TrailingPoint", u"5.", 5.0}, Row{"Plus", u"+5", 5.0},
                      Row{"Minus", u"-0.0001", -0.0001}, Row{"BlankAfterSign", u"- 5", -5.0},
                      Row{"SignBehind", u"5-", -5.0}, Row{"PlusBehind", u"5+", 5.0},
                      Row{"BlankBeforeSignBehind", u"5 -", -5.0}, Row{"Exponent", u"1e2", 100.0},
                      Row{"SignedExponent", u"1E+2", 100.0}, Row{"NegativeExponent", u"1e-2", 0.01},
                      Row{"ExponentD", u"1D2", 100.0}, Row{"Hexadecimal", u"&HFF", 255.0},
                      Row{"HexadecimalIsUnsigned", u"&hFFFF", 65535.0}, Row{"Octal", u"&O17", 15.0},
                      Row{"BasedBetweenBlanks", u" &H10 ", 16.0}, Row{"TooSmall", u"1e-400", 0.0}),
    CaseName<Row>);

INSTANTIATE_TEST_SUITE_P(
    Refused, NumericText,
    ::testing::Values(Row{"Empty", u"", {}}, Row{"BlanksOnly", u"  ", {}}, Row{"Word", u"abc", {}},
                      Row{"NumberAndWord", u"12x", {}}, Row{"Percent", u"12%", {}},
                      Row{"PointOnly", u".", {}}, Row{"SignOnly", u"-", {}},
                      Row{"TwoSigns", u"--5", {}}, Row{"SignsOnBothSides", u"-5-", {}},
                      Row{"TwoSignsBehind", u"5--", {}}, Row{"SecondPoint", u"1.2.3", {}},
                      Row{"BlankInside", u"1 2", {}}, Row{"ExponentWithoutDigits", u"1e", {}},
                      Row{"ExponentOnly", u"e5", {}}, Row{"ExponentWithPoint", u"1e1.5", {}},
                      Row{"BlankBeforeExponent", u"1 e2", {}}, Row{"CommaFirst", u",1", {}},
                      Row{"CommaLast", u"1,", {}}, Row{"CommaForAPoint", u"0,5", {}},
                      Row{"Thousands", u"1,234.5", {}}, Row{"CommaBeforePoint", u"1,.5", {}},
                      Row{"CommaAmongDecimals", u"1.2,3", {}}, Row{"Parentheses", u"(5)", {}},
                      Row{"Dollar", u"$5", {}}, Row{"Yuan", u"¥5", {}},
                      Row{"PrefixOnly", u"&H", {}}, Row{"BadHexadecimalDigit", u"&HG", {}},
                      Row{"BadOctalDigit", u"&O8", {}}, Row{"SignedBased", u"-&H10", {}},
                      Row{"MarkedBased", u"&H10&", {}}, Row{"FullWidthDigit", u"５", {}},
                      Row{"WideBlank", u"　5", {}}, Row{"NotANumber", u"nan", {}},
                      Row{"Infinity", u"inf", {}}, Row{"CHexadecimal", u"0x10", {}},
                      Row{"Boolean", u"True", {}}),
    CaseName<Row>);

TEST(IsNumeric, RefusesWhatNoDoubleCanHold) {
  EXPECT_FALSE(IsNumeric(u"1e999"));
  EXPECT_FALSE(IsNumeric(u"&H1FFFFFFFFFFFFFFFF"));
  EXPECT_FALSE(EqualsNumber(0, u"1e999"));
  EXPECT_EQ(FailureOf([] { ToDouble(u"1e999"); }), "8002000A 溢出");
}

TEST(IsNumeric, RefusesAnEmbeddedNull) {
  EXPECT_FALSE(IsNumeric(std::u16string_view(u"1\0", 2)));
  EXPECT_FALSE(
      IsNumeric(std::u16string_view(u"1\0"
                                    u"2",
                                    3)));
}

TEST(EqualsNumber, ComparesPercentagesAsNumbers) {
  EXPECT_TRUE(EqualsNumber(12.5, u"12.50"));
  EXPECT_TRUE(EqualsNumber(100, u" 1e2 "));
  EXPECT_FALSE(EqualsNumber(12.5, u"12.5%"));
  EXPECT_FALSE(EqualsNumber(0, u""));
}

}  // namespace
}  // namespace pricedown::testing
