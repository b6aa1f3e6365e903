// Columns, rows, paper and margins of pages.
#include "tests/print/pages_fixture.h"
#include "tests/support/call_log.h"
#include "tests/support/case_name.h"

namespace pricedown::testing {
namespace {

TEST_F(Pages, AreLandscapeWhereTheColumnsDoNotFit) {
  Columns({3000, 3000, 3000, 3000});
  Rows({{u"A", u"b", u"c", u"d"}});
  const PrintPages pages = Made();
  EXPECT_TRUE(pages.IsTurned());
  EXPECT_EQ(pages.PrintedPaper(), (Paper{2970, 2100, {200, 200, 200, 200}}));
  EXPECT_EQ(ReadableLines(pages.PageAt(1).rules), Lines(R"(
      rule 200,372-2316,372
      rule 200,422-2316,422
      rule 200,472-2316,472
      rule 200,372-200,472
      rule 729,372-729,472
      rule 1258,372-1258,472
      rule 1787,372-1787,472
      rule 2316,372-2316,472
      )"));
  EXPECT_NE(TextsOf(pages, 1).find("text 0 left 200,1864 in 200,1864-2624,1900"),
            std::string::npos);
}

TEST_F(Pages, ArePortraitForColumnsThatJustFit) {
  Columns({9638});  // 1700.03 tenths
  EXPECT_FALSE(Made().IsTurned());
  Columns({9644});  // 1701.09
  EXPECT_TRUE(Made().IsTurned());
}

TEST_F(Pages, StayOnAPaperThatIsWideAlready) {
  paper_ = paper_.Turned();
  Columns({30000, 30000});
  const PrintPages pages = Made();
  EXPECT_FALSE(pages.IsTurned());
  EXPECT_EQ(pages.PrintedPaper(), paper_);
}

TEST_F(Pages, NarrowColumnsThatFitOnNoPaper) {
  Columns({1800, 30000, 30000, 1800});
  Rows({{u"A", u"b", u"c", u"d"}});
  const PrintPages pages = Made();
  EXPECT_TRUE(pages.IsTurned());
  std::vector<Tenths> edges;
  for (const PageRule& rule : pages.PageAt(1).rules) {
    if (rule.left == rule.right) edges.push_back(rule.left);
  }
  EXPECT_EQ(edges, (std::vector<Tenths>{200, 518, 1485, 2452, 2770}));
}

TEST_F(Pages, ShowNothingOfAColumnWithoutWidth) {
  Columns({1800, 0, 2700, 10});
  Rows({{u"A", u"hidden", u"c", u"hidden too"}});
  EXPECT_EQ(RowTexts(), Lines(R"(
      text 0 left 210,429 in 210,422-508,472 "A"
      text 0 left 528,429 in 528,422-984,472 "c"
      )"));
  Columns({0, 0, 0, 0});
  const PrintPages pages = Made();
  EXPECT_EQ(pages.PageCount(), 1);
  EXPECT_EQ(ReadableLines(pages.PageAt(1).rules), "");
}

TEST_F(Pages, ShortenLongNamesToTheirColumn) {
  Rows({{u"A", std::u16string(100000, u'长'), std::u16string(5000, u'w'), u"1"}});
  const Page page = Made().PageAt(1);
  const std::vector<PageText> texts = RowCommands(page);
  ASSERT_EQ(texts.size(), 4u);
  // 509 and 456 tenths wide, 36 of them for the ellipsis.
  EXPECT_EQ(Utf8(texts[1].text), "长长长长长长长长长长长长长…");
  EXPECT_EQ(Utf8(texts[2].text), std::string(23, 'w') + "…");
  for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
    EXPECT_LE(texts[i].anchor + measurer_.Width(document_.font, texts[i].text),
              texts[i].clip.Right());
    EXPECT_LT(texts[i].clip.Right(), texts[i + 1].clip.left);
  }
}

struct HeightCase {
  const char* name;
  double fontSize;
  std::int32_t twips;
  Tenths rowHeight;
};
void PrintTo(const HeightCase& height, std::ostream* stream) { *stream << height.name; }

class RowHeights : public Pages, public ::testing::WithParamInterface<HeightCase> {};

TEST_P(RowHeights, AreAtLeastThoseOfTheFont) {
  document_.font.size = GetParam().fontSize;
  document_.rowHeight = GetParam().twips;
  Rows({{u"A", u"", u"", u""}});
  const Page page = Made().PageAt(1);
  EXPECT_EQ(page.rules[1].top - page.rules[0].top, GetParam().rowHeight);
  EXPECT_EQ(page.rules[2].top - page.rules[1].top, GetParam().rowHeight);
}

INSTANTIATE_TEST_SUITE_P(PrintPages, RowHeights,
                         ::testing::Values(HeightCase{"Floor", 9, 285, 50},
                                           HeightCase{"Higher", 9, 720, 127},
                                           HeightCase{"LargeFont", 18, 285, 82},
                                           HeightCase{"NoHeight", 9, 0, 46},
                                           HeightCase{"Negative", 9, -100, 46}),
                         CaseName<HeightCase>);

TEST_F(Pages, StayInsideThePaperHoweverSmallItIs) {
  NumberedRows(3);
  for (const Paper& paper :
       {Paper{600, 500, {200, 200, 200, 200}}, Paper{300, 300, {200, 200, 200, 200}},
        Paper{0, 0, {}}, Paper{2100, 800, {200, 200, 200, 200}}}) {
    paper_ = paper;
    const PrintPages pages = Made();
    EXPECT_EQ(pages.PageCount(), 3);
    const Rectangle inside = pages.PrintedPaper().Inside();
    for (std::int32_t number = 1; number <= 3; ++number) {
      const Page page = pages.PageAt(number);
      for (const PageText& text : page.texts) {
        EXPECT_GE(text.clip.left, inside.left);
        EXPECT_LE(text.clip.Right(), inside.Right());
        EXPECT_LE(text.clip.Bottom(), inside.Bottom());
      }
      for (const PageRule& rule : page.rules) EXPECT_LE(rule.bottom, inside.Bottom());
    }
  }
}

TEST_F(Pages, KeepTableAndFooterApart) {
  NumberedRows(1000);
  for (const double size : {9, 12, 20, 40, 100, 600}) {
    document_.font.size = size;
    const PrintPages pages = Made();
    const Page page = pages.PageAt(1);
    for (const PageText& text : page.texts) {
      if (text.text.starts_with(u'R')) {
        EXPECT_LE(text.clip.Bottom(), 2678) << size;
      }
    }
    for (const PageRule& rule : page.rules) EXPECT_LE(rule.bottom, 2678) << size;
  }
}

}  // namespace
}  // namespace pricedown::testing
