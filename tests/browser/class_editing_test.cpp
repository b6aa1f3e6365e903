// Adding and editing a class: what the editor receives, in which order, and what remains.
#include "browser/class_commands.h"
#include "platform/error.h"
#include "tests/browser/browser_fixture.h"
#include "tests/browser/copied_recordset.h"

namespace pricedown::testing {
namespace {

constexpr const char* kNoClass = "message information \"岚禾提示\": \"请选择要修改的物料类别\"\n";

class ClassEditing : public BrowserFixture {
 protected:
  ClassEditing() {
    AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"原料"}}));
    AnswerStatement(factory_, kItemsOf01, ItemRows({*kTwoItems.begin()}));
    AnswerStatement(factory_, kItemsOfRoot, ItemRows({}));
    AllowRecordsets(factory_);
    factory_.Object(u"ZEPPropsMgr.ShareProps")
        .On(u"GetProperty", Reply(Value()).Writing(1, u"LANGUAGE=chs"));
    threadState_.currentYear = 2008;
    threadState_.currentPeriod = 3;
    tree_.LoadClassTree();
    SelectClass();
  }
  void SelectClass() {
    tree_.RestoreSelection(u"gi01");
    log_.Clear();
  }
  // The log up to the window of the editor.
  std::string BeforeTheWindow() const {
    const std::string text = log_.Text();
    return text.substr(0, text.find("editor window\n"));
  }
  // The error that the command throws; none if it returns.
  template <typename Command>
  std::int32_t ErrorOf(Command command) {
    try {
      command();
    } catch (const AutomationError& error) {
      return error.Number();
    }
    return 0;
  }
  // Makes each call of the command fail in turn; afterwards the form is clean, nothing leaks, and
  // the command works again. Returns how often it threw and how often the form was shown.
  template <typename Command>
  std::pair<int, int> FailEachCall(Command command) {
    factory_.LogRecordsetCalls();
    int thrown = 0;
    int shown = 0;
    FailEachCallInTurn([&](int failingCall) {
      SelectClass();
      const int before = factory_.CallCount();
      factory_.FailCall(failingCall);
      const std::int32_t error = ErrorOf([&] { command(); });
      const int calls = factory_.CallCount() - before;
      factory_.FailCall(0);
      const std::string log = log_.Text();
      const bool ended = log.find("editor closed\n") != std::string::npos;
      EXPECT_EQ(error == 0, ended) << log;
      thrown += error != 0;
      shown += ended;
      EXPECT_TRUE(editor_.IsClean()) << log;
      SelectClass();
      EXPECT_EQ(ErrorOf([&] { command(); }), 0) << log;
      state_.itemRecordset.Release();
      state_.classRecordset.Release();
      EXPECT_EQ(factory_.LiveObjects(), 0) << log;
      return calls;
    });
    return {thrown, shown};
  }

  ClassCommands commands_{environment_, state_, tree_, editor_};
};

TEST_F(ClassEditing, PassesTheEditorTwoEmptyWorkingRecordsForANewClass) {
  factory_.LogRecordsetCalls();
  editor_.whileShown = [&] {
    const FormState& form = editor_.Shown().State();
    EXPECT_EQ(form.memberList.RecordCount(), 0);
    EXPECT_EQ(form.secondRecordSet.RecordCount(), 0);
    EXPECT_NE(form.memberList.Object(), form.secondRecordSet.Object());
  };
  commands_.Add();
  EXPECT_EQ(BeforeTheWindow(), "editor form\n" + Made(kWorkingRecord, 32) +
                                   Made(kWorkingRecord, 32) +
                                   "ADODB.Recordset.Open()\n"
                                   "ADODB.Recordset.Open()\n"
                                   "editor show mode 1 \"\"\n");
  EXPECT_EQ(log_.Lines().back(), "editor closed");
  EXPECT_TRUE(editor_.IsClean());
}

TEST_F(ClassEditing, OpensTheClassOfRowsWhoseNumberIsUnknown) {
  factory_.Object(u"uncounted")
      .On(u"RecordCount", -1)
      .AllowPut(u"Filter")
      .On(u"MoveFirst", Value())
      .On(u"EOF", true)
      .On(u"Fields", factory_.Answering(u"fields"));
  factory_.Object(u"fields").On(u"Count", 0).On(u"", factory_.Answering(u"field"));
  factory_.Object(u"field").On(u"Value", u"01");
  state_.itemRecordset = Recordset(factory_.NewObject(u"uncounted"));
  // The form itself refuses the copy, which is empty.
  EXPECT_NE(ErrorOf([&] { commands_.Edit(); }), 0);
  EXPECT_EQ(log_.Count("editor show mode 0 \"01\""), 1u) << log_.Text();
}

