#include "browser/type_ahead.h"

#include <gtest/gtest.h>

namespace pricedown::testing {
namespace {

class TypeAheadTest : public ::testing::Test {
 protected:
  TypeAheadTest() {
    grid_.SetMaxRows(6);
    std::int32_t row = 0;
    for (const std::u16string_view code : {u"01.1", u"01.2", u"Bolt", u"bush", u"02.1", u"001"}) {
      grid_.SetText(1, ++row, code);
    }
  }
  // One key a quarter of a second after the one before.
  std::int32_t Type(char16_t character) {
    time_ += 250;
    row_ = typeAhead_.Type(character, time_, grid_, column_, row_).value_or(row_);
    return row_;
  }

  Grid grid_{2};
  TypeAhead typeAhead_;
  std::uint32_t time_ = 0xFFFFFF00;  // about to wrap around
  std::int32_t column_ = 1;
  std::int32_t row_ = 1;
};

TEST_F(TypeAheadTest, GoesToTheNextTextThatBeginsSo) {
  EXPECT_EQ(Type(u'0'), 2);
  EXPECT_EQ(Type(u'2'), 5);
  EXPECT_EQ(Type(u'.'), 5);
}

TEST_F(TypeAheadTest, BeginsAgainAfterAPause) {
  EXPECT_EQ(Type(u'b'), 3);
  time_ += 1000;
  EXPECT_EQ(Type(u'0'), 5);
}

TEST_F(TypeAheadTest, GoesOnForASecond) {
  EXPECT_EQ(Type(u'b'), 3);
  time_ += 750;
  EXPECT_EQ(Type(u'u'), 4);
}

TEST_F(TypeAheadTest, GoesOnWithTheSameCharacterInEitherCase) {
  EXPECT_EQ(Type(u'b'), 3);
  EXPECT_EQ(Type(u'b'), 4);
  EXPECT_EQ(Type(u'b'), 3);
}

TEST_F(TypeAheadTest, MatchesARepeatedCharacterLiterallyWhereATextBeginsSo) {
  EXPECT_EQ(Type(u'0'), 2);
  EXPECT_EQ(Type(u'0'), 6);
  EXPECT_EQ(Type(u'1'), 6);
}

TEST_F(TypeAheadTest, StaysWhereNothingBeginsSo) {
  EXPECT_EQ(Type(u'z'), 1);
  EXPECT_EQ(Type(u'0'), 1) << "z0 is no beginning either";
}

TEST_F(TypeAheadTest, BeginsAgainInAnotherRow) {
  EXPECT_EQ(Type(u'b'), 3);
  row_ = 1;
  EXPECT_EQ(Type(u'0'), 2) << "no text begins with b0";
}

TEST_F(TypeAheadTest, BeginsAgainInAnotherColumn) {
  grid_.SetText(2, 4, u"M8");
  EXPECT_EQ(Type(u'b'), 3);
  column_ = 2;
  EXPECT_EQ(Type(u'm'), 4) << "no text begins with bm";
}

TEST_F(TypeAheadTest, IgnoresControlCharactersAndALeadingBlank) {
  for (const char16_t character : {u'\r', u'\t', char16_t{3}, char16_t{0x7F}, u' '}) {
    EXPECT_EQ(Type(character), 1);
  }
  EXPECT_EQ(Type(u'B'), 3) << "they are not kept";
}

TEST_F(TypeAheadTest, FindsNothingInAnEmptyGrid) {
  grid_.SetMaxRows(0);
  EXPECT_EQ(Type(u'0'), 1);
}

}  // namespace
}  // namespace pricedown::testing
