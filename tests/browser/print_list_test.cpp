// The item list as a document.
#include "browser/print_list.h"

#include <gtest/gtest.h>

#include "browser/item_grid.h"
#include "tests/browser/browser_fixture.h"
#include "tests/browser/recording_output.h"

namespace pricedown::testing {
namespace {

const std::string kColumns = Lines(R"(
    column "物料代码" 1800
    column "物料名称" 3000
    column "规格型号" 2700
    column "标准单价" 1800
    )");

class PrintListTest : public BrowserFixture {
 protected:
  PrintListTest() { grid_.Prepare(); }

  Grid& GetGrid() { return grid_.GetGrid(); }
  void Row(std::int32_t row, const std::vector<std::u16string_view>& texts) {
    if (GetGrid().MaxRows() < row) GetGrid().SetMaxRows(row);
    for (std::size_t i = 0; i < texts.size(); ++i) {
      GetGrid().SetText(static_cast<std::int32_t>(i + 1), row, texts[i]);
    }
  }
  std::string Filled() {
    FillPrintTable(GetGrid(), table_);
    return Readable(table_);
  }

  PrintTable table_;
};

TEST_F(PrintListTest, HoldsTheTextsOfAllRows) {
  Row(1, {u"01.001", u"螺栓", u"M8", u"12.5"});
  Row(2, {u"01.002", u"螺母", u"", u""});
  EXPECT_EQ(Filled(), kColumns + Lines(R"(
      row "01.001" "螺栓" "M8" "12.5"
      row "01.002" "螺母" "" ""
      )"));
}

TEST_F(PrintListTest, OfAnEmptyGridHasTheTitlesAlone) { EXPECT_EQ(Filled(), kColumns); }

TEST_F(PrintListTest, HoldsTheRowsOfItsLastFillingOnly) {
  Row(1, {u"01.001"});
  Filled();
  GetGrid().SetMaxRows(0);
  EXPECT_EQ(Filled(), kColumns);
}

TEST_F(PrintListTest, HasTheWidthsOfTheGridTimesOneHundredAndFifty) {
  GetGrid().SetColumnWidth(1, 0);
  GetGrid().SetColumnWidth(2, 0.01);
  GetGrid().SetColumnWidth(3, 12.35);
  GetGrid().SetColumnWidth(4, 255);
  Filled();
  EXPECT_EQ(table_.Columns()[0].width, 0);
  EXPECT_EQ(table_.Columns()[1].width, 2);  // 1.5, to the even neighbour
  EXPECT_EQ(table_.Columns()[2].width, 1852);
  EXPECT_EQ(table_.Columns()[3].width, 38250);
}

TEST_F(PrintListTest, FailsForAWidthThatIsTooLargeForTwips) {
  GetGrid().SetColumnWidth(2, 1E8);
  EXPECT_THROW(FillPrintTable(GetGrid(), table_), AutomationError);
}

TEST_F(PrintListTest, ShowsTheCodesThatTheGridShows) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  AllowRecordsets(factory_);
  state_.fullNumber = false;
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(Filled(), kColumns + Lines(R"(
      row "001" "螺栓" "M8" ""
      row "002" "螺母" "M10" ""
      )"));
}

TEST_F(PrintListTest, KeepsABarInsideATextInItsCell) {
  Row(1, {u"A|B", u"|", u"M8", u"1"});
  EXPECT_EQ(Filled(), kColumns + "row \"A|B\" \"|\" \"M8\" \"1\"\n");
}

TEST_F(PrintListTest, UsesItsOwnTitlesInsteadOfTheGrids) {
  GetGrid().SetText(1, kTitleRow, u"编号");
  EXPECT_EQ(Filled(), kColumns);
}

TEST_F(PrintListTest, HasThreeHeaderAndTwoFooterLinesInTheTitleFont) {
  PrintDocument document;
  SetPageLines({u"新細明體", 9, false, false, false, 136}, document);
  FillPrintTable(GetGrid(), document.table);
  EXPECT_EQ(Readable(document), PrintedList("新細明體 136", ""));
}

TEST_F(PrintListTest, HasItsLinesInSongAndTheRequestedCharacterSetWithoutATitleFont) {
  PrintDocument document;
  SetPageLines({u"", 9, false, false, false, 136}, document);
  FillPrintTable(GetGrid(), document.table);
  EXPECT_EQ(Readable(document), PrintedList("宋体 136", ""));
}

}  // namespace
}  // namespace pricedown::testing
