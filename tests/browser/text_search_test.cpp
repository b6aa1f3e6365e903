// Finding texts: what matches, the order of the hits, and their count.
#include "browser/text_search.h"

#include <gtest/gtest.h>

#include <vector>

#include "browser/searched_rows.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

TEST(TextPattern, MatchesLatinLettersInEitherCaseAndFullWidthForms) {
  EXPECT_TRUE(TextPattern(u"bolt").IsIn(u"Hex BOLT M8"));
  EXPECT_TRUE(TextPattern(u"ＢＯＬＴ").IsIn(u"hex bolt"));
  EXPECT_TRUE(TextPattern(u"m8").IsIn(u"螺栓Ｍ８"));
  EXPECT_TRUE(TextPattern(u"ｍ８").IsIn(u"螺栓M8"));
  EXPECT_TRUE(TextPattern(u"螺栓").IsIn(u"六角头螺栓"));
  EXPECT_TRUE(TextPattern(u"a!").IsIn(u"Ａ！")) << "the first full-width sign";
  EXPECT_TRUE(TextPattern(u"a~").IsIn(u"Ａ～")) << "the last one";
  EXPECT_FALSE(TextPattern(u"螺母").IsIn(u"六角头螺栓"));
  EXPECT_FALSE(TextPattern(u"m80").IsIn(u"M8"));
  EXPECT_FALSE(TextPattern(u"@").IsIn(u"`")) << "no letters";
}

TEST(TextPattern, FindsAnOverlappingRepetition) {
  EXPECT_TRUE(TextPattern(u"aab").IsIn(u"aaab"));
  EXPECT_TRUE(TextPattern(u"001").IsIn(u"0001"));
}

TEST(TextPattern, IsFoundAtEveryPlaceOfATextOfAnyLength) {
  for (const std::u16string_view found : {u"ｂ", u"bx", u"bxyz012345"}) {
    const TextPattern pattern(found);
    for (std::size_t before = 0; before < 20; ++before) {
      for (std::size_t after = 0; after < 20; ++after) {
        // Beginnings around it that do not go on.
        const std::u16string text = std::u16string(before, u'B') + std::u16string(found) +
                                    std::u16string(after, found.size() > 1 ? u'Ｂ' : u'-');
        EXPECT_TRUE(pattern.IsIn(text)) << before << " " << after;
        const std::u16string cut =
            text.substr(found.size() > 1 ? 0 : before + 1, before + found.size() - 1);
        EXPECT_FALSE(pattern.IsIn(cut)) << before << " " << after;
      }
    }
  }
}

TEST(TextPattern, BeginsATextOnlyAtItsStart) {
  EXPECT_TRUE(TextPattern(u"01.").Begins(u"01.02"));
  EXPECT_FALSE(TextPattern(u"02").Begins(u"01.02"));
  EXPECT_FALSE(TextPattern(u"01.02.3").Begins(u"01.02"));
}

TEST(TextPattern, MatchesNothingWhenEmpty) {
  EXPECT_FALSE(TextPattern(u"").IsIn(u"a"));
  EXPECT_FALSE(TextPattern(u"").Begins(u"a"));
  EXPECT_FALSE(TextPattern(u"a").IsIn(u""));
}

class ListedRows final : public SearchedRows {
 public:
  std::vector<std::u16string> texts;
  std::int32_t Rows() const override { return static_cast<std::int32_t>(texts.size()); }
  std::int32_t Match(std::int32_t row, const TextPattern& pattern) const override {
    ++asked;
    return pattern.IsIn(texts[static_cast<std::size_t>(row) - 1]) ? 1 : 0;
  }
  mutable int asked = 0;
};

class TextSearchTest : public ::testing::TestWithParam<bool> {
 protected:
  // The rows of the next hits, each found from the one before.
  std::vector<std::int32_t> Next(std::int32_t row, bool backwards, int count) {
    std::vector<std::int32_t> rows;
    for (int i = 0; i < count; ++i) {
      const auto hit = search_.Next(row, backwards);
      row = hit ? hit->row : 0;
      rows.push_back(row);
    }
    return rows;
  }
  // Hits in rows 2 and 5; counted or not, by the parameter.
  void StartSearch(std::u16string_view text) {
    rows_.texts = {u"甲", u"乙1", u"丙", u"丁", u"戊1", u"己"};
    search_.Start(rows_, text);
    if (GetParam()) search_.ContinueCounting(100);
  }

  ListedRows rows_;
  TextSearch search_;
};

