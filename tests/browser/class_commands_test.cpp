// Deleting a class: the question, the guards, the deletes, the reload.
#include "browser/class_commands.h"

#include "platform/error.h"
#include "tests/browser/browser_fixture.h"
#include "tests/browser/class_deletion.h"

namespace pricedown::testing {
namespace {

class DeleteClass : public BrowserFixture {
 protected:
  DeleteClass() {
    AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"原料"}}));
    AnswerStatement(factory_, kTreeStatement, ClassRows({}));
    AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
    AnswerStatement(factory_, kItemsOfRoot, ItemRows({}));
    factory_.Object(u"ZEPPropsMgr.ShareProps").On(u"GetProperty", u"ConnectString={x}");
    factory_.Object(u"ZEPEBSBase.SystemProfile")
        .On(u"GetProfile", R"("ConnectString={x}", "IC", "CurrentYear")", u"2008")
        .On(u"GetProfile", R"("ConnectString={x}", "IC", "CurrentPeriod")",
            Reply::From([this](auto) { return period_; }));
    tree_.LoadClassTree();
    tree_.RestoreSelection(u"gi01");
    log_.Clear();
  }

  void ScriptGuards(ScriptedRows voucher, ScriptedRows history) {
    AnswerStatement(factory_, kVoucher, std::move(voucher));
    AnswerStatement(factory_, kHistory, std::move(history));
  }
  void ScriptDeletes() {
    AnswerNothing(factory_, kDeleteProvision);
    AnswerNothing(factory_, kDeleteClass);
  }
  static ScriptedRows NoRow() { return Rows({u"FItemID"}, {}); }
  static ScriptedRows OneRow() { return Rows({u"FItemID"}, {{7}}); }

  Value period_ = u"3";
  ClassCommands commands_{environment_, state_, tree_, editor_};
};

TEST_F(DeleteClass, AsksGuardsDeletesAndSelectsTheRoot) {
  ScriptGuards(NoRow(), NoRow());
  ScriptDeletes();
  questions_.WillAnswer({true});
  commands_.Delete();
  EXPECT_EQ(log_.Text(), Lines(kQuestion + std::string("yes\n") +
                               ReadingThePeriod("ConnectString={x}") + ExecuteLine(kVoucher) +
                               "\nrelease result\n" + ExecuteLine(kHistory) + "\nrelease result\n" +
                               ExecuteLine(kDeleteProvision) + "\n" + ExecuteLine(kDeleteClass) +
                               "\nrelease ZEPConnection.AppConnection\n"
                               "screen pointer 0\n"
                               "tree redraw off\n"
                               "tree clear\n"
                               "create ZEPConnection.AppConnection\n" +
                               ExecuteLine(kTreeStatement) +
                               "\nrelease ZEPConnection.AppConnection\n"
                               "release result\n"
                               "tree insert 1 under 0 \"物料\"\n"
                               "tree redraw on\n"
                               "tree select 1\n"
                               "screen pointer 11\n"
                               "release result\n"
                               "create ZEPConnection.AppConnection\n" +
                               ExecuteLine(kItemsOfRoot) +
                               "\nrelease ZEPConnection.AppConnection\n"
                               "screen pointer 0\n"
                               "screen messages\n"));
  EXPECT_EQ(Utf8(tree_.SelectedKey()), "gc0");
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 0);
}

