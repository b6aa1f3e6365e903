// Filling the item grid and its locks.
#include "browser/item_grid.h"

#include "tests/browser/browser_fixture.h"

namespace pricedown::testing {
namespace {

using ItemGridTest = BrowserFixture;
using Strings = std::vector<std::string>;

TEST_F(ItemGridTest, NotifiesItsViewOnceOfTitlesAndWidths) {
  AttachGridView();
  grid_.Prepare();
  EXPECT_EQ(log_.Text(), Lines("grid changed 0 rows\ngrid metrics\n"));
  EXPECT_TRUE(grid_.GetGrid().Redraw());
}

TEST_F(ItemGridTest, ListsTheItemsOfTheSelectedClass) {
  factory_.LogRecordsetCalls();
  AttachGridView();
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(log_.Text(),
            Lines("create ZEPConnection.AppConnection\n" + ExecuteLine(kItemsOf01) +
                  "\nrelease ZEPConnection.AppConnection\n"
                  "grid changed 0 rows\n"
                  "result.RecordCount()\n"
                  "result.MoveFirst()\n"
                  "result.EOF()\n"
                  "result.GetRows(4096, Missing, [\"FNumber\", \"FName\", \"FModel\"])\n"
                  "grid changed 2 rows\n"
                  "grid changed 2 rows\n"));
  EXPECT_EQ(RowTexts(), (Strings{"01.001|螺栓|M8||", "01.002|螺母|M10||"}));
  EXPECT_TRUE(state_.itemRecordset);
}

TEST_F(ItemGridTest, ReportsProgressToItsViewDuringALongFill) {
  struct CountingView : GridView {
    void GridChanged() override {}
    void GridMetricsChanged() override {}
    void GridFilling() override { ++fills; }
    int fills = 0;
  } view;
  grid_.GetGrid().Attach(&view);
  ScriptedRows rows = ItemRows({});
  for (int i = 0; i < 1100; ++i) rows.rows.push_back(ItemRows(kTwoItems).rows.front());
  AnswerStatement(factory_, kItemsOf01, rows);
  grid_.LoadItemGrid(u"01");
  grid_.GetGrid().Attach(nullptr);
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 1100);
  EXPECT_EQ(view.fills, 2);
}

TEST_F(ItemGridTest, ListsAllItemsWhenProvisionsAreKeptByItem) {
  state_.itemClassType = 2;
  AnswerStatement(factory_, kAllItems, ItemRows(kTwoItems));
  grid_.LoadItemGrid(u"0");
  grid_.LoadItemGrid(u"01");  // the class is not consulted
  EXPECT_EQ(log_.Count(ExecuteLine(kAllItems)), 2u);
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 2);
}

TEST_F(ItemGridTest, QueriesTheClassNumberedZeroAtTheRoot) {
  AnswerStatement(factory_, kItemsOfRoot, ItemRows({}));
  grid_.LoadItemGrid(u"0");
  EXPECT_EQ(log_.Count(ExecuteLine(kItemsOfRoot)), 1u);
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 0);
}

TEST_F(ItemGridTest, ShowsShortCodesWhenShortNumbersAreInUse) {
  state_.fullNumber = false;
  AnswerStatement(factory_, kItemsOf01,
                  ItemRows({{u"01.001", u"001", u"螺栓", u"M8"}, {u"01.002", u"", u"螺母", u""}}));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(RowTexts(), (Strings{"001|螺栓|M8||", "|螺母|||"}));
}

TEST_F(ItemGridTest, ShowsNullsAsEmptyCells) {
  AnswerStatement(factory_, kItemsOf01, ItemRows({{Null{}, Null{}, Null{}, Null{}}}));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(RowTexts(), (Strings{"||||"}));
  EXPECT_EQ(log_.Count("message information"), 0u);
}

TEST_F(ItemGridTest, ReadsFieldByFieldWhereTheRecordsetHasNoBlocks) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems).WithoutGetRows());
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(RowTexts(), (Strings{"01.001|螺栓|M8||", "01.002|螺母|M10||"}));
}

