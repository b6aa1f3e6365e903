// Reading the header from the fields.
#include "editor/form_state.h"

#include <limits>

#include "platform/convert.h"
#include "platform/number_scan.h"
#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

class ReadHeaderTest : public EditorTest {
 protected:
  TypedHeader WithPercentage(std::u16string_view text) {
    view.Type(FormField::Percentage, text);
    return ReadHeader(view);
  }
};

TEST_F(ReadHeaderTest, KeepsTheTextsAsTheyAre) {
  Type({u" 01 ", u"原 料", u"5711 ", u"", 0}, u"12.5");
  EXPECT_EQ(static_cast<const ClassHeader&>(ReadHeader(view)),
            (ClassHeader{u" 01 ", u"原 料", u"5711 ", u"", 12.5}));
}

// Also where the number of the whole text is another one.
TEST_F(ReadHeaderTest, ReadsThePercentageByItsLeadingNumber) {
  for (const std::u16string_view text :
       {u"12.5", u" 7 ", u"+5", u"5+", u"5-", u"- 3", u"-0", u"1e1", u"1d1", u".25", u"12.5x",
        u"1 2", u"1,5", u"101", u"&H20", u"&HFFFF", u"&O17", u"abc", u""}) {
    EXPECT_EQ(WithPercentage(text).percentage, LeadingNumber(text)) << Utf8(text);
  }
}

TEST_F(ReadHeaderTest, HasAWholePercentageOnlyForATextThatIsANumber) {
  for (const std::u16string_view text :
       {u"12.5", u" 7 ", u"5-", u"1e1", u"12.5x", u"1 2", u"1,5", u"&HFFFF", u"abc", u""}) {
    const auto whole = WithPercentage(text).wholePercentage;
    const bool isNumber = ScanWholeNumber(text).outcome == ScannedNumber::Outcome::Number;
    ASSERT_EQ(whole.has_value(), isNumber) << Utf8(text);
    if (whole) {
      EXPECT_EQ(*whole, ToDouble(Value(text))) << Utf8(text);
    }
  }
}

TEST_F(ReadHeaderTest, ReadsANumberBeyondADoubleAsTheLargestOne) {
  const TypedHeader header = WithPercentage(u"1e999");
  EXPECT_EQ(header.percentage, std::numeric_limits<double>::max());
  EXPECT_EQ(header.wholePercentage, std::numeric_limits<double>::max());
}

TEST_F(ReadHeaderTest, CountsThePercentagesCharacters) {
  EXPECT_EQ(WithPercentage(u"  1.234").percentageLength, 7u);
}

}  // namespace
}  // namespace pricedown
