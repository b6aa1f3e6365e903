// Filling the item grid and its locks.
#include "browser/item_grid.h"

#include <utility>

#include "tests/browser/browser_fixture.h"
#include "tests/support/failed_block.h"
#include "tests/support/memory_block.h"

namespace pricedown::testing {
namespace {

class ItemGridTest : public BrowserFixture {
 protected:
  // The texts of all rows, columns separated by |.
  std::vector<std::string> Texts() {
    std::vector<std::string> rows;
    for (std::int32_t row = 1; row <= grid_.GetGrid().MaxRows(); ++row) {
      std::string line;
      for (std::int32_t column = 1; column <= 4; ++column) line += CellOf(column, row) + "|";
      rows.push_back(line);
    }
    return rows;
  }
  // Which cells are locked, row by row, as L and -.
  std::string Locks() {
    std::string map;
    for (std::int32_t row = 1; row <= grid_.GetGrid().MaxRows(); ++row) {
      for (std::int32_t column = 1; column <= 4; ++column) {
        map += grid_.GetGrid().IsLocked(column, row) ? 'L' : '-';
      }
      map += ' ';
    }
    return map;
  }
  using Strings = std::vector<std::string>;
};

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
  EXPECT_EQ(Texts(), (Strings{"01.001|螺栓|M8||", "01.002|螺母|M10||"}));
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
  EXPECT_EQ(Texts(), (Strings{"001|螺栓|M8||", "|螺母|||"}));
}

TEST_F(ItemGridTest, ShowsNullsAsEmptyCells) {
  AnswerStatement(factory_, kItemsOf01, ItemRows({{Null{}, Null{}, Null{}, Null{}}}));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(Texts(), (Strings{"||||"}));
  EXPECT_EQ(log_.Count("message information"), 0u);
}

TEST_F(ItemGridTest, ReadsFieldByFieldWhereTheRecordsetHasNoBlocks) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems).WithoutGetRows());
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(Texts(), (Strings{"01.001|螺栓|M8||", "01.002|螺母|M10||"}));
}

TEST_F(ItemGridTest, EmptiesTheGridForAClassWithoutItems) {
  factory_.LogRecordsetCalls();
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  AnswerStatement(factory_, kItemsOf01, ItemRows({}));
  grid_.LoadItemGrid(u"01");
  log_.Clear();
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(Texts(), Strings{});
  EXPECT_EQ(log_.Count("result.MoveFirst()"), 0u);  // an empty recordset refuses it
  EXPECT_TRUE(grid_.GetGrid().Redraw());
}

TEST_F(ItemGridTest, ShowsNoRowsForAnUnknownRecordCount) {
  factory_.Object(u"uncounted").On(u"RecordCount", -1).On(u"EOF", true);
  factory_.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Arguments({kItemsOf01}), factory_.Answering(u"uncounted"));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(Texts(), Strings{});
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

TEST_F(ItemGridTest, ShowsTheErrorOfAFailedQueryAndKeepsTheRowsShown) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  FailStatement(factory_, kItemsOf01, -5, u"表 't_ICItem' 被锁定");
  grid_.LoadItemGrid(u"01");
  log_.Clear();
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(log_.Text(), Lines("release result\n"
                               "create ZEPConnection.AppConnection\n" +
                               ExecuteLine(kItemsOf01) +
                               "\nrelease ZEPConnection.AppConnection\n"
                               "message information \"岚禾提示\": \"表 't_ICItem' 被锁定\"\n"));
  EXPECT_FALSE(state_.itemRecordset);
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 2);
  EXPECT_TRUE(grid_.GetGrid().Redraw());
}

// The record count is higher than the number of rows.
TEST_F(ItemGridTest, KeepsTheRowsFilledBeforeAReadFailed) {
  threadState_.dataScope = 0;
  factory_.Makes(u"ADODB.Recordset", [](const RecorderPtr& recorder) {
    return NewScriptedRecordset(recorder, ItemRows(kTwoItems).WithoutGetRows());
  });
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems).WithoutGetRows());
  // RecordCount, MoveFirst, EOF, the missing GetRows, then three calls for each of three fields:
  // the call that fails reads the first field of the second row.
  factory_.LogRecordsetCalls();
  grid_.LoadItemGrid(u"01");
  int call = 0;
  for (const std::string& line : log_.Lines()) {
    if (line.starts_with("release")) continue;
    ++call;
    if (line == "result.MoveNext()") break;
  }
  log_.Clear();
  factory_.FailCall(call);
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(log_.Count("result.MoveNext() fails"), 1u);
  EXPECT_TRUE(log_.Lines().back().starts_with("message information \"岚禾提示\": ")) << log_.Text();
  EXPECT_EQ(Texts(), (Strings{"01.001|螺栓|M8||", "||||"}));
  EXPECT_EQ(Locks(), "---- ---- ");  // locking is skipped
  EXPECT_FALSE(grid_.GetGrid().Redraw());
  grid_.LoadItemGrid(u"01");
  EXPECT_TRUE(grid_.GetGrid().Redraw());
  EXPECT_EQ(Locks(), "LLLL LLLL ");
}

