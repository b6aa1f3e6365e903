// The calls that fill the ledger.
#include "browser/print_table.h"

#include <gtest/gtest.h>

#include "browser/item_grid.h"
#include "tests/browser/browser_fixture.h"
#include "tests/browser/recording_ledger.h"

namespace pricedown::testing {
namespace {

class PrintTableTest : public BrowserFixture {
 protected:
  PrintTableTest() { grid_.Prepare(); }

  Grid& Cells() { return grid_.Cells(); }
  void Row(std::int32_t row, const std::vector<std::u16string_view>& texts) {
    if (Cells().MaxRows() < row) Cells().SetMaxRows(row);
    for (std::size_t i = 0; i < texts.size(); ++i) {
      Cells().SetText(static_cast<std::int32_t>(i + 1), row, texts[i]);
    }
  }
  std::string Filled() {
    log_.Clear();
    FillPrintTable(Cells(), ledger_);
    return log_.Text();
  }

  RecordingLedger ledger_{factory_.GetRecorder()};
};

TEST_F(PrintTableTest, IsFilledInTheLedgersOrder) {
  Row(1, {u"01.001", u"螺栓", u"M8", u"12.5"});
  Row(2, {u"01.002", u"螺母", u"", u""});
  EXPECT_EQ(Filled(), Lines(R"(
      ledger clear
      ledger rows 3
      ledger columns 4
      ledger format 1 0
      ledger format 2 0
      ledger format 3 0
      ledger format 4 0
      ledger width 1 1800
      ledger width 2 3000
      ledger width 3 2700
      ledger width 4 1800
      ledger refresh
      ledger row 2 "01.001|螺栓|M8|12.5|"
      ledger refresh
      ledger row 3 "01.002|螺母|||"
      ledger refresh
      ledger row 1 "物料代码|物料名称|规格型号|标准单价|"
      ledger refresh
      )"));
}

TEST_F(PrintTableTest, OfAnEmptyGridHasOnlyTheTitles) {
  EXPECT_EQ(Filled(), Lines(R"(
      ledger clear
      ledger rows 1
      ledger columns 4
      ledger format 1 0
      ledger format 2 0
      ledger format 3 0
      ledger format 4 0
      ledger width 1 1800
      ledger width 2 3000
      ledger width 3 2700
      ledger width 4 1800
      ledger refresh
      ledger row 1 "物料代码|物料名称|规格型号|标准单价|"
      ledger refresh
      )"));
}

TEST_F(PrintTableTest, MultipliesTheGridsWidthsByOneHundredAndFifty) {
  Cells().SetColumnWidth(1, 0);
  Cells().SetColumnWidth(2, 0.01);
  Cells().SetColumnWidth(3, 12.35);
  Cells().SetColumnWidth(4, 255);
  Filled();
  EXPECT_EQ(log_.Count("ledger width 1 0"), 1u);
  EXPECT_EQ(log_.Count("ledger width 2 2"), 1u);  // 1.5, to the even neighbour
  EXPECT_EQ(log_.Count("ledger width 3 1852"), 1u);
  EXPECT_EQ(log_.Count("ledger width 4 38250"), 1u);
}

TEST_F(PrintTableTest, FailsForAWidthThatNoLedgerAccepts) {
  Cells().SetColumnWidth(2, 1E8);
  EXPECT_THROW(FillPrintTable(Cells(), ledger_), AutomationError);
  EXPECT_EQ(log_.Lines().back(), "ledger width 1 1800");
}

TEST_F(PrintTableTest, ShowsTheCodesThatTheGridShows) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  AllowRecordsets(factory_);
  state_.fullNumber = false;
  grid_.LoadItemGrid(u"01");
  Filled();
  EXPECT_EQ(log_.Count("ledger row 2 \"001|螺栓|M8||\""), 1u);
  EXPECT_EQ(log_.Count("ledger row 3 \"002|螺母|M10||\""), 1u);
}

TEST_F(PrintTableTest, PassesASeparatorInsideATextUnchanged) {
  Row(1, {u"A|B", u"|", u"M8", u"1"});
  Filled();
  EXPECT_EQ(log_.Count("ledger row 2 \"A|B|||M8|1|\""), 1u);
}

TEST_F(PrintTableTest, KeepsItsOwnTitlesWhateverTheGridsAre) {
  Cells().SetText(1, kTitleRow, u"编号");
  Filled();
  EXPECT_EQ(log_.Count("ledger row 1 \"物料代码|物料名称|规格型号|标准单价|\""), 1u);
}

TEST_F(PrintTableTest, HasAHeaderOfThreeLines) {
  SetPageHeader(ledger_, u"物料类别 01");
  EXPECT_EQ(log_.Text(), Lines(R"(
      ledger header 1 "物料类别维护-明细物料" 20.0 bold underlined
      ledger header 2 "                              " 9.0
      ledger header 3 "物料类别 01|打印日期：&[日期]" 9.0
      )"));
}

TEST_F(PrintTableTest, HasAFooterOfTwoLines) {
  SetPageFooter(ledger_);
  EXPECT_EQ(log_.Text(), Lines(R"(
      ledger footer 1 "                              " 9.0
      ledger footer 2 "第 &[页] 页|共 &[总页] 页" 9.0
      )"));
}

}  // namespace
}  // namespace pricedown::testing