TEST_P(TextSearchTest, GoesFromHitToHitAndAroundTheEnds) {
  StartSearch(u"1");
  EXPECT_EQ(Next(0, false, 4), (std::vector<std::int32_t>{2, 5, 2, 5}));
  EXPECT_EQ(Next(2, false, 1), (std::vector<std::int32_t>{5}));
  EXPECT_EQ(Next(6, true, 4), (std::vector<std::int32_t>{5, 2, 5, 2}));
  EXPECT_EQ(Next(1, true, 1), (std::vector<std::int32_t>{5}));
  EXPECT_EQ(Next(-7, false, 1), (std::vector<std::int32_t>{2}));
  EXPECT_EQ(Next(99, true, 1), (std::vector<std::int32_t>{5}));
}

TEST_P(TextSearchTest, ComesBackToTheOnlyHit) {
  StartSearch(u"丙");
  EXPECT_EQ(Next(3, false, 2), (std::vector<std::int32_t>{3, 3}));
  EXPECT_EQ(Next(3, true, 2), (std::vector<std::int32_t>{3, 3}));
}

TEST_P(TextSearchTest, FindsNothingWhereNothingIs) {
  StartSearch(u"9");
  EXPECT_FALSE(search_.Next(1, false));
  EXPECT_FALSE(search_.Next(1, true));
  StartSearch(u"");
  EXPECT_FALSE(search_.Next(1, false));
  EXPECT_TRUE(search_.IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Search, TextSearchTest, ::testing::Bool(),
                         [](const auto& tested) { return tested.param ? "Counted" : "Uncounted"; });

TEST(TextSearch, LooksNoFurtherThanTheFirstHit) {
  ListedRows rows;
  rows.texts.assign(1000, u"x");
  rows.texts[9] = u"hit";
  TextSearch search;
  search.Start(rows, u"hit");
  ASSERT_EQ(search.Next(0, false)->row, 10);
  EXPECT_EQ(rows.asked, 10);
}

TEST(TextSearch, CountsAPartAtATime) {
  ListedRows rows;
  rows.texts = {u"a", u"b", u"a", u"a", u"b"};
  TextSearch search;
  search.Start(rows, u"a");
  EXPECT_EQ(Utf8(search.CountText(3)), "– / 0+") << "the user may be at a hit";
  search.ContinueCounting(2);
  EXPECT_FALSE(search.IsCounted());
  EXPECT_EQ(Utf8(search.CountText(1)), "1 / 1+");
  EXPECT_EQ(Utf8(search.CountText(3)), "– / 1+") << "not counted as far as that";
  search.ContinueCounting(100);
  EXPECT_TRUE(search.IsCounted());
  EXPECT_EQ(Utf8(search.CountText(3)), "2 / 3");
  EXPECT_EQ(Utf8(search.CountText(5)), "– / 3") << "the user is elsewhere";
  const int asked = rows.asked;
  search.ContinueCounting(100);
  EXPECT_EQ(rows.asked, asked);
}

TEST(TextSearch, FindsNoHitThatIsGoneSinceItWasCounted) {
  ListedRows rows;
  rows.texts = {u"a", u"b", u"a"};
  TextSearch search;
  search.Start(rows, u"a");
  search.ContinueCounting(100);
  rows.texts = {u"b", u"b", u"b"};
  EXPECT_EQ(search.Next(1, false), std::nullopt);
  EXPECT_EQ(search.Next(2, true), std::nullopt);
}

TEST(SearchedClasses, HaveNothingInRowsThatAreGone) {
  NodeCollection nodes;
  nodes.Add({}, u"物料");
  nodes.Add(NodeId::OfClass(u"01"), u"01(原料)");
  const SearchedClasses classes(nodes);
  EXPECT_EQ(classes.Match(2, TextPattern(u"原")), 1);
  nodes.RemoveLast();
  EXPECT_EQ(classes.Match(2, TextPattern(u"原")), 0);
  nodes.Clear();
  EXPECT_EQ(classes.Match(3, TextPattern(u"原")), 0);
}

TEST(TextSearch, ShowsNoCountWithoutATextAndZeroWithoutAHit) {
  ListedRows rows;
  rows.texts = {u"a"};
  TextSearch search;
  EXPECT_EQ(Utf8(search.CountText(1)), "");
  search.Start(rows, u"z");
  search.ContinueCounting(1);
  EXPECT_EQ(Utf8(search.CountText(1)), "0 / 0");
}

}  // namespace
}  // namespace pricedown::testing