TEST_F(DeleteClass, AsksToSelectAClassWhenTheGridHasNoRows) {
  tree_.SelectRoot();
  log_.Clear();
  commands_.Delete();
  state_.itemRecordset.Release();
  commands_.Delete();
  EXPECT_EQ(log_.Text(), Lines(R"(
      message information "岚禾提示": "请选择要删除的物料类别"
      release result
      message information "岚禾提示": "请选择要删除的物料类别"
      )"));
}

TEST_F(DeleteClass, AsksForRowsWhoseNumberIsUnknown) {
  factory_.Object(u"uncounted")
      .On(u"RecordCount", -1)
      .On(u"MoveFirst", Value())
      .On(u"Fields", factory_.Answering(u"fields"));
  factory_.Object(u"fields")
      .On(u"", R"("FItemClassNumber")", factory_.Answering(u"number"))
      .On(u"", R"("FItemClassName")", factory_.Answering(u"name"));
  factory_.Object(u"number").On(u"Value", u"01");
  factory_.Object(u"name").On(u"Value", u"原料");
  state_.itemRecordset = Recordset(factory_.NewObject(u"uncounted"));
  questions_.WillAnswer({false});
  commands_.Delete();
  EXPECT_EQ(log_.Count(kQuestion + std::string("no")), 1u) << log_.Text();
}

// A grid in the mode without classes has no such column.
TEST_F(DeleteClass, FailsOnRowsWithoutAClass) {
  state_.itemRecordset = Recordset(
      NewScriptedRecordset(factory_.GetRecorder(), Rows({u"FNumber"}, {{u"01.001"}}), u"items"));
  log_.Clear();
  EXPECT_THROW(commands_.Delete(), AutomationError);
  EXPECT_EQ(log_.Text(), "");
  EXPECT_EQ(state_.itemRecordset.RecordCount(), 1);
}

TEST_F(DeleteClass, ChangesNothingWhenTheAnswerIsNo) {
  questions_.WillAnswer({false});
  commands_.Delete();
  EXPECT_EQ(log_.Text(), Lines(kQuestion + std::string("no\n")));
}

TEST_F(DeleteClass, AsksNothingOnceTheControlHasEndedWhileTheClassIsRead) {
  factory_.Object(u"ending")
      .On(u"RecordCount", 1)
      .On(u"MoveFirst", Value())
      .On(u"Fields", factory_.Answering(u"fields"));
  factory_.Object(u"fields").On(u"", factory_.Answering(u"field"));
  factory_.Object(u"field").On(u"Value", Reply::From([this](auto) -> Value {
                                 environment_.lifetime.End();
                                 return u"01";
                               }));
  state_.itemRecordset = Recordset(factory_.NewObject(u"ending"));
  log_.Clear();
  commands_.Delete();
  EXPECT_TRUE(environment_.lifetime.HasEnded());
  EXPECT_EQ(log_.Text().find("ask "), std::string::npos) << log_.Text();
}

TEST_F(DeleteClass, EndsQuietlyWhenTheControlEndsInTheReload) {
  ScriptGuards(NoRow(), NoRow());
  ScriptDeletes();
  // The classes are read once more in the reload.
  factory_.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Arguments({kTreeStatement}), Reply::From([this](auto) {
            environment_.lifetime.End();
            return NewScriptedRecordset(factory_.GetRecorder(), ClassRows({}));
          }));
  tree_.LoadClassTree();
  ASSERT_FALSE(environment_.lifetime.HasEnded());
  questions_.WillAnswer({true});
  commands_.Delete();
  EXPECT_TRUE(environment_.lifetime.HasEnded());
  EXPECT_EQ(log_.Text().find("tree select"), std::string::npos) << log_.Text();
}

TEST_F(DeleteClass, DeletesTheClassItAskedAboutAlthoughTheGridShowsAnotherByThen) {
  ScriptGuards(NoRow(), NoRow());
  ScriptDeletes();
  questions_.WillAnswer({true});
  questions_.whileAsked = [this] { tree_.SelectRoot(); };
  commands_.Delete();
  EXPECT_EQ(log_.Count(ExecuteLine(kDeleteClass)), 1u) << log_.Text();
}

