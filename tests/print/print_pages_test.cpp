// The pages of whole documents, as draw commands.
#include "tests/print/pages_fixture.h"
#include "tests/support/call_log.h"
#include "tests/support/case_name.h"

namespace pricedown::testing {
namespace {

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

const std::string kRulesOfOneRow = Lines(R"(
    rule 200,372-1841,372
    rule 200,422-1841,422
    rule 200,472-1841,472
    rule 200,372-200,472
    rule 518,372-518,472
    rule 1047,372-1047,472
    rule 1523,372-1523,472
    rule 1841,372-1841,472
    )");

TEST_F(Pages, OfAnEmptyGridHoldHeaderTitlesAndFooter) {
  Rows({});
  const PrintPages pages = Made();
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
  document_.font = {u"楷体", 12, true, true};
  const PrintPages pages = Made();
  ASSERT_EQ(pages.Fonts().size(), 3u);
  EXPECT_EQ(pages.Fonts()[0], document_.font);
  EXPECT_EQ(pages.Fonts()[1], document_.header[0].font);
  EXPECT_EQ(pages.Fonts()[2], document_.header[1].font);
  document_.font = {};
  EXPECT_EQ(Made().Fonts().size(), 2u);
}

TEST_F(Pages, KeepLinesApartThatDifferInTheirUnderlineAlone) {
  document_.footer[0] = {u"x", {u"宋体", 9, false, false, true}};
  const PrintPages pages = Made();
  ASSERT_EQ(pages.Fonts().size(), 3u);
  EXPECT_FALSE(pages.Fonts()[0].underlined);
  EXPECT_TRUE(pages.Fonts()[2].underlined);
}

TEST_F(Pages, OfOneRowShowItBelowTheTitles) {
  Rows({{u"A.001", u"螺栓", u"M8", u"12.5"}});
  const PrintPages pages = Made();
  EXPECT_EQ(pages.PageCount(), 1);
  EXPECT_EQ(RowTexts(), Lines(R"(
      text 0 left 210,429 in 210,422-508,472 "A.001"
      text 0 left 528,429 in 528,422-1037,472 "螺栓"
      text 0 left 1057,429 in 1057,422-1513,472 "M8"
      text 0 right 1831,429 in 1533,422-1831,472 "12.5"
      )"));
  EXPECT_EQ(ReadableLines(pages.PageAt(1).rules), kRulesOfOneRow);
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
  const PrintPages pages = Made();
  ASSERT_EQ(pages.PageCount(), GetParam().pages);
  EXPECT_EQ(RowsOn(pages, pages.PageCount()), GetParam().lastPage);
}

INSTANTIATE_TEST_SUITE_P(PrintPages, PagesOfManyRows,
                         ::testing::Values(CountCase{"None", 0, 1, "none"},
                                           CountCase{"OneLessThanAPage", 44, 1, "R1 to R44"},
                                           CountCase{"APage", 45, 1, "R1 to R45"},
                                           CountCase{"OneMoreThanAPage", 46, 2, "R46 to R46"},
                                           CountCase{"TwoPages", 90, 2, "R46 to R90"},
                                           CountCase{"TenThousand", 10000, 223, "R9991 to R10000"}),
                         CaseName<CountCase>);

TEST_F(Pages, FollowEachOtherWithoutAGapAndRepeatTheTitles) {
  NumberedRows(10000);
  const PrintPages pages = Made();
  std::int32_t next = 1;
  for (std::int32_t number = 1; number <= pages.PageCount(); ++number) {
    const std::string texts = TextsOf(pages, number);
    EXPECT_NE(texts.find(kTitles), std::string::npos) << number;
    EXPECT_NE(texts.find("\"第 " + std::to_string(number) + " 页\"\n"), std::string::npos);
    EXPECT_NE(texts.find("\"共 223 页\"\n"), std::string::npos);
    const Page page = pages.PageAt(number);
    for (const PageText& text : page.texts) {
      if (text.text.starts_with(u'R')) {
        EXPECT_EQ(Utf8(text.text), "R" + std::to_string(next++));
      }
    }
  }
  EXPECT_EQ(next, 10001);
}

TEST_F(Pages, OfALastRowEndTheirRulesThere) {
  NumberedRows(46);
  EXPECT_EQ(ReadableLines(Made().PageAt(2).rules), kRulesOfOneRow);
}

TEST_F(Pages, MeasureOnlyWhatTheyShow) {
  NumberedRows(10000);
  const PrintPages pages = Made();
  EXPECT_LE(measurer_.calls, 10);
  measurer_.calls = 0;
  pages.PageAt(200);
  EXPECT_LE(measurer_.calls, 60);
}

TEST_F(Pages, KeepABarInsideATextInItsCell) {
  Rows({{u"A", u"bolt|nut", u"M8", u"12.5"}});
  EXPECT_EQ(RowTexts(), Lines(R"(
      text 0 left 210,429 in 210,422-508,472 "A"
      text 0 left 528,429 in 528,422-1037,472 "bolt|nut"
      text 0 left 1057,429 in 1057,422-1513,472 "M8"
      text 0 right 1831,429 in 1533,422-1831,472 "12.5"
      )"));
}

TEST_F(Pages, FillNoFieldsInsideTheTable) {
  Rows({{u"&[页]", u"", u"", u""}});
  EXPECT_EQ(RowTexts(), "text 0 left 210,429 in 210,422-508,472 \"&[页]\"\n");
}

TEST_F(Pages, OfNothingAreOneEmptyPage) {
  document_ = {};
  const PrintPages pages = Made();
  EXPECT_EQ(pages.PageCount(), 1);
  EXPECT_TRUE(pages.PageAt(1).rules.empty());
  EXPECT_TRUE(pages.PageAt(1).texts.empty());
}

TEST_F(Pages, BeginAtTheMarginWithoutHeader) {
  document_ = {};
  document_.table.AddColumn(u"", 1200);
  for (int row = 0; row < 99; ++row) document_.table.AddCell(u"");
  const PrintPages pages = Made();
  EXPECT_EQ(pages.PageAt(1).rules.front(), (PageRule{200, 200, 412, 200}));
  // (2770 - 200) / 50 rows less the titles.
  EXPECT_EQ(pages.PageCount(), 2);
  EXPECT_EQ(pages.PageAt(1).rules.size(), 51u + 1 + 2);
}

TEST_F(Pages, StayValidWhenAPageMoves) {
  Rows({{u"A\tB", std::u16string(100, u'w'), u"", u""}});
  Page page = Made().PageAt(1);
  const std::string texts = ReadableLines(page.texts);
  const Page moved = std::move(page);
  EXPECT_EQ(ReadableLines(moved.texts), texts);
  EXPECT_NE(texts.find("A B"), std::string::npos);
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
