// Loads of the item grid that fail, and loads during which the control ends or another load begins.
#include <utility>

#include "browser/item_grid.h"
#include "tests/browser/browser_fixture.h"
#include "tests/support/failed_block.h"
#include "tests/support/memory_block.h"

namespace pricedown::testing {
namespace {

using ItemGridFailures = BrowserFixture;
using Strings = std::vector<std::string>;

TEST_F(ItemGridFailures, ShowsTheErrorOfAFailedQueryAndKeepsTheRowsShown) {
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
TEST_F(ItemGridFailures, KeepsTheRowsFilledBeforeAReadFailed) {
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
  EXPECT_EQ(RowTexts(), (Strings{"01.001|螺栓|M8||", "||||"}));
  EXPECT_EQ(Locks(), "---- ---- ");  // locking is skipped
  EXPECT_FALSE(grid_.GetGrid().Redraw());
  grid_.LoadItemGrid(u"01");
  EXPECT_TRUE(grid_.GetGrid().Redraw());
  EXPECT_EQ(Locks(), "LLLL LLLL ");
}

// Reading the block fails because of one value, which fails again in its row.
TEST_F(ItemGridFailures, KeepsTheRowsBeforeAValueThatCannotBeRead) {
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
  EXPECT_EQ(RowTexts(), (Strings{"1|1|1||", "2|2|2||", "||||"}));
  EXPECT_EQ(log_.Lines().back(), "message information \"岚禾提示\": \"损坏的值\"");
}

TEST_F(ItemGridFailures, ShowsAMessageWhenFewerRowsArriveThanWereCounted) {
  factory_.Object(u"short").On(u"RecordCount", 2).On(u"MoveFirst", Value()).On(u"EOF", true);
  factory_.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Arguments({kItemsOf01}), factory_.Answering(u"short"));
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(log_.Lines().back(),
            "message information \"岚禾提示\": \"物料记录少于记录集报告的行数\"");
}

TEST_F(ItemGridFailures, ShowsAMessageWhenNoRecordsetIsReturned) {
  AnswerNothing(factory_, kItemsOf01);
  grid_.LoadItemGrid(u"01");
  EXPECT_EQ(log_.Lines().back(), "message information \"岚禾提示\": \"未设置对象: 记录集\"");
}

// Exactly one message per failure, no exception, and a later load repairs everything.
TEST_F(ItemGridFailures, ShowsOneMessagePerFailureAndRecovers) {
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
      EXPECT_EQ(RowTexts(), (Strings{"01.001|螺栓|M8||", "01.002|螺母|M10||"}));
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
TEST_F(ItemGridFailures, KeepsAndShowsNothingOnceTheControlHasEnded) {
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
TEST_F(ItemGridFailures, KeepsTheClassWhoseLoadBeganInsideAnother) {
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

TEST_F(ItemGridFailures, KeepsTheClassWhoseLoadBeganWhileAnotherEmptiedTheGrid) {
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

}  // namespace
}  // namespace pricedown::testing
