// The texts of a page in reading order.
#include "print/page_reading.h"

#include "tests/print/pages_fixture.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

PageText TextAt(std::u16string_view text, Tenths left, Tenths top) {
  PageText placed;
  placed.text = text;
  placed.anchor = left;
  placed.top = top;
  placed.clip = {left, top, 100, 50};
  return placed;
}

TEST(PageReading, JoinsWhatStandsSideBySideFromLeftToRight) {
  Page page;
  page.texts = {TextAt(u"第二", 200, 60), TextAt(u"右", 300, 10), TextAt(u"左", 100, 10)};
  EXPECT_EQ(ReadingLines(page), (std::vector<ReadingLine>{{u"左 右", {100, 10, 300, 50}},
                                                          {u"第二", {200, 60, 100, 50}}}));
  EXPECT_EQ(Utf8(ReadingText(ReadingLines(page))), "左 右\r\n第二");
}

TEST(PageReading, LeavesOutBlankTexts) {
  Page page;
  page.texts = {TextAt(u"  ", 100, 10), TextAt(u"", 100, 60), TextAt(u"甲", 200, 60)};
  ASSERT_EQ(ReadingLines(page).size(), 1u);
  EXPECT_EQ(Utf8(ReadingLines(page)[0].text), "甲");
  EXPECT_TRUE(ReadingLines(Page{}).empty());
  EXPECT_EQ(Utf8(ReadingText({})), "");
}

TEST_F(Pages, AreReadFromTheTitleToThePageNumber) {
  Rows({{u"001", u"六角头螺栓", u"M8×40", u""}, {u"002", u"冷轧钢板", u"", u"3.50"}});
  const Page page = Made().PageAt(1);
  const std::string text = Utf8(ReadingText(ReadingLines(page)));
  EXPECT_EQ(text,
            "物料类别维护-明细物料\r\n"
            "打印日期：2008-03-31\r\n"
            "物料代码 物料名称 规格型号 标准单价\r\n"
            "001 六角头螺栓 M8×40\r\n"
            "002 冷轧钢板 3.50\r\n"
            "第 1 页 共 1 页");
}

}  // namespace
}  // namespace pricedown::testing