// Reading the block fails because of one value, which fails again in its row.
TEST_F(ItemGridTest, KeepsTheRowsBeforeAValueThatCannotBeRead) {
  int row = 1;
  factory_.Object(u"items")
      .On(u"RecordCount", 3)
      .On(u"EOF", Reply::From([&](auto) { return row > 3; }))
      .On(u"GetRows", Reply::Failing(-6, u"块无法读取"))
      .On(u"MoveFirst", Value())
      .On(u"MoveNext", Reply::From([&](auto) {
            ++row;
            return Value();
          }))
      .On(u"Fields", factory_.Answering(u"fields"));
  factory_.Object(u"fields").On(u"", factory_.Answering(u"cell"));
  factory_.Object(u"cell").On(u"Value", Reply::From([&](auto) -> Value {
                                if (row == 3) throw AutomationError(-5, u"损坏的值");
                                return row;
                              }));
  factory_.Object(u"ZEPConnection.AppConnection").On(u"Execute", factory_.Answering(u"items"));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(Texts(), (Strings{"1|1|1||", "2|2|2||", "||||"}));
  EXPECT_EQ(log_.Lines().back(), "message information \"岚禾提示\": \"损坏的值\"");
}

TEST_F(ItemGridTest, ShowsAMessageWhenFewerRowsArriveThanWereCounted) {
  factory_.Object(u"short").On(u"RecordCount", 2).On(u"MoveFirst", Value()).On(u"EOF", true);
  factory_.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Arguments({kItemsOf01}), factory_.Answering(u"short"));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(log_.Lines().back(),
            "message information \"岚禾提示\": \"物料记录少于记录集报告的行数\"");
}

TEST_F(ItemGridTest, ShowsAMessageWhenNoRecordsetIsReturned) {
  AnswerNothing(factory_, kItemsOf01);
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(log_.Lines().back(), "message information \"岚禾提示\": \"未设置对象: 记录集\"");
}

// Exactly one message per failure, no exception, and a later load repairs everything.
TEST_F(ItemGridTest, ShowsOneMessagePerFailureAndRecovers) {
  factory_.LogRecordsetCalls();
  for (const bool blocks : {true, false}) {
    ScriptedRows rows = ItemRows(kTwoItems);
    rows.hasGetRows = blocks;
    AnswerStatement(factory_, kItemsOf01, rows);
    if (!blocks) grid_.LoadItemGrid(u"01");
    FailEachCallInTurn([&](int failingCall) {
      const int before = factory_.CallCount();
      log_.Clear();
      factory_.FailCall(failingCall);
      grid_.LoadItemGrid(u"01");
      factory_.FailCall(0);
      const int calls = factory_.CallCount() - before;
      std::size_t messages = 0;
      for (const std::string& line : log_.Lines())
        messages += line.starts_with("message information");
      // A block that fails is read again field by field.
      const bool readAgain = HasFailedBlock(log_);
      EXPECT_EQ(messages, failingCall == 0 || readAgain ? 0u : 1u) << log_.Text();
      grid_.LoadItemGrid(u"01");
      EXPECT_EQ(Texts(), (Strings{"01.001|螺栓|M8||", "01.002|螺母|M10||"}));
      EXPECT_TRUE(grid_.GetGrid().Redraw());
      EXPECT_EQ(factory_.LiveObjects(), 1);
      return calls;
    });
  }
}

// A grid of its own for each turn of a test.
struct GridAlone {
  CallLog log;
  RecordingFactory factory{log};
  RecordingQuestions questions{log};
  RecordingScreen screen{factory.GetRecorder()};
  ThreadState threadState;
  Environment environment{factory, threadState, questions, screen, u"Host"};
  BrowserState state;
  ItemGrid grid{environment, state};
  GridAlone() { state.itemClassType = 1; }
};

// The control may end inside any call of the load; each is made to end it in turn, and then to
// fail.
TEST_F(ItemGridTest, KeepsAndShowsNothingOnceTheControlHasEnded) {
  for (const bool fails : {false, true}) {
    for (const char* ending : {"Execute", "RecordCount", "MoveFirst", "EOF", "GetRows"}) {
      GridAlone world;
      const auto answer = [&](const char* member, Reply::Maker make) {
        return Reply::From([&, member, make, fails, ending](auto arguments) -> Value {
          Value value = make(arguments);
          if (std::string_view(member) != ending) return value;
          world.environment.lifetime.End();
          world.grid.Release();
          world.log.Add("end");
          if (fails) throw AutomationError(kInjectedFailure, u"断开");
          return value;
        });
      };
      world.factory.Object(u"items")
          .On(u"RecordCount", answer("RecordCount", [](auto) { return 1; }))
          .On(u"MoveFirst", answer("MoveFirst", [](auto) { return Value(); }))
          .On(u"EOF", answer("EOF", [](auto) { return false; }))
          .On(u"GetRows", answer("GetRows", [](auto) {
                return CellBlockPtr(std::make_shared<MemoryBlock>(
                    3, std::vector<std::vector<Value>>{{u"01.001", u"螺栓", u"M8"}}));
              }));
      world.factory.Object(u"ZEPConnection.AppConnection")
          .On(u"Execute",
              answer("Execute", [&](auto) { return world.factory.NewObject(u"items"); }));
      world.grid.LoadItemGrid(u"01");
      EXPECT_EQ(world.log.Count("end"), 1u) << ending << "\n" << world.log.Text();
      EXPECT_EQ(world.log.Text().find("message "), std::string::npos) << ending << "\n"
                                                                      << world.log.Text();
      EXPECT_FALSE(world.state.itemRecordset) << ending;
      EXPECT_EQ(world.grid.GetGrid().MaxRows(), 0) << ending;
      EXPECT_EQ(world.factory.LiveObjects(), 0) << ending << "\n" << world.log.Text();
    }
  }
}

