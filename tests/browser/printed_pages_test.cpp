// From the item grid to pages, by the print commands.
#include <gtest/gtest.h>

#include "browser/display_font.h"
#include "browser/print_commands.h"
#include "tests/browser/browser_fixture.h"
#include "tests/browser/page_keeper.h"
#include "tests/browser/recording_output.h"

namespace pricedown::testing {
namespace {

class PrintedPages : public BrowserFixture {
 protected:
  PrintedPages() {
    AnswerTitleFont(factory_, Reply::From([this](auto) { return titleName_; }),
                    Reply::From([this](auto) { return titleCharset_; }));
    grid_.Prepare();
  }

  void Rows(std::int32_t count) {
    Grid& cells = grid_.GetGrid();
    cells.SetMaxRows(count);
    for (std::int32_t row = 1; row <= count; ++row) {
      cells.SetText(1, row, u"01.001");
      cells.SetText(2, row, u"螺栓");
      cells.SetText(4, row, u"12.5");
    }
  }

  Value titleName_ = Null{};
  Value titleCharset_ = Null{};
  PrintDocument document_;
  PageKeeper output_;
  RecordingFontView fontView_{factory_.GetRecorder()};
  DisplayFont font_{environment_, document_, grid_.GetGrid(), fontView_};
  PrintCommands commands_{environment_, grid_.GetGrid(), document_, output_, font_};
};

TEST_F(PrintedPages, ShowsTheGridOnPaper) {
  Rows(1);
  commands_.Preview();
  EXPECT_EQ(output_.pageCount, 1);
  EXPECT_EQ(ReadableLines(output_.firstPage.texts), Lines(R"(
      text 1 centre 1050,200 in 200,200-1900,280 "物料类别维护-明细物料"
      text 0 right 1900,316 in 220,316-1900,352 "打印日期：2008-03-31"
      text 0 left 200,2734 in 200,2734-1754,2770 "第 1 页"
      text 0 right 1900,2734 in 346,2734-1900,2770 "共 1 页"
      text 0 centre 359,379 in 210,372-508,422 "物料代码"
      text 0 centre 782,379 in 528,372-1037,422 "物料名称"
      text 0 centre 1285,379 in 1057,372-1513,422 "规格型号"
      text 0 centre 1682,379 in 1533,372-1831,422 "标准单价"
      text 0 left 210,429 in 210,422-508,472 "01.001"
      text 0 left 528,429 in 528,422-1037,472 "螺栓"
      text 0 right 1831,429 in 1533,422-1831,472 "12.5"
      )"));
}

TEST_F(PrintedPages, HoldsOnlyTheRowsOfTheLastFill) {
  Rows(100);
  commands_.Print();
  EXPECT_EQ(output_.pageCount, 3);
  Rows(1);
  commands_.Print();
  EXPECT_EQ(output_.pageCount, 1);
  Rows(0);
  commands_.Print();
  EXPECT_EQ(output_.pageCount, 1);
  // Header, footer and titles.
  EXPECT_EQ(output_.firstPage.texts.size(), 8u);
}

TEST_F(PrintedPages, PrintsInTheDisplayFont) {
  document_.font = {u"楷体", 12, true, true};
  commands_.Print();
  EXPECT_EQ(output_.fonts[0], (Font{u"楷体", 12, true, true, false}));
}

TEST_F(PrintedPages, SetsHeaderAndFooterInTheSuitesTitleFont) {
  document_.font = {u"楷体", 12, true, true};
  titleName_ = u"新細明體";
  titleCharset_ = 136;
  commands_.Print();
  EXPECT_EQ(output_.fonts[1], (Font{u"新細明體", 20, true, false, true, 136}));
  EXPECT_EQ(output_.fonts[2], (Font{u"新細明體", 9, false, false, false, 136}));
}

TEST_F(PrintedPages, SetsHeaderAndFooterInSongWhenTheSuiteHasNoFont) {
  document_.font = {u"楷体", 12, true, true};
  commands_.Print();
  EXPECT_EQ(output_.fonts[1], (Font{u"宋体", 20, true, false, true}));
  EXPECT_EQ(output_.fonts[2], (Font{u"宋体", 9, false, false, false}));
}

TEST_F(PrintedPages, KeepsTheCharacterSetOfATitleWithoutAFontName) {
  titleName_ = u"";
  titleCharset_ = 136;
  commands_.Print();
  EXPECT_EQ(output_.fonts[1], (Font{u"宋体", 20, true, false, true, 136}));
}

TEST_F(PrintedPages, ReportsATextThatCannotBeMeasured) {
  output_.measurer.failingCall = 3;
  commands_.Preview();
  EXPECT_EQ(log_.Text(),
            ReadingTitleFont() + "message information \"岚禾提示\": \"measuring failed\"\n");
}

struct PaperSizeCase {
  const char* name;
  Value reportSize;
  double fontSize;
  Tenths rowHeight;
};
void PrintTo(const PaperSizeCase& size, std::ostream* stream) { *stream << size.name; }

class ReportSizeOnPaper : public PrintedPages,
                          public ::testing::WithParamInterface<PaperSizeCase> {};

TEST_P(ReportSizeOnPaper, CountsFromNineToEighteen) {
  factory_.Object(u"ZEPEBCBASE.UserProfile")
      .On(u"Load", Value())
      .On(u"Dictionary", factory_.Answering(u"dictionary"));
  factory_.Object(u"dictionary")
      .On(u"GetValue", R"("GridFont", "")", u"")
      .On(u"GetValue", R"("RptFontSize", 9)", GetParam().reportSize);
  // 480 twips with its margin are 84.7 tenths; the floor of 285 is 50.
  fontView_.labelHeight = 450;
  font_.Refresh();
  commands_.Print();
  EXPECT_EQ(output_.fonts[0].size, GetParam().fontSize);
  EXPECT_EQ(output_.RowHeight(), GetParam().rowHeight);
}

INSTANTIATE_TEST_SUITE_P(PrintedPages, ReportSizeOnPaper,
                         ::testing::Values(PaperSizeCase{"Eight", u"8", 9, 50},
                                           PaperSizeCase{"Nine", u"9", 9, 85},
                                           PaperSizeCase{"Eighteen", u"18", 18, 85},
                                           PaperSizeCase{"Twenty", u"20", 9, 50}),
                         [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace pricedown::testing