TEST_F(ItemGridTest, EmptiesTheGridForAClassWithoutItems) {
  factory_.LogRecordsetCalls();
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  AnswerStatement(factory_, kItemsOf01, ItemRows({}));
  grid_.LoadItemGrid(u"01");
  log_.Clear();
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(RowTexts(), Strings{});
  EXPECT_EQ(log_.Count("result.MoveFirst()"), 0u);  // an empty recordset refuses it
  EXPECT_TRUE(grid_.GetGrid().Redraw());
}

TEST_F(ItemGridTest, ShowsNoRowsForAnUnknownRecordCount) {
  factory_.Object(u"uncounted").On(u"RecordCount", -1).On(u"EOF", true);
  factory_.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Arguments({kItemsOf01}), factory_.Answering(u"uncounted"));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(RowTexts(), Strings{});
  EXPECT_TRUE(grid_.GetGrid().Redraw());
}

TEST_F(ItemGridTest, BoundsThePriceOfEveryRowOnly) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  grid_.LoadItemGrid(u"01");
  for (const std::int32_t row : {1, 2}) {
    EXPECT_EQ(grid_.GetGrid().UpperBound(4, row), 99999999999.99);
    for (const std::int32_t column : {1, 2, 3}) {
      EXPECT_FALSE(grid_.GetGrid().UpperBound(column, row));
    }
  }
}

TEST_F(ItemGridTest, ForgetsAPriceThatWasTyped) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  grid_.LoadItemGrid(u"01");
  grid_.GetGrid().SetText(4, 1, u"12.50");
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(CellOf(4, 1), "");
}

TEST_F(ItemGridTest, LocksTheFirstThreeColumns) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  for (const std::int32_t scope : {1, 2}) {
    threadState_.dataScope = scope;
    grid_.LoadItemGrid(u"01");
    EXPECT_EQ(Locks(), "LLL- LLL- ") << scope;
  }
}

TEST_F(ItemGridTest, LocksEveryCellForADataScopeOfZero) {
  threadState_.dataScope = 0;
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(Locks(), "LLLL LLLL ");
}

TEST_F(ItemGridTest, DropsTheFullLockOfAnEarlierLoad) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  threadState_.dataScope = 0;
  grid_.LoadItemGrid(u"01");
  threadState_.dataScope = 1;
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(Locks(), "LLL- LLL- ");
}

TEST_F(ItemGridTest, LocksNothingForAnyOtherScopeAtStart) {
  grid_.GetGrid().SetMaxRows(1);
  grid_.ApplyScopeLock();
  EXPECT_EQ(Locks(), "---- ");
  threadState_.dataScope = 0;
  grid_.ApplyScopeLock();
  EXPECT_EQ(Locks(), "LLLL ");
}

TEST_F(ItemGridTest, ReleasesTheEarlierRowsBeforeItQueriesOthers) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  grid_.LoadItemGrid(u"01");
  log_.Clear();
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(log_.Text(),
            Lines("release result\n"
                  "create ZEPConnection.AppConnection\n" +
                  ExecuteLine(kItemsOf01) + "\nrelease ZEPConnection.AppConnection\n"));
}

TEST_F(ItemGridTest, PreparesTitlesAndWidths) {
  grid_.Prepare();
  EXPECT_EQ(CellOf(1, kTitleRow), "物料代码");
  EXPECT_EQ(CellOf(2, kTitleRow), "物料名称");
  EXPECT_EQ(CellOf(3, kTitleRow), "规格型号");
  EXPECT_EQ(CellOf(4, kTitleRow), "标准单价");
  for (std::int32_t column = 1; column <= 4; ++column) {
    EXPECT_GE(grid_.GetGrid().ColumnWidth(column), 10) << column;
  }
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 0);
}

TEST_F(ItemGridTest, DropsRowsAndRecordsetWhenReleased) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  grid_.LoadItemGrid(u"01");
  grid_.Release();
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 0);
  EXPECT_EQ(factory_.LiveObjects(), 0);
}

}  // namespace
}  // namespace pricedown::testing