// Each call of a load may run messages that load another class, here the root's; and then fail.
TEST_F(ItemGridTest, KeepsTheClassWhoseLoadBeganInsideAnother) {
  for (const bool fails : {false, true}) {
    for (const std::string_view during :
         {"Execute", "RecordCount", "MoveFirst", "EOF", "GetRows", "Fields", "Value"}) {
      GridAlone world;
      const auto answer = [&](std::string_view member, Reply::Maker make) {
        return Reply::From([&, member, make](auto arguments) -> Value {
          Value value = make(arguments);
          if (member != during || world.log.Count("load") > 0) return value;
          world.log.Add("load");
          world.grid.LoadItemGrid(u"0");
          if (fails) throw AutomationError(kInjectedFailure, u"断开");
          return value;
        });
      };
      ObjectScript& items = world.factory.Object(u"items");
      items.On(u"RecordCount", answer("RecordCount", [](auto) { return 2; }))
          .On(u"MoveFirst", answer("MoveFirst", [](auto) { return Value(); }))
          .On(u"MoveNext", Value())
          .On(u"EOF", answer("EOF", [](auto) { return false; }))
          .On(u"Fields",
              answer("Fields", [&](auto) { return world.factory.NewObject(u"fields"); }));
      if (during == "Fields" || during == "Value") {
        items.Lacks(u"GetRows");
      } else {
        items.On(u"GetRows", answer("GetRows", [](auto) {
                   return CellBlockPtr(std::make_shared<MemoryBlock>(
                       3, std::vector<std::vector<Value>>{{u"01.001", u"螺栓", u"M8"},
                                                          {u"01.002", u"螺母", u"M10"}}));
                 }));
      }
      world.factory.Object(u"fields").On(u"", world.factory.Answering(u"cell"));
      world.factory.Object(u"cell").On(u"Value", answer("Value", [](auto) { return u"01.001"; }));
      world.factory.Object(u"ZEPConnection.AppConnection")
          .On(u"Execute", Arguments({kItemsOf01}),
              answer("Execute", [&](auto) { return world.factory.NewObject(u"items"); }));
      AnswerStatement(world.factory, kItemsOfRoot, ItemRows({{u"0.001", u"001", u"垫圈", u"M6"}}));
      world.grid.LoadItemGrid(u"01");
      SCOPED_TRACE(std::string(during) + "\n" + world.log.Text());
      EXPECT_EQ(world.log.Count("load"), 1u);
      EXPECT_EQ(world.log.Text().find("message "), std::string::npos);
      ASSERT_EQ(world.grid.GetGrid().MaxRows(), 1);
      EXPECT_EQ(Utf8(world.grid.GetGrid().Text(1, 1)), "0.001");
      EXPECT_TRUE(world.grid.GetGrid().Redraw());
      ASSERT_TRUE(world.state.itemRecordset);
      world.state.itemRecordset.MoveFirst();
      EXPECT_EQ(world.state.itemRecordset.Field(u"FNumber"), Value(u"0.001"));
    }
  }
}

// The view of an emptied grid ends its editor, and the host may answer that with another load.
struct LoadingView : GridView {
  void GridChanged() override {
    if (grid.GetGrid().MaxRows() == 0 && !std::exchange(loaded, true)) grid.LoadItemGrid(u"0");
  }
  void GridMetricsChanged() override {}
  explicit LoadingView(ItemGrid& loading) : grid(loading) {}
  ItemGrid& grid;
  bool loaded = false;
};

TEST_F(ItemGridTest, KeepsTheClassWhoseLoadBeganWhileAnotherEmptiedTheGrid) {
  GridAlone world;
  AnswerStatement(world.factory, kItemsOf01, ItemRows(kTwoItems));
  AnswerStatement(world.factory, kItemsOfRoot, ItemRows({{u"0.001", u"001", u"垫圈", u"M6"}}));
  world.grid.LoadItemGrid(u"01");
  LoadingView view(world.grid);
  world.grid.GetGrid().Attach(&view);
  world.grid.LoadItemGrid(u"01");
  EXPECT_EQ(world.grid.GetGrid().MaxRows(), 1);
  EXPECT_EQ(Utf8(world.grid.GetGrid().Text(1, 1)), "0.001");
  EXPECT_TRUE(world.grid.GetGrid().Redraw());
  world.grid.GetGrid().Attach(nullptr);
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
