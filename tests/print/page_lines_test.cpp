// Header and footer lines: fields and sections.
#include "print/page_lines.h"

#include <gtest/gtest.h>

#include "tests/print/fake_measurer.h"
#include "tests/support/call_log.h"

namespace pricedown::testing {
namespace {

class PageLines : public ::testing::Test {
 protected:
  // The line on a box of 1000 tenths, or up to `right`, in size 10: 20 and 40 wide.
  std::string Placed(std::u16string_view text, Tenths right = 1100) {
    Page page;
    PlaceLine(text, fields_, measurer_, {u"宋体", 10}, 3, {100, 50, right - 100, 40}, page);
    return ReadableLines(page.texts);
  }

  FakeMeasurer measurer_;
  PageFields fields_{u"2008-03-31", 2, 15};
};

TEST_F(PageLines, FillsItsFields) {
  EXPECT_EQ(Utf8(FillFields(u"打印日期：&[日期]", fields_)), "打印日期：2008-03-31");
  EXPECT_EQ(Utf8(FillFields(u"第 &[页] 页", fields_)), "第 2 页");
  EXPECT_EQ(Utf8(FillFields(u"&[页]/&[总页]&[页]", fields_)), "2/152");
}

TEST_F(PageLines, LeavesOtherTextsInBracketsAsTheyAre) {
  EXPECT_EQ(Utf8(FillFields(u"&[时间]&[页&&[页]]&", fields_)), "&[时间]&[页&2]&");
}

TEST_F(PageLines, FillsNoFieldInsideAFieldsValue) {
  fields_.date = u"&[页]|x";
  EXPECT_EQ(Placed(u"&[日期]"), "text 3 centre 600,50 in 100,50-1100,90 \"&[页]|x\"\n");
}

TEST_F(PageLines, PutsOneSectionInTheMiddle) {
  EXPECT_EQ(Placed(u"title"), "text 3 centre 600,50 in 100,50-1100,90 \"title\"\n");
}

TEST_F(PageLines, PutsTwoSectionsLeftAndRight) {
  EXPECT_EQ(Placed(u"第 &[页] 页|共 &[总页] 页"), Lines(R"(
      text 3 left 100,50 in 100,50-920,90 "第 2 页"
      text 3 right 1100,50 in 260,50-1100,90 "共 15 页"
      )"));
}

TEST_F(PageLines, PutsThreeSectionsLeftMiddleAndRight) {
  EXPECT_EQ(Placed(u"a|b|c"), Lines(R"(
      text 3 left 100,50 in 100,50-433,90 "a"
      text 3 centre 599,50 in 433,50-766,90 "b"
      text 3 right 1100,50 in 766,50-1100,90 "c"
      )"));
}

TEST_F(PageLines, DrawsNothingForEmptyAndBlankSections) {
  EXPECT_EQ(Placed(u""), "");
  EXPECT_EQ(Placed(std::u16string(30, u' ')), "");
  EXPECT_EQ(Placed(u"|b"), "text 3 right 1100,50 in 120,50-1100,90 \"b\"\n");
  EXPECT_EQ(Placed(u"a|"), "text 3 left 100,50 in 100,50-1080,90 \"a\"\n");
  EXPECT_EQ(Placed(u"||"), "");
}

TEST_F(PageLines, ShortensTheWiderOfTwoSectionsThatWouldMeet) {
  const std::u16string wide(60, u'w');
  EXPECT_EQ(Placed(wide + u"|right"), "text 3 left 100,50 in 100,50-980,90 \"" +
                                          std::string(42, 'w') +
                                          "…\"\n"
                                          "text 3 right 1100,50 in 1000,50-1100,90 \"right\"\n");
  EXPECT_EQ(Placed(u"left|" + wide),
            "text 3 left 100,50 in 100,50-180,90 \"left\"\n"
            "text 3 right 1100,50 in 200,50-1100,90 \"" +
                std::string(43, 'w') + "…\"\n");
  EXPECT_EQ(Placed(wide + u"|" + wide), "text 3 left 100,50 in 100,50-590,90 \"" +
                                            std::string(22, 'w') +
                                            "…\"\n"
                                            "text 3 right 1100,50 in 610,50-1100,90 \"" +
                                            std::string(22, 'w') + "…\"\n");
}

TEST_F(PageLines, DropsASectionTooNarrowForAnEllipsis) {
  EXPECT_EQ(Placed(u"wide|b|wide", 190), "text 3 centre 145,50 in 130,50-160,90 \"b\"\n");
}

TEST_F(PageLines, ShortensAMiddleSectionThatIsTooWide) {
  EXPECT_EQ(Placed(std::u16string(51, u'w')),
            "text 3 centre 600,50 in 100,50-1100,90 \"" + std::string(48, 'w') + "…\"\n");
}

}  // namespace
}  // namespace pricedown::testing
