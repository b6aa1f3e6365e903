// The pages of whole ledgers, as draw commands.
#include "print/ledger_pages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/print/fake_measurer.h"
#include "tests/support/call_log.h"
#include "tests/support/case_name.h"

namespace pricedown::testing {
namespace {

constexpr LineFont kPlain{9, false, false};

// The item list's own header, footer and columns on A4; 45 rows fit on a page.
class Pages : public ::testing::Test {
 protected:
  Pages() {
    content_.SetHeaderLine(1, u"物料类别维护-明细物料", {20, true, true});
    content_.SetHeaderLine(2, std::u16string(30, u' '), kPlain);
    content_.SetHeaderLine(3, u"|打印日期：&[日期]", kPlain);
    content_.SetFooterLine(1, std::u16string(30, u' '), kPlain);
    content_.SetFooterLine(2, u"第 &[页] 页|共 &[总页] 页", kPlain);
    Columns({1800, 3000, 2700, 1800});
  }

  void Columns(const std::vector<std::int32_t>& twips) {
    content_.SetColumnCount(static_cast<std::int32_t>(twips.size()));
    for (std::size_t i = 0; i < twips.size(); ++i) {
      content_.SetColumnWidth(static_cast<std::int32_t>(i + 1), twips[i]);
    }
  }
  void Rows(const std::vector<std::u16string>& rows) {
    content_.SetRowCount(static_cast<std::int32_t>(rows.size()) + 1);
    content_.SetRow(1, u"物料代码|物料名称|规格型号|标准单价|");
    std::int32_t number = 1;
    for (const std::u16string& row : rows) content_.SetRow(++number, row);
  }
  // Rows R1, R2 and so on, in their first cell.
  void NumberedRows(std::int32_t count) {
    Rows(std::vector<std::u16string>(static_cast<std::size_t>(count)));
    for (std::int32_t row = 1; row <= count; ++row) {
      content_.SetRow(row + 1, u"R" + FromAscii(std::to_string(row)) + u"||||");
    }
  }
  static std::u16string FromAscii(const std::string& text) { return {text.begin(), text.end()}; }

  LedgerPages Made() { return {content_, setup_, measurer_}; }
  static std::string TextsOf(const LedgerPages& pages, std::int32_t number) {
    return ReadableLines(pages.PageAt(number).texts);
  }
  // Of the table's rows alone, without titles, header and footer.
  std::string RowTexts() { return ReadableLines(RowCommands(Made())); }
  static std::vector<PageText> RowCommands(const LedgerPages& pages) {
    std::vector<PageText> texts;
    for (const PageText& text : pages.PageAt(1).texts) {
      if (text.top >= 422 && text.top < 2600) texts.push_back(text);
    }
    return texts;
  }
  // First and last numbered row on a page.
  static std::string RowsOn(const LedgerPages& pages, std::int32_t number) {
    std::vector<std::string> rows;
    for (const PageText& text : pages.PageAt(number).texts) {
      if (text.text.starts_with(u'R')) rows.push_back(Utf8(text.text));
    }
    return rows.empty() ? "none" : rows.front() + " to " + rows.back();
  }

