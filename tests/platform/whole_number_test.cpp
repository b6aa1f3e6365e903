// Tests of texts that are numbers as a whole, and of their values.
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
  std::optional<double> expected;  // none: not a number
};
void PrintTo(const NumericCase& row, std::ostream* stream) {
  *stream << row.name << " " << Quoted(row.given);
}

using Case = NumericCase;

class NumericText : public ::testing::TestWithParam<NumericCase> {};

TEST_P(NumericText, IsANumberAsAWholeOrNotAtAll) {
  const std::u16string text = GetParam().given;
  if (GetParam().expected.has_value()) {
    EXPECT_EQ(ToDouble(text), *GetParam().expected);
  } else {
    EXPECT_EQ(FailureOf([&] { ToDouble(text); }), "80020005 类型不匹配");
  }
}

INSTANTIATE_TEST_SUITE_P(
    Accepted, NumericText,
    ::testing::Values(Case{"Zero", u"0", 0.0}, Case{"Hundred", u"100", 100.0},
                      Case{"Decimals", u"12.3456", 12.3456}, Case{"BlanksAround", u" 12 ", 12.0},
                      Case{"TabsAndLineBreaks", u"\t12\r\n", 12.0},
                      Case{"LeadingPoint", u".5", 0.5}, Case{"TrailingPoint", u"5.", 5.0},
                      Case{"Plus", u"+5", 5.0}, Case{"Minus", u"-0.0001", -0.0001},
                      Case{"BlankAfterSign", u"- 5", -5.0}, Case{"SignBehind", u"5-", -5.0},
                      Case{"PlusBehind", u"5+", 5.0}, Case{"BlankBeforeSignBehind", u"5 -", -5.0},
                      Case{"Exponent", u"1e2", 100.0}, Case{"SignedExponent", u"1E+2", 100.0},
                      Case{"NegativeExponent", u"1e-2", 0.01}, Case{"ExponentD", u"1D2", 100.0},
                      Case{"Hexadecimal", u"&HFF", 255.0},
                      Case{"HexadecimalIsUnsigned", u"&hFFFF", 65535.0},
                      Case{"Octal", u"&O17", 15.0}, Case{"BasedBetweenBlanks", u" &H10 ", 16.0},
                      Case{"TooSmall", u"1e-400", 0.0}),
    CaseName<Case>);

INSTANTIATE_TEST_SUITE_P(
    Refused, NumericText,
    ::testing::Values(
        Case{"Empty", u"", {}}, Case{"BlanksOnly", u"  ", {}}, Case{"Word", u"abc", {}},
        Case{"NumberAndWord", u"12x", {}}, Case{"Percent", u"12%", {}}, Case{"PointOnly", u".", {}},
        Case{"SignOnly", u"-", {}}, Case{"TwoSigns", u"--5", {}},
        Case{"SignsOnBothSides", u"-5-", {}}, Case{"TwoSignsBehind", u"5--", {}},
        Case{"SecondPoint", u"1.2.3", {}}, Case{"BlankInside", u"1 2", {}},
        Case{"ExponentWithoutDigits", u"1e", {}}, Case{"ExponentOnly", u"e5", {}},
        Case{"ExponentWithPoint", u"1e1.5", {}}, Case{"BlankBeforeExponent", u"1 e2", {}},
        Case{"CommaFirst", u",1", {}}, Case{"CommaLast", u"1,", {}},
        Case{"CommaForAPoint", u"0,5", {}}, Case{"Thousands", u"1,234.5", {}},
        Case{"CommaBeforePoint", u"1,.5", {}}, Case{"CommaAmongDecimals", u"1.2,3", {}},
        Case{"Parentheses", u"(5)", {}}, Case{"Dollar", u"$5", {}}, Case{"Yuan", u"¥5", {}},
        Case{"PrefixOnly", u"&H", {}}, Case{"BadHexadecimalDigit", u"&HG", {}},
        Case{"BadOctalDigit", u"&O8", {}}, Case{"SignedBased", u"-&H10", {}},
        Case{"MarkedBased", u"&H10&", {}}, Case{"FullWidthDigit", u"５", {}},
        Case{"WideBlank", u"　5", {}}, Case{"NotANumber", u"nan", {}}, Case{"Infinity", u"inf", {}},
        Case{"CHexadecimal", u"0x10", {}}, Case{"Boolean", u"True", {}}),
    CaseName<Case>);

TEST(NumericTextOutOfRange, IsANumberThatOverflows) {
  EXPECT_EQ(FailureOf([] { ToDouble(u"1e999"); }), "8002000A 溢出");
  EXPECT_EQ(FailureOf([] { ToDouble(u"&H1FFFFFFFFFFFFFFFF"); }), "8002000A 溢出");
}

TEST(NumericTextWithNull, IsNoNumber) {
  for (const std::u16string_view text : {std::u16string_view(u"1\0", 2), std::u16string_view(u"1\0"
                                                                                             u"2",
                                                                                             3)}) {
    EXPECT_EQ(FailureOf([&] { ToDouble(text); }), "80020005 类型不匹配");
  }
}

}  // namespace
}  // namespace pricedown::testing
