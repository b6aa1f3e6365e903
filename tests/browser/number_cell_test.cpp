#include "browser/number_cell.h"

#include <gtest/gtest.h>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

struct NumberCase {
  const char* name;
  std::u16string_view text;
  bool mayBecome;
  std::optional<std::string> number;
};

class CellNumberText : public ::testing::TestWithParam<NumberCase> {};

TEST_P(CellNumberText, IsReadWithTwoDecimalsUpToTheBound) {
  const NumberCase& c = GetParam();
  EXPECT_EQ(MayBecomeCellNumber(c.text, 99999999999.99), c.mayBecome);
  std::optional<std::string> number;
  if (const auto read = pricedown::CellNumber(c.text, 99999999999.99)) number = Utf8(*read);
  EXPECT_EQ(number, c.number);
}

INSTANTIATE_TEST_SUITE_P(
    NumberCell, CellNumberText,
    ::testing::Values(NumberCase{"Empty", u"", true, ""}, NumberCase{"Whole", u"12", true, "12.00"},
                      NumberCase{"OneDecimal", u"0.5", true, "0.50"},
                      NumberCase{"NoWholePart", u".25", true, "0.25"},
                      NumberCase{"LeadingZeros", u"007", true, "7.00"},
                      NumberCase{"PointBehind", u"3.", true, "3.00"},
                      NumberCase{"Negative", u"-1.5", true, "-1.50"},
                      NumberCase{"NegativeZero", u"-0", true, "0.00"},
                      NumberCase{"OnlySign", u"-", true, std::nullopt},
                      NumberCase{"OnlyPoint", u".", true, std::nullopt},
                      NumberCase{"AtTheBound", u"99999999999.99", true, "99999999999.99"},
                      NumberCase{"AboveTheBound", u"100000000000", false, std::nullopt},
                      NumberCase{"ThreeDecimals", u"1.234", false, std::nullopt},
                      NumberCase{"TwoPoints", u"1.2.3", false, std::nullopt},
                      NumberCase{"Letters", u"1e5", false, std::nullopt},
                      NumberCase{"FullWidthDigits", u"１２．５", true, "12.50"},
                      NumberCase{"ChineseFullStop", u"３。２５", true, "3.25"},
                      NumberCase{"FullWidthSign", u"－１", false, std::nullopt},
                      NumberCase{"Blank", u"1 2", false, std::nullopt},
                      NumberCase{"VeryLong", u"000000000000000000000001", false, std::nullopt},
                      NumberCase{"SixteenDigits", u"0000000000000001", true, "1.00"},
                      NumberCase{"BeyondSixtyFourBits", u"99999999999999999", false, std::nullopt}),
    [](const auto& tested) { return std::string(tested.param.name); });

TEST(NumberCell, ChecksTheTextThatAnInsertionWouldLeave) {
  EXPECT_TRUE(MayInsert(u"12", 1, 1, u".5", 100));
  EXPECT_FALSE(MayInsert(u"1.25", 4, 4, u"5", 100));
  EXPECT_TRUE(MayInsert(u"1.25", 3, 4, u"5", 100));  // in place of the selected 5
  EXPECT_FALSE(MayInsert(u"99", 0, 0, u"1", 100));
  EXPECT_TRUE(MayInsert(u"99", 0, 2, u"1", 100));
  EXPECT_FALSE(MayInsert(u"1", 1, 1, u"-", 100));
  EXPECT_TRUE(MayInsert(u"1", 0, 0, u"-", 100));
}

TEST(NumberCell, ClampsASelectionBehindTheTextsEnd) {
  EXPECT_TRUE(MayInsert(u"1", 9, 4, u"2", 100));
  EXPECT_FALSE(MayInsert(u"1", 9, 99, u"23", 100));
}

TEST(NumberCell, StartsWithADigitAPointOrASign) {
  for (const char16_t unit : std::u16string_view(u"0189.-")) {
    EXPECT_TRUE(StartsCellNumber(unit)) << static_cast<int>(unit);
  }
  for (const char16_t unit : std::u16string_view(u"a /:+,\b１")) {
    EXPECT_FALSE(StartsCellNumber(unit)) << static_cast<int>(unit);
  }
}

TEST(NumberCell, EndsTypingByMoveKeysButNotByThoseThatMoveInTheText) {
  EXPECT_EQ(CellKeyOf(Key::Escape), CellKey::Cancel);
  EXPECT_EQ(CellKeyOf(Key::Enter), CellKey::Accept);
  for (const Key key : {Key::Tab, Key::Up, Key::Down, Key::PageUp, Key::PageDown}) {
    EXPECT_EQ(CellKeyOf(key), CellKey::AcceptAndMove) << static_cast<int>(key);
  }
  EXPECT_EQ(CellKeyOf(Key::F5), CellKey::Command);
  for (const Key key :
       {Key::Left, Key::Right, Key::Home, Key::End, Key::Delete, Key::Insert, Key::F2, Key::A}) {
    EXPECT_EQ(CellKeyOf(key), CellKey::None) << static_cast<int>(key);
  }
}

TEST(NumberCell, AcceptsFullWidthDigitsAndPoints) {
  EXPECT_EQ(Utf8(CellCharacters(u"１２．５０")), "12.50");
  EXPECT_EQ(CellCharacter(u'。'), u'.');
  for (const char16_t other : {u'7', u'.', u'，', u'Ａ', u'－', u'中'}) {
    EXPECT_EQ(CellCharacter(other), other);
  }
}

TEST(NumberCell, BeginsEditingOrEmptiesByKeysWithoutModifiers) {
  EXPECT_EQ(CellStartOf({Key::F2}), CellStart::Edit);
  EXPECT_EQ(CellStartOf({Key::Enter}), CellStart::Edit);
  EXPECT_EQ(CellStartOf({Key::Delete}), CellStart::Clear);
  EXPECT_EQ(CellStartOf({Key::Insert}), CellStart::None);
  EXPECT_EQ(CellStartOf({.key = Key::Delete, .shift = true}), CellStart::None);
  EXPECT_EQ(CellStartOf({.key = Key::Enter, .control = true}), CellStart::None);
}

}  // namespace
}  // namespace pricedown::testing