TEST_F(ClassEditing, KeepsTheGridsClassWhileAnotherIsAdded) {
  commands_.Add();
  EXPECT_EQ(state_.itemRecordset.RecordCount(), 1);
  EXPECT_EQ(log_.Count("release result"), 0u);
}

TEST_F(ClassEditing, PassesTheEditorTwoCopiesOfTheGridsRowsAndReleasesThem) {
  factory_.LogRecordsetCalls();
  commands_.Edit();
  EXPECT_EQ(BeforeTheWindow(),
            "result.RecordCount()\n"
            "editor form\n"
            "screen pointer 11\n"
            "result.RecordCount()\n"
            "result.MoveFirst()\n"
            "result.Fields()\n"
            "result.Fields.Item(\"FItemClassNumber\")\n"
            "result.Fields(\"FItemClassNumber\").Value()\n" +
                Copied("result") + "release result\n" + Copied(kCopy) +
                "screen pointer 0\n"
                "editor show mode 0 \"01\"\n");
  EXPECT_EQ(log_.Lines().back(), "editor closed");
  EXPECT_FALSE(state_.itemRecordset);
  EXPECT_TRUE(editor_.IsClean());
}

TEST_F(ClassEditing, CopiesEveryRowFromAnyCurrentRowOfTheGrid) {
  AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
  SelectClass();
  state_.itemRecordset.MoveFirst();
  state_.itemRecordset.MoveNext();
  std::string codes;
  editor_.whileShown = [&] {
    for (const Recordset& rows :
         {editor_.Shown().MemberList(), editor_.Shown().State().secondRecordSet}) {
      for (rows.MoveFirst(); !rows.AtEnd(); rows.MoveNext()) {
        codes += Readable(rows.Field(u"FNumber")) + Readable(rows.Field(u"FItemID")) + " ";
      }
    }
  };
  commands_.Edit();
  EXPECT_EQ(codes, "\"01.001\"101 \"01.002\"102 \"01.001\"101 \"01.002\"102 ");
}

TEST_F(ClassEditing, AsksForNoClassOnceTheControlHasEndedInTheCount) {
  factory_.Object(u"ending").On(u"RecordCount", Reply::From([this](auto) -> Value {
                                  environment_.lifetime.End();
                                  return 0;
                                }));
  state_.itemRecordset = Recordset(factory_.NewObject(u"ending"));
  log_.Clear();
  commands_.Edit();
  EXPECT_EQ(log_.Text(), "ending.RecordCount()\n");
}

TEST_F(ClassEditing, OpensNoFormOnceTheControlHasEndedInTheCopy) {
  factory_.Makes(u"ADODB.Recordset", [this](const RecorderPtr& recorder) {
    environment_.lifetime.End();
    return NewScriptedRecordset(recorder, Rows({u"FItemID"}, {}));
  });
  commands_.Edit();
  EXPECT_TRUE(environment_.lifetime.HasEnded());
  EXPECT_EQ(log_.Text().find("editor show"), std::string::npos) << log_.Text();
  EXPECT_TRUE(editor_.IsClean());
}

// Only the guards read the period.
TEST_F(ClassEditing, AsksForNoPeriod) {
  commands_.Add();
  EXPECT_EQ(log_.Count("editor show mode 1 \"\""), 1u);
  commands_.Edit();
  EXPECT_EQ(log_.Count("editor show mode 0 \"01\""), 1u);
  EXPECT_EQ(log_.Text().find("SystemProfile"), std::string::npos);
}

TEST_F(ClassEditing, AsksForAClassWhenTheGridHasNoRows) {
  tree_.SelectRoot();
  log_.Clear();
  commands_.Edit();
  EXPECT_EQ(log_.Text(), kNoClass);
  state_.itemRecordset.Release();
  log_.Clear();
  commands_.Edit();
  EXPECT_EQ(log_.Text(), kNoClass);
}

TEST_F(ClassEditing, AsksForAClassAfterAnEditUntilANodeIsClicked) {
  commands_.Edit();
  log_.Clear();
  commands_.Edit();
  commands_.Delete();
  EXPECT_EQ(
      log_.Text(),
      kNoClass + std::string("message information \"岚禾提示\": \"请选择要删除的物料类别\"\n"));
  SelectClass();
  commands_.Edit();
  EXPECT_EQ(log_.Count("editor closed"), 1u);
}