  LedgerContent content_;
  PrintSetup setup_{{u"宋体", 9, false, false, false}, 285, {}, u"2008-03-31"};
  FakeMeasurer measurer_;
};

const std::string kHeader = Lines(R"(
    text 1 centre 1050,200 in 200,200-1900,280 "物料类别维护-明细物料"
    text 0 right 1900,316 in 220,316-1900,352 "打印日期：2008-03-31"
    )");
const std::string kTitles = Lines(R"(
    text 0 centre 359,379 in 210,372-508,422 "物料代码"
    text 0 centre 782,379 in 528,372-1037,422 "物料名称"
    text 0 centre 1285,379 in 1057,372-1513,422 "规格型号"
    text 0 centre 1682,379 in 1533,372-1831,422 "标准单价"
    )");

TEST_F(Pages, OfAnEmptyGridHoldHeaderTitlesAndFooter) {
  Rows({});
  const LedgerPages pages = Made();
  EXPECT_EQ(pages.PageCount(), 1);
  EXPECT_FALSE(pages.IsTurned());
  EXPECT_EQ(TextsOf(pages, 1), kHeader + Lines(R"(
      text 0 left 200,2734 in 200,2734-1754,2770 "第 1 页"
      text 0 right 1900,2734 in 346,2734-1900,2770 "共 1 页"
      )") + kTitles);
  EXPECT_EQ(ReadableLines(pages.PageAt(1).rules), Lines(R"(
      rule 200,372-1841,372
      rule 200,422-1841,422
      rule 200,372-200,422
      rule 518,372-518,422
      rule 1047,372-1047,422
      rule 1523,372-1523,422
      rule 1841,372-1841,422
      )"));
}

TEST_F(Pages, NameTheFontsOfTableAndLinesOnce) {
  setup_.tableFont.name = u"楷体";
  const LedgerPages pages = Made();
  ASSERT_EQ(pages.Fonts().size(), 2u);
  EXPECT_EQ(pages.Fonts()[0], (PageFont{u"楷体", 9, false, false, false}));
  EXPECT_EQ(pages.Fonts()[1], (PageFont{u"楷体", 20, true, false, true}));
  setup_.tableFont.italic = true;
  const LedgerPages italic = Made();
  ASSERT_EQ(italic.Fonts().size(), 3u);
  EXPECT_EQ(italic.Fonts()[2], (PageFont{u"楷体", 9, false, false, false}));
}

TEST_F(Pages, OfOneRowShowItBelowTheTitles) {
  Rows({u"A.001|螺栓|M8|12.5|"});
  const LedgerPages pages = Made();
  EXPECT_EQ(pages.PageCount(), 1);
  EXPECT_EQ(RowTexts(), Lines(R"(
      text 0 left 210,429 in 210,422-508,472 "A.001"
      text 0 left 528,429 in 528,422-1037,472 "螺栓"
      text 0 left 1057,429 in 1057,422-1513,472 "M8"
      text 0 right 1831,429 in 1533,422-1831,472 "12.5"
      )"));
  EXPECT_EQ(ReadableLines(pages.PageAt(1).rules), Lines(R"(
      rule 200,372-1841,372
      rule 200,422-1841,422
      rule 200,472-1841,472
      rule 200,372-200,472
      rule 518,372-518,472
      rule 1047,372-1047,472
      rule 1523,372-1523,472
      rule 1841,372-1841,472
      )"));
}

struct CountCase {
  const char* name;
  std::int32_t rows;
  std::int32_t pages;
  const char* lastPage;
};
void PrintTo(const CountCase& count, std::ostream* stream) { *stream << count.name; }

class PagesOfManyRows : public Pages, public ::testing::WithParamInterface<CountCase> {};

TEST_P(PagesOfManyRows, HoldFortyFiveEach) {
  NumberedRows(GetParam().rows);
  const LedgerPages pages = Made();
  ASSERT_EQ(pages.PageCount(), GetParam().pages);
  EXPECT_EQ(RowsOn(pages, pages.PageCount()), GetParam().lastPage);
}

INSTANTIATE_TEST_SUITE_P(LedgerPages, PagesOfManyRows,
                         ::testing::Values(CountCase{"None", 0, 1, "none"},
                                           CountCase{"OneLessThanAPage", 44, 1, "R1 to R44"},
                                           CountCase{"APage", 45, 1, "R1 to R45"},
                                           CountCase{"OneMoreThanAPage", 46, 2, "R46 to R46"},
                                           CountCase{"TwoPages", 90, 2, "R46 to R90"},
                                           CountCase{"TenThousand", 10000, 223, "R9991 to R10000"}),
                         CaseName<CountCase>);

TEST_F(Pages, FollowEachOtherWithoutAGapAndRepeatTheTitles) {
  NumberedRows(10000);
  const LedgerPages pages = Made();
  std::int32_t next = 1;
  for (std::int32_t number = 1; number <= pages.PageCount(); ++number) {
    const std::string texts = TextsOf(pages, number);
    EXPECT_NE(texts.find(kTitles), std::string::npos) << number;
    EXPECT_NE(texts.find("\"第 " + std::to_string(number) + " 页\"\n"), std::string::npos);
    EXPECT_NE(texts.find("\"共 223 页\"\n"), std::string::npos);
    for (const PageText& text : pages.PageAt(number).texts) {
      if (text.text.starts_with(u'R')) {
        EXPECT_EQ(Utf8(text.text), "R" + std::to_string(next++));
      }
    }
  }
  EXPECT_EQ(next, 10001);
}

TEST_F(Pages, OfALastRowEndTheirRulesThere) {
  NumberedRows(46);
  EXPECT_EQ(ReadableLines(Made().PageAt(2).rules), Lines(R"(
      rule 200,372-1841,372
      rule 200,422-1841,422
      rule 200,472-1841,472
      rule 200,372-200,472
      rule 518,372-518,472
      rule 1047,372-1047,472
      rule 1523,372-1523,472
      rule 1841,372-1841,472
      )"));
}

TEST_F(Pages, MeasureOnlyWhatTheyShow) {
  NumberedRows(10000);
  const LedgerPages pages = Made();
  EXPECT_LE(measurer_.calls, 10);
  measurer_.calls = 0;
  pages.PageAt(200);
  EXPECT_LE(measurer_.calls, 60);
}

TEST_F(Pages, AreTurnedWhereTheColumnsDoNotFit) {
  Columns({3000, 3000, 3000, 3000});
  Rows({u"A|b|c|d|"});
  const LedgerPages pages = Made();
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

TEST_F(Pages, AreNotTurnedForColumnsThatJustFit) {
  Columns({9638});  // 1700.03 tenths
  EXPECT_FALSE(Made().IsTurned());
  Columns({9644});  // 1701.09
  EXPECT_TRUE(Made().IsTurned());
}

TEST_F(Pages, StayOnAPaperThatIsWideAlready) {
  setup_.paper = setup_.paper.Turned();
  Columns({30000, 30000});
  const LedgerPages pages = Made();
  EXPECT_FALSE(pages.IsTurned());
  EXPECT_EQ(pages.PrintedPaper(), setup_.paper);
}

TEST_F(Pages, NarrowColumnsThatFitOnNoPaper) {
  Columns({1800, 30000, 30000, 1800});
  Rows({u"A|b|c|d|"});
  const LedgerPages pages = Made();
  EXPECT_TRUE(pages.IsTurned());
  std::vector<Tenths> edges;
  for (const PageRule& rule : pages.PageAt(1).rules) {
    if (rule.left == rule.right) edges.push_back(rule.left);
  }
  EXPECT_EQ(edges, (std::vector<Tenths>{200, 518, 1485, 2452, 2770}));
}

TEST_F(Pages, ShowNothingOfAColumnWithoutWidth) {
  Columns({1800, 0, 2700, 10});
  Rows({u"A|hidden|c|hidden too|"});
  EXPECT_EQ(RowTexts(), Lines(R"(
      text 0 left 210,429 in 210,422-508,472 "A"
      text 0 left 528,429 in 528,422-984,472 "c"
      )"));
  Columns({0, 0, 0, 0});
  const LedgerPages pages = Made();
  EXPECT_EQ(pages.PageCount(), 1);
  EXPECT_EQ(ReadableLines(pages.PageAt(1).rules), "");
}

TEST_F(Pages, ShortenLongNamesToTheirColumn) {
  Rows({u"A|" + std::u16string(100000, u'长') + u"|" + std::u16string(5000, u'w') + u"|1|"});
  const std::vector<PageText> texts = RowCommands(Made());
  ASSERT_EQ(texts.size(), 4u);
  // 509 and 456 tenths of room, 36 of them for the ellipsis.
  EXPECT_EQ(Utf8(texts[1].text), "长长长长长长长长长长长长长…");
  EXPECT_EQ(Utf8(texts[2].text), std::string(23, 'w') + "…");
  for (std::size_t i = 0; i + 1 < texts.size(); ++i) {
    EXPECT_LE(texts[i].anchor + measurer_.Width(setup_.tableFont, texts[i].text),
              texts[i].clip.right);
    EXPECT_LT(texts[i].clip.right, texts[i + 1].clip.left);
  }
}

TEST_F(Pages, BeginANewCellAtASeparatorInsideAText) {
  Rows({u"A|bolt|nut|M8|12.5|", u"B|washer|M10|3|"});
  EXPECT_EQ(RowTexts(), Lines(R"(
      text 0 left 210,429 in 210,422-508,472 "A"
      text 0 left 528,429 in 528,422-1037,472 "bolt"
      text 0 left 1057,429 in 1057,422-1513,472 "nut"
      text 0 left 1533,429 in 1533,422-1831,472 "M8"
      text 0 left 210,479 in 210,472-508,522 "B"
      text 0 left 528,479 in 528,472-1037,522 "washer"
      text 0 left 1057,479 in 1057,472-1513,522 "M10"
      text 0 left 1533,479 in 1533,472-1831,522 "3"
      )"));
}

TEST_F(Pages, FillNoFieldsInsideTheTable) {
  Rows({u"&[页]|||"});
  EXPECT_EQ(RowTexts(), "text 0 left 210,429 in 210,422-508,472 \"&[页]\"\n");
}

TEST_F(Pages, LeaveTheEndOfAShortRowEmpty) {
  Rows({u"A", u""});
  EXPECT_EQ(RowTexts(), "text 0 left 210,429 in 210,422-508,472 \"A\"\n");
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
  setup_.tableFont.size = GetParam().fontSize;
  setup_.rowHeight = GetParam().twips;
  Rows({u"A|||"});
  const Page page = Made().PageAt(1);
  EXPECT_EQ(page.rules[1].top - page.rules[0].top, GetParam().rowHeight);
  EXPECT_EQ(page.rules[2].top - page.rules[1].top, GetParam().rowHeight);
}

INSTANTIATE_TEST_SUITE_P(LedgerPages, RowHeights,
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
    setup_.paper = paper;
    const LedgerPages pages = Made();
    EXPECT_EQ(pages.PageCount(), 3);
    const PageBox inside = pages.PrintedPaper().Inside();
    for (std::int32_t number = 1; number <= 3; ++number) {
      const Page page = pages.PageAt(number);
      for (const PageText& text : page.texts) {
        EXPECT_GE(text.clip.left, inside.left);
        EXPECT_LE(text.clip.right, inside.right);
        EXPECT_LE(text.clip.bottom, inside.bottom);
      }
      for (const PageRule& rule : page.rules) EXPECT_LE(rule.bottom, inside.bottom);
    }
  }
}

TEST_F(Pages, KeepTableAndFooterApart) {
  NumberedRows(1000);
  for (const double size : {9, 12, 20, 40, 100, 600}) {
    setup_.tableFont.size = size;
    const LedgerPages pages = Made();
    const Page page = pages.PageAt(1);
    for (const PageText& text : page.texts) {
      if (text.text.starts_with(u'R')) {
        EXPECT_LE(text.clip.bottom, 2678) << size;
      }
    }
    for (const PageRule& rule : page.rules) EXPECT_LE(rule.bottom, 2678) << size;
  }
}

TEST_F(Pages, OfNothingAreOneEmptyPage) {
  const LedgerContent nothing;
  const LedgerPages pages(nothing, setup_, measurer_);
  EXPECT_EQ(pages.PageCount(), 1);
  EXPECT_TRUE(pages.PageAt(1).rules.empty());
  EXPECT_TRUE(pages.PageAt(1).texts.empty());
}

TEST_F(Pages, BeginAtTheMarginWithoutHeader) {
  LedgerContent table;
  table.SetColumnCount(1);
  table.SetRowCount(100);
  const LedgerPages pages(table, setup_, measurer_);
  EXPECT_EQ(pages.PageAt(1).rules.front(), (PageRule{200, 200, 412, 200}));
  // (2770 - 200) / 50 rows less the titles.
  EXPECT_EQ(pages.PageCount(), 2);
  EXPECT_EQ(pages.PageAt(1).rules.size(), 51u + 1 + 2);
}

TEST_F(Pages, LetEachFailingMeasurementThrough) {
  NumberedRows(2);
  int calls = 1;
  for (int failing = 0; failing <= calls; ++failing) {
    measurer_.calls = 0;
    measurer_.failingCall = failing;
    const auto run = [&] { Made().PageAt(1); };
    if (failing == 0) {
      run();
      calls = measurer_.calls;
    } else {
      EXPECT_THROW(run(), AutomationError) << failing;
    }
  }
  EXPECT_GT(calls, 10);
}

}  // namespace
}  // namespace pricedown::testing