TEST_F(DeleteClass, DeletesAndTellsNothingWhenTheControlEndsInAGuard) {
  std::u16string_view ending;
  bool hasRow = false;
  for (const std::u16string_view guard : {kVoucher, kHistory}) {
    factory_.Object(u"ZEPConnection.AppConnection")
        .On(u"Execute", Arguments({guard}), Reply::From([&, guard](auto) {
              if (guard != ending) return NewScriptedRecordset(factory_.GetRecorder(), NoRow());
              environment_.lifetime.End();
              return NewScriptedRecordset(factory_.GetRecorder(), hasRow ? OneRow() : NoRow());
            }));
  }
  for (const bool row : {false, true}) {
    for (const std::u16string_view guard : {kVoucher, kHistory}) {
      hasRow = row;
      ending = guard;
      environment_.lifetime = {};
      log_.Clear();
      questions_.WillAnswer({true});
      commands_.Delete();
      EXPECT_EQ(log_.Text(),
                Lines(kQuestion + std::string("yes\n") + ReadingThePeriod("ConnectString={x}") +
                      ExecuteLine(kVoucher) + "\nrelease result\n" +
                      (guard == kVoucher ? "" : ExecuteLine(kHistory) + "\nrelease result\n") +
                      "release ZEPConnection.AppConnection\n"
                      "screen pointer 0\n"))
          << row;
    }
  }
}

TEST_F(DeleteClass, ReloadsNothingWhenTheControlEndsAfterTheDeletes) {
  ScriptGuards(NoRow(), NoRow());
  AnswerNothing(factory_, kDeleteProvision);
  factory_.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Arguments({kDeleteClass}), Reply::From([this](auto) {
            environment_.lifetime.End();
            return Value(nullptr);
          }));
  questions_.WillAnswer({true});
  commands_.Delete();
  const std::string text = log_.Text();
  EXPECT_EQ(
      text.substr(text.find(ExecuteLine(kDeleteClass))),
      ExecuteLine(kDeleteClass) + "\nrelease ZEPConnection.AppConnection\nscreen pointer 0\n");
}

TEST_F(DeleteClass, NamesTheClassOfTheFirstRow) {
  AnswerStatement(factory_, kItemsOf01, [] {
    ScriptedRows rows = ItemRows(kTwoItems);
    rows.rows[1][5] = u"别名";
    return rows;
  }());
  tree_.RefreshCurrentNode();
  questions_.WillAnswer({false});
  commands_.Delete();
  EXPECT_EQ(log_.Lines().back(), kQuestion + std::string("no"));
}

TEST_F(DeleteClass, RefusesWhenThePeriodHasItsVoucher) {
  ScriptGuards(OneRow(), NoRow());
  questions_.WillAnswer({true});
  commands_.Delete();
  EXPECT_EQ(log_.Text(), Lines(kQuestion + std::string("yes\n") +
                               ReadingThePeriod("ConnectString={x}") + ExecuteLine(kVoucher) +
                               "\nrelease result\n"
                               "screen pointer 0\n"
                               "message information \"岚禾提示\": "
                               "\"本期跌价准备数据已经生成凭证，不得删除物料类别！\"\n"
                               "release ZEPConnection.AppConnection\n"));
}

TEST_F(DeleteClass, RefusesWhenTheClassHasHistory) {
  ScriptGuards(NoRow(), OneRow());
  questions_.WillAnswer({true});
  commands_.Delete();
  EXPECT_EQ(
      log_.Text(),
      Lines(kQuestion + std::string("yes\n") + ReadingThePeriod("ConnectString={x}") +
            ExecuteLine(kVoucher) + "\nrelease result\n" + ExecuteLine(kHistory) +
            "\nrelease result\n"
            "screen pointer 0\n"
            "message information \"岚禾提示\": \"该物料类别在以前期间已有业务发生，不得删除！\"\n"
            "release ZEPConnection.AppConnection\n"));
}