TEST_F(ClassEditing, ForgetsAnEditBeforeTheNextAdd) {
  commands_.Edit();
  log_.Clear();
  commands_.Add();
  EXPECT_EQ(log_.Count("editor show mode 1 \"\""), 1u);
}

TEST_F(ClassEditing, DoesNotTouchAFormThatIsShown) {
  std::int32_t adding = 0;
  std::int32_t editing = 0;
  editor_.whileShown = [&] {
    const Recordset members = editor_.Shown().MemberList();
    adding = ErrorOf([&] { commands_.Add(); });
    tree_.RestoreSelection(u"gi01");
    editing = ErrorOf([&] { commands_.Edit(); });
    EXPECT_TRUE(editor_.Shown().IsLoaded());
    EXPECT_EQ(editor_.Shown().MemberList().Object(), members.Object());
    EXPECT_EQ(Utf8(editor_.Shown().State().openingNumber), "01");
    // The grid keeps the class, so that it can be edited later.
    EXPECT_EQ(state_.itemRecordset.RecordCount(), 1);
  };
  commands_.Edit();
  EXPECT_EQ(adding, static_cast<std::int32_t>(ErrorNumber::Unspecified));
  EXPECT_EQ(editing, static_cast<std::int32_t>(ErrorNumber::Unspecified));
}

// A grid in the mode without classes has no such column.
TEST_F(ClassEditing, FailsOnRowsWithoutAClass) {
  state_.itemRecordset = Recordset(
      NewScriptedRecordset(factory_.GetRecorder(), Rows({u"FNumber"}, {{u"01.001"}}), u"items"));
  log_.Clear();
  EXPECT_NE(ErrorOf([&] { commands_.Edit(); }), 0);
  EXPECT_EQ(log_.Text(),
            "editor form\n"
            "screen pointer 11\n"
            "screen pointer 0\n");
  EXPECT_TRUE(editor_.IsClean());
  EXPECT_EQ(state_.itemRecordset.RecordCount(), 1);
}

TEST_F(ClassEditing, ReportsAnyFailureWhilePreparingANewClass) {
  const auto [thrown, shown] = FailEachCall([&] { commands_.Add(); });
  // Once without a failure, and twice because an unreadable language falls back to the built-in
  // one.
  EXPECT_EQ(shown, 3);
  EXPECT_GT(thrown, 60);
}

// Failures inside a copy are ignored; if no copy can be made at all, the load fails.
TEST_F(ClassEditing, ReportsFailuresOutsideTheCopiesOfAnEdit) {
  const auto [thrown, shown] = FailEachCall([&] { commands_.Edit(); });
  EXPECT_GT(thrown, 10);
  EXPECT_GT(shown, 100);
}

TEST_F(ClassEditing, CallsNothingAfterAFailureBeforeTheCopies) {
  factory_.LogRecordsetCalls();
  std::string failed;
  FailEachCallInTurn([&](int failingCall) {
    SelectClass();
    const int before = factory_.CallCount();
    factory_.FailCall(failingCall);
    const std::int32_t error = ErrorOf([&] { commands_.Edit(); });
    const int calls = factory_.CallCount() - before;
    factory_.FailCall(0);
    const std::string log = log_.Text();
    if (error == 0 || log.find("create ADODB.Recordset") != std::string::npos) return calls;
    const std::size_t end = log.find(" fails\n");
    const std::size_t start = log.rfind('\n', end) + 1;
    failed += log.substr(start, end - start) + "\n";
    const std::string behind = log.substr(end + 7);
    EXPECT_TRUE(behind.empty() || behind == "screen pointer 0\n") << log;
    return calls;
  });
  EXPECT_EQ(failed, Lines(R"(
      result.RecordCount()
      editor form
      result.RecordCount()
      result.MoveFirst()
      result.Fields()
      result.Fields.Item("FItemClassNumber")
      result.Fields("FItemClassNumber").Value()
      )"));
}

TEST_F(ClassEditing, KeepsTheGridsClassWhenTheEditorIsUnavailable) {
  factory_.FailCall(1);
  EXPECT_EQ(ErrorOf([&] { commands_.Add(); }), kInjectedFailure);
  EXPECT_EQ(log_.Text(), "editor form fails\n");
  log_.Clear();
  factory_.LogRecordsetCalls();
  factory_.FailCall(2);
  EXPECT_EQ(ErrorOf([&] { commands_.Edit(); }), kInjectedFailure);
  EXPECT_EQ(log_.Text(), "result.RecordCount()\neditor form fails\n");
  EXPECT_EQ(state_.itemRecordset.RecordCount(), 1);
}

}  // namespace
}  // namespace pricedown::testing
