// Tests of the helpers on UTF-16 text.
#include "platform/text.h"

#include <gtest/gtest.h>
#include <locale.h>
#include <wctype.h>

#include <random>

#include "platform/upper_case.h"
#include "tests/support/case_name.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

TEST(Concatenate, JoinsPiecesWithNothingBetween) {
  EXPECT_EQ(Utf8(Concatenate({u"a", u"", u"物料", kLineBreak, u" b"})), "a物料\r\n b");
  EXPECT_TRUE(Concatenate({}).empty());
}

TEST(Concatenate, KeepsEmbeddedNulls) {
  const std::u16string_view piece(u"a\0b", 3);
  EXPECT_EQ(Concatenate({piece, piece}).size(), 6u);
}

struct TrimCase {
  const char* name;
  const char16_t* given;
  const char* expected;
};
void PrintTo(const TrimCase& row, std::ostream* stream) { *stream << row.name; }

class Trimming : public ::testing::TestWithParam<TrimCase> {};

TEST_P(Trimming, RemovesOuterBlanksOnly) {
  EXPECT_EQ(Utf8(Trim(GetParam().given)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Trimming,
    ::testing::Values(TrimCase{"Empty", u"", ""}, TrimCase{"BlanksOnly", u"   ", ""},
                      TrimCase{"NoBlanks", u"原料", "原料"},
                      TrimCase{"BothSides", u"  a b  ", "a b"}, TrimCase{"Left", u" x", "x"},
                      TrimCase{"Right", u"x ", "x"}, TrimCase{"TabStays", u"\tx\t", "\tx\t"},
                      TrimCase{"WideBlankStays", u"　x　", "　x　"},
                      TrimCase{"LineBreakStays", u" x\r\n", "x\r\n"}),
    CaseName<TrimCase>);

struct CutCase {
  const char* name;
  std::u16string_view given;
  std::size_t most;
  std::size_t expected;
};
void PrintTo(const CutCase& row, std::ostream* stream) { *stream << row.name; }

class Cut : public ::testing::TestWithParam<CutCase> {};

TEST_P(Cut, LeavesNoHalfOfASurrogatePair) {
  EXPECT_EQ(CutLength(GetParam().given, GetParam().most), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, Cut,
    ::testing::Values(CutCase{"Empty", u"", 3, 0}, CutCase{"Shorter", u"ab", 3, 2},
                      CutCase{"Exact", u"abc", 3, 3}, CutCase{"Longer", u"abcd", 3, 3},
                      CutCase{"Nothing", u"abc", 0, 0}, CutCase{"BetweenPairs", u"𠮷𠮷", 2, 2},
                      CutCase{"InsideAPair", u"𠮷𠮷", 3, 2}, CutCase{"FirstPair", u"𠮷", 1, 0},
                      CutCase{"WholePair", u"a𠮷", 3, 3},
                      CutCase{"LoneHighSurrogate", u"a\xD842z", 2, 2},
                      CutCase{"LoneHighSurrogateAtTheEnd", u"a\xD842", 2, 2}),
    CaseName<CutCase>);

TEST(EqualsIgnoringCase, TreatsAsciiLettersAsEqualInEitherCase) {
  EXPECT_TRUE(EqualsIgnoringCase(u"FitemClassNumber", u"FItemClassNumber"));
  EXPECT_TRUE(EqualsIgnoringCase(u"", u""));
  EXPECT_TRUE(EqualsIgnoringCase(u"azAZ", u"AZaz"));
}

TEST(EqualsIgnoringCase, DistinguishesEverythingElse) {
  EXPECT_FALSE(EqualsIgnoringCase(u"a", u"ab"));
  EXPECT_FALSE(EqualsIgnoringCase(u"a", u"b"));
  EXPECT_FALSE(EqualsIgnoringCase(u"é", u"É"));
  // The neighbours of the letters, which also differ in the case bit only.
  EXPECT_FALSE(EqualsIgnoringCase(u"@", u"`"));
  EXPECT_FALSE(EqualsIgnoringCase(u"[", u"{"));
}

struct UpperCaseCase {
  const char* name;
  const char16_t* given;
  const char* expected;
};
void PrintTo(const UpperCaseCase& row, std::ostream* stream) { *stream << row.name; }

class UpperCasing : public ::testing::TestWithParam<UpperCaseCase> {};

TEST_P(UpperCasing, RaisesLetters) {
  EXPECT_EQ(Utf8(UpperCase(GetParam().given)), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Table, UpperCasing,
    ::testing::Values(UpperCaseCase{"Empty", u"", ""},
                      UpperCaseCase{"Ascii", u"ab01Zz@[`{", "AB01ZZ@[`{"},
                      UpperCaseCase{"Chinese", u"原料a类", "原料A类"},
                      UpperCaseCase{"Latin", u"àéöøþ÷ßÿ", "ÀÉÖØÞ÷ßŸ"},
                      UpperCaseCase{"MarkedLatin", u"āįĳķĺňŋŷźž", "ĀĮĲĶĹŇŊŶŹŽ"},
                      UpperCaseCase{"MarkedLatinCapitalsStay", u"ĀĮĲĶĹŇŊŶŸŹŽ", "ĀĮĲĶĹŇŊŶŸŹŽ"},
                      UpperCaseCase{"LatinWithoutACapitalStays", u"İĸŉǷǺ", "İĸŉǷǺ"},
                      UpperCaseCase{"LatinOfOtherLanguages", u"ıſǝƀǅɐ", "ISƎɃǄⱯ"},
                      UpperCaseCase{"Pinyin", u"āáǎàēéěèīíǐìōóǒòūúǔùǖǘǚǜüńňǹ",
                                    "ĀÁǍÀĒÉĚÈĪÍǏÌŌÓǑÒŪÚǓÙǕǗǙǛÜŃŇǸ"},
                      UpperCaseCase{"RomanNumerals", u"ⅰⅳⅻⅿⅠↀ", "ⅠⅣⅫⅯⅠↀ"},
                      UpperCaseCase{"Circled", u"ⓐⓩⒶ①⓪", "ⒶⓏⒶ①⓪"},
                      UpperCaseCase{"Greek", u"αβγωςάέήίόύώϊϋ", "ΑΒΓΩΣΆΈΉΊΌΎΏΪΫ"},
                      UpperCaseCase{"GreekWithTwoMarksStays", u"ΐΰ", "ΐΰ"},
                      UpperCaseCase{"GreekSymbols", u"ϐᾀ", "Βᾈ"},
                      UpperCaseCase{"ArmenianAndGeorgian", u"աა", "ԱᲐ"},
                      UpperCaseCase{"BeyondTheBasicPlane", u"𐐨𞤢𠀀", "𐐀𞤀𠀀"},
                      UpperCaseCase{"Cyrillic", u"абвяѐёџѡҁҋӂӎӏӑԯ",
                                    "АБВЯЀЁЏѠҀҊӁӍӀӐԮ"},
                      UpperCaseCase{"CyrillicSignsStay", u"҂҃", "҂҃"},
                      UpperCaseCase{"FullWidth", u"ａｂｚ０１［", "ＡＢＺ０１［"}),
    CaseName<UpperCaseCase>);

// The C library's mapping is Unicode's too, but for Georgian.
TEST(UpperCase, IsThatOfTheCLibrary) {
  const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
  ASSERT_NE(locale, locale_t{});
  int letters = 0;
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character >= 0x10D0 && character <= 0x10FF) continue;
    const auto expected = static_cast<char32_t>(towupper_l(static_cast<wint_t>(character), locale));
    letters += expected != character;
    EXPECT_EQ(UpperCaseOf(character), expected) << std::hex << static_cast<unsigned>(character);
  }
  freelocale(locale);
  EXPECT_GT(letters, 1300);
}

TEST(UpperCase, LeavesUpperCaseAsItIs) {
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const std::u16string once = UpperCase(std::u16string(1, static_cast<char16_t>(unit)));
    ASSERT_EQ(once.size(), 1u) << std::hex << unit;
    ASSERT_EQ(UpperCase(once), once) << std::hex << unit;
  }
}

std::u16string Utf16Of(char32_t character) {
  if (character < 0x10000) return {static_cast<char16_t>(character)};
  const char32_t rest = character - 0x10000;
  return {static_cast<char16_t>(0xD800 + (rest >> 10)),
          static_cast<char16_t>(0xDC00 + (rest & 0x3FF))};
}

TEST(Utf8Conversion, RestoresEveryCharacter) {
  for (char32_t character = 0; character <= 0x10FFFF; ++character) {
    if (character == 0xD800) character = 0xE000;
    const std::u16string text = Utf16Of(character);
    const std::string bytes = ToUtf8(text);
    const std::size_t length = character < 0x80      ? 1
                               : character < 0x800   ? 2
                               : character < 0x10000 ? 3
                                                     : 4;
    ASSERT_EQ(bytes.size(), length) << std::hex << static_cast<unsigned>(character);
    ASSERT_EQ(FromUtf8(bytes), text) << std::hex << static_cast<unsigned>(character);
  }
}

TEST(Utf8Conversion, RestoresMixedTexts) {
  std::mt19937 random(20080101);
  for (int round = 0; round < 2000; ++round) {
    std::u16string text;
    for (auto length = random() % 20; length > 0; --length) {
      const auto limit = random() % 2 == 0 ? 0x250u : 0x110000u;
      auto character = static_cast<char32_t>(random() % limit);
      if (character >= 0xD800 && character <= 0xDFFF) character = u'料';
      text += Utf16Of(character);
    }
    ASSERT_EQ(FromUtf8(ToUtf8(text)), text);
  }
}

TEST(Utf8Conversion, KnowsTheStandardForms) {
  EXPECT_EQ(ToUtf8(u"A\u00e9\u7269\U00020000"), "A\xC3\xA9\xE7\x89\xA9\xF0\xA0\x80\x80");
}

TEST(Utf8Conversion, ReplacesALoneSurrogate) {
  EXPECT_EQ(ToUtf8(std::u16string{u'a', 0xD840}), "a\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(std::u16string{0xD840, u'a'}),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(ToUtf8(std::u16string{0xDC00, 0xD840}), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(std::u16string{0xD840, 0xD840, 0xDC00}), "\xEF\xBF\xBD\xF0\xA0\x80\x80");
}

struct BadBytesCase {
  const char* name;
  std::string given;
  std::u16string expected;
};
void PrintTo(const BadBytesCase& row, std::ostream* stream) { *stream << row.name; }

class BadUtf8 : public ::testing::TestWithParam<BadBytesCase> {};

TEST_P(BadUtf8, ReplacesEachBadByte) {
  EXPECT_EQ(Utf8(FromUtf8(GetParam().given)), Utf8(GetParam().expected));
}

INSTANTIATE_TEST_SUITE_P(
    Table, BadUtf8,
    ::testing::Values(BadBytesCase{"LoneContinuation", "a\x80z", u"a\uFFFDz"},
                      BadBytesCase{"CutShort", "\xE7\x89", u"\uFFFD\uFFFD"},
                      BadBytesCase{"CutByAscii", "\xE7\x89z", u"\uFFFD\uFFFDz"},
                      BadBytesCase{"OverlongTwo", "\xC0\xAF", u"\uFFFD\uFFFD"},
                      BadBytesCase{"OverlongThree", "\xE0\x80\xAF", u"\uFFFD\uFFFD\uFFFD"},
                      BadBytesCase{"OverlongFour", "\xF0\x80\x80\xAF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                      BadBytesCase{"Surrogate", "\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
                      BadBytesCase{"BeyondTheLast", "\xF4\x90\x80\x80",
                                   u"\uFFFD\uFFFD\uFFFD\uFFFD"},
                      BadBytesCase{"NeverAByte", "\xFF\xFE", u"\uFFFD\uFFFD"},
                      BadBytesCase{"GoodAfterBad", "\xC3\xE7\x89\xA9", u"\uFFFD物"}),
    CaseName<BadBytesCase>);

}  // namespace
}  // namespace pricedown::testing