TEST_F(DeleteClass, TreatsAnUnknownCountAsZero) {
  factory_.Object(u"uncounted").On(u"RecordCount", -1);
  for (const std::u16string_view guard : {kVoucher, kHistory}) {
    factory_.Object(u"ZEPConnection.AppConnection")
        .On(u"Execute", Arguments({guard}), factory_.Answering(u"uncounted"));
  }
  ScriptDeletes();
  questions_.WillAnswer({true});
  commands_.Delete();
  EXPECT_EQ(log_.Count(ExecuteLine(kDeleteClass)), 1u);
}

TEST_F(DeleteClass, LeavesTheClassWhenItsProvisionRowsAreGoneAndTheSecondDeleteFails) {
  ScriptGuards(NoRow(), NoRow());
  AnswerNothing(factory_, kDeleteProvision);
  FailStatement(factory_, kDeleteClass, -7, u"权限不足");
  questions_.WillAnswer({true});
  try {
    commands_.Delete();
    ADD_FAILURE() << "not thrown";
  } catch (const AutomationError& error) {
    EXPECT_EQ(Utf8(error.Description()), "权限不足");
  }
  EXPECT_EQ(log_.Count(ExecuteLine(kDeleteProvision)), 1u);
  EXPECT_EQ(log_.Count("tree redraw off"), 0u);
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 2);
}

TEST_F(DeleteClass, ReportsAPeriodThatIsNotANumber) {
  period_ = u"三";
  questions_.WillAnswer({true});
  EXPECT_THROW(commands_.Delete(), AutomationError);
  EXPECT_EQ(log_.Count("create ZEPConnection.AppConnection"), 0u);
}

TEST_F(DeleteClass, ReportsAGuardThatReturnsNoRecordset) {
  AnswerNothing(factory_, kVoucher);
  questions_.WillAnswer({true});
  EXPECT_THROW(commands_.Delete(), AutomationError);
}

// A failure before the reload reaches the caller and ends the command. The reload ignores failures,
// except when it selects the root.
TEST_F(DeleteClass, StopsAtAFailingStepAndSkipsTheRest) {
  ScriptGuards(NoRow(), NoRow());
  ScriptDeletes();
  factory_.LogRecordsetCalls();
  FailEachCallInTurn([&](int failingCall) {
    state_.itemRecordset =
        Recordset(NewScriptedRecordset(factory_.GetRecorder(), ItemRows(kTwoItems), u"items"));
    questions_.ForgetAnswers();  // a failure before the question left it
    questions_.WillAnswer({true});
    log_.Clear();
    const int before = factory_.CallCount();
    factory_.FailCall(failingCall);
    std::int32_t thrown = 0;
    try {
      commands_.Delete();
    } catch (const AutomationError& error) {
      thrown = error.Number();
    }
    factory_.FailCall(0);
    const int calls = factory_.CallCount() - before;

    const std::string log = log_.Text();
    const bool reloading = log.find("tree redraw off") != std::string::npos;
    if (failingCall == 0 || log_.Count("screen pointer 11 fails") == 1) {
      EXPECT_EQ(thrown, 0);
    } else if (!reloading) {
      EXPECT_EQ(thrown, kInjectedFailure) << log;
      // After the failure, objects are released and nothing is called.
      const std::string behind = log.substr(log.find(" fails\n") + 7);
      for (const char* call : {"create", "Execute", "GetProfile", "items.", "message ", "ask "}) {
        EXPECT_EQ(behind.find(call), std::string::npos) << log;
      }
    } else if (log_.Count("tree select 1 fails") == 1) {
      EXPECT_EQ(thrown, kInjectedFailure);
    } else if (log_.Count("tree insert 1 under 0 \"物料\" fails") == 1) {
      EXPECT_EQ(thrown, static_cast<std::int32_t>(ErrorNumber::InvalidArgument));
    } else {
      EXPECT_EQ(thrown, 0) << log;
    }
    state_.itemRecordset.Release();
    state_.classRecordset.Release();
    EXPECT_EQ(factory_.LiveObjects(), 0);
    return calls;
  });
}

}  // namespace
}  // namespace pricedown::testing
