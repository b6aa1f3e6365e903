// How texts are shortened to their cells.
#include "print/fitted_text.h"

#include <gtest/gtest.h>

#include "tests/print/fake_measurer.h"
#include "tests/support/case_name.h"

namespace pricedown::testing {
namespace {

struct FitCase {
  const char* name;
  std::u16string_view text;
  Tenths available;
  const char* expected;
};
void PrintTo(const FitCase& fit, std::ostream* stream) { *stream << fit.name; }

class FittedText : public ::testing::TestWithParam<FitCase> {
 protected:
  FakeMeasurer measurer_;
  TextArena made_;
  const Font font_{u"宋体", 10, false, false, false};  // 20 and 40 wide
};

TEST_P(FittedText, EndsInAnEllipsisWhereItDoesNotFit) {
  const FitCase& fit = GetParam();
  EXPECT_EQ(Utf8(FitText(measurer_, font_, fit.text, fit.available, made_)), fit.expected);
}

INSTANTIATE_TEST_SUITE_P(
    FitText, FittedText,
    ::testing::Values(
        FitCase{"Shorter", u"abc", 100, "abc"}, FitCase{"Exact", u"abcde", 100, "abcde"},
        FitCase{"OneTenthTooLong", u"abcde", 99, "ab…"},
        FitCase{"Chinese", u"六角螺栓", 159, "六角…"}, FitCase{"EllipsisAlone", u"abcde", 59, "…"},
        FitCase{"ExactlyTheEllipsis", u"abcde", 40, "…"},
        FitCase{"NotEvenTheEllipsis", u"abcde", 39, ""}, FitCase{"NoWidth", u"abc", 0, ""},
        FitCase{"NegativeWidth", u"abc", -5, ""}, FitCase{"NoText", u"", 100, ""},
        FitCase{"ControlCharacters", u"a\r\nb\tc", 200, "a  b c"},
        FitCase{"Delete",
                u"a\x7F"
                u"b",
                200, "a b"},
        // A code unit above the surrogates.
        FitCase{"FullWidthSigns", u"（！）（！）", 159, "（！…"},
        // An emoji is two units: the cut would fall between them.
        FitCase{"SurrogatePair", u"a😀😀", 139, "a…"},
        FitCase{"WholeSurrogatePairs", u"a😀😀", 180, "a😀😀"}),
    CaseName<FitCase>);

TEST_F(FittedText, MeasuresLittleOfAVeryLongText) {
  const std::u16string text(1000000, u'x');
  EXPECT_EQ(Utf8(FitText(measurer_, font_, text, 1000, made_)), std::string(48, 'x') + "…");
  EXPECT_LE(measurer_.calls, 4);
  EXPECT_LE(measurer_.longest, 64u);
}

TEST_F(FittedText, KeepsAVeryLongTextThatFits) {
  const std::u16string text(100000, u'x');
  EXPECT_EQ(FitText(measurer_, font_, text, 2000000, made_), text);
}

TEST_F(FittedText, CopiesNothingOfATextThatFitsAsItIs) {
  const std::u16string text = u"六角 螺栓";
  EXPECT_EQ(FitText(measurer_, font_, text, 300, made_).data(), text.data());
  EXPECT_EQ(measurer_.calls, 1);
}

TEST_F(FittedText, MeasuresAShortTextThatIsTooLongOnce) {
  EXPECT_EQ(Utf8(FitText(measurer_, font_, u"abcde", 99, made_)), "ab…");
  EXPECT_EQ(measurer_.calls, 3) << "the text, the ellipsis, the beginning that fits";
}

TEST_F(FittedText, PropagatesAFailingMeasurement) {
  measurer_.failingCall = 1;
  EXPECT_THROW(FitText(measurer_, font_, u"abc", 100, made_), AutomationError);
}

}  // namespace
}  // namespace pricedown::testing
