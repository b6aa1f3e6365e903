// The save: header walk, stored copy, account ids, statement text, flags.
#include "editor/save.h"

#include <gmock/gmock.h>

#include "editor/change_check.h"
#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

// The statements of a save of bolts and nuts; each returns nothing.
constexpr std::u16string_view kSaveOf01 =
    u"delete from icPriceDownClass where  FItemClassNumber='01'"
    u" INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,"
    u"FARAccID,FARNumber,FPencentPrepare)VALUES\r\n( 101,'01','原材料',\r\n"
    u"1051,'5711',1023,'1281.1',12.5)\r\n"
    u" INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,"
    u"FARAccID,FARNumber,FPencentPrepare)VALUES\r\n( 102,'01','原材料',\r\n"
    u"1051,'5711',1023,'1281.1',12.5)\r\n";

class Save : public EditorTest {
 protected:
  void Open() {
    AcceptSaves();
    AnswerChecks(false);
    AnswerAccountIds();
    OpenForEdit();
  }
  // The last text that was executed, between quotes as logged.
  std::string SavedText() const {
    std::string text;
    for (const std::string& line : log.Lines()) {
      const std::size_t at = line.find("Execute(\"delete");
      if (at != std::string::npos) text = line.substr(at + 8);
    }
    return text;
  }
  void Listen() {
    form.OnSaved([this](bool added, std::u16string_view number) {
      reported += (added ? "added " : "changed ") + Utf8(number) + ";";
    });
  }
  std::string reported;  // what the form tells of its saves
};

TEST_F(Save, IsReportedOnceTheClassIsWritten) {
  Open();
  Listen();
  view.Type(FormField::ClassNumber, u"");
  form.ToolClicked(FormTool::Save);
  EXPECT_EQ(reported, "") << "a refused save";
  view.Type(FormField::ClassNumber, u"01");
  form.ToolClicked(FormTool::Save);
  EXPECT_EQ(reported, "changed 01;");
}

TEST_F(Save, IsReportedAlthoughTheFormHasEndedInTheWrite) {
  AnswerChecks(false);
  AnswerAccountIds();
  factory.Object(kConnectionId)
      .On(u"Execute", Arguments({kSaveOf01}), Reply::From([this](auto) -> Value {
            form.Unload();
            return nullptr;
          }));
  OpenForEdit();
  Listen();
  form.ToolClicked(FormTool::Save);
  EXPECT_EQ(reported, "changed 01;");
}

TEST_F(Save, ReportsItsFailureAndPassesItOn) {
  AnswerChecks(false);
  AnswerAccountIds();
  FailStatement(factory, kSaveOf01, -5, u"断开");
  OpenForEdit();
  form.OnFailed([&](const Failure& failure) { reported += Utf8(failure.description) + ";"; });
  EXPECT_EQ(ErrorOf([this] { form.ToolClicked(FormTool::Save); }), -5);
  EXPECT_EQ(reported, "写入物料类别失败，物料类别代码：01\r\n断开;");
}

TEST_F(Save, MayBeFollowedByTheEndOfTheForm) {
  Open();
  form.OnSaved([this](bool, std::u16string_view) { form.Unload(); });
  form.ToolClicked(FormTool::Save);
  EXPECT_EQ(log.Count("unload"), 1u);
  EXPECT_FALSE(form.IsLoaded());
}

// A call to the suite may run messages in which the form's owner is destroyed.
TEST_F(Save, WritesNothingOnceTheFormHasEndedInOneOfItsCalls) {
  constexpr std::u16string_view kAccounts = u"select FNumber from t_account";
  constexpr std::u16string_view kLossId = u"SELECT FAccountID FROM t_account WHERE FNumber='5711'";
  constexpr std::u16string_view kReserveId =
      u"SELECT FAccountID FROM t_account WHERE FNumber='1281.1'";
  for (const std::u16string_view during :
       {kAccounts, std::u16string_view(u"copy"), kLossId, kReserveId}) {
    EditorWorld world;
    bool ended = false;
    const auto endDuring = [&](std::u16string_view step) {
      if (step != during) return;
      ended = true;
      world.form.Unload();
    };
    const auto answer = [&](std::u16string_view statement, const ScriptedRows& rows) {
      world.factory.Object(kConnectionId)
          .On(u"Execute", Arguments({statement}), Reply::From([&, statement, rows](auto) -> Value {
                endDuring(statement);
                return NewScriptedRecordset(world.factory.GetRecorder(), rows);
              }));
    };
    // Without accounts the check would refuse them.
    answer(kAccounts, Rows({u"FNumber"}, during == kAccounts ? std::vector<std::vector<Value>>()
                                                             : std::vector<std::vector<Value>>{
                                                                   {u"1281.1"}, {u"5711"}}));
    answer(kLossId, Rows({u"FAccountID"}, {{1051}}));
    answer(kReserveId, Rows({u"FAccountID"}, {{1023}}));
    world.AnswerChecks(false);
    world.OpenForEdit();
    world.factory.Makes(u"ADODB.Recordset", [&](const RecorderPtr& recorder) {
      endDuring(u"copy");
      return NewScriptedRecordset(recorder, Rows({u"FItemID"}, {}));
    });
    SCOPED_TRACE(Utf8(during));
    EXPECT_EQ(ErrorOf([&] { world.form.ToolClicked(FormTool::Save); }), std::nullopt);
    EXPECT_TRUE(ended);
    EXPECT_THAT(world.log.Text(), ::testing::Not(HasSubstr("delete from")));
    EXPECT_THAT(world.log.Text(), ::testing::Not(HasSubstr("message ")));
    EXPECT_EQ(world.factory.LiveObjects(), 0);
  }
}

TEST_F(Save, WritesTheWholeClassInOneText) {
  AnswerNothing(factory, kSaveOf01);
  AnswerChecks(false);
  AnswerAccountIds();
  OpenForEdit();
  form.ToolClicked(FormTool::Save);
  EXPECT_TRUE(form.State().saved);
  EXPECT_EQ(form.State().lossAccountId, 1051);
  EXPECT_EQ(form.State().reserveAccountId, 1023);
  const std::string text = log.Text();
  EXPECT_EQ(text.substr(text.find("create ADODB")), Lines(R"(
      create ADODB.Recordset
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("SELECT FAccountID FROM t_account WHERE FNumber='5711'")
      release result
      release ZEPConnection.AppConnection
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("SELECT FAccountID FROM t_account WHERE FNumber='1281.1'")
      release result
      release ZEPConnection.AppConnection
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("delete from icPriceDownClass where  FItemClassNumber='01' INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,FARAccID,FARNumber,FPencentPrepare)VALUES\r\n( 101,'01','原材料',\r\n1051,'5711',1023,'1281.1',12.5)\r\n INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,FARAccID,FARNumber,FPencentPrepare)VALUES\r\n( 102,'01','原材料',\r\n1051,'5711',1023,'1281.1',12.5)\r\n")
      release ZEPConnection.AppConnection
      disable Save
      )"));
}

TEST_F(Save, WritesNothingWhenTheChecksRefuse) {
  Open();
  view.Type(FormField::ClassName, u"");
  log.Clear();
  form.ToolClicked(FormTool::Save);
  EXPECT_FALSE(form.State().saved);
  EXPECT_FALSE(form.State().keptCopy);
  EXPECT_EQ(SavedText(), "");
  EXPECT_THAT(Column(u"FItemClassName"), ElementsAre("\"原材料\"", "\"原材料\""));
  EXPECT_EQ(form.State().savedValues, RawMaterials());
}

TEST_F(Save, PutsTheFieldsIntoEveryRowWhenTheHeaderWasChanged) {
  Open();
  AnswerStatement(factory, u"SELECT FAccountID FROM t_account WHERE FNumber='5711.02'",
                  Rows({u"FAccountID"}, {{1052}}));
  view.Type(FormField::ClassNumber, u"B");
  view.Type(FormField::ClassName, u"改名");
  view.Type(FormField::LossAccount, u"5711.02");
  view.Type(FormField::Percentage, u"5.0");
  form.ToolClicked(FormTool::Save);
  EXPECT_THAT(Column(u"FItemClassNumber"), ElementsAre("\"B\"", "\"B\""));
  EXPECT_THAT(Column(u"FItemClassName"), ElementsAre("\"改名\"", "\"改名\""));
  EXPECT_THAT(Column(u"FAPNumber"), ElementsAre("\"5711.02\"", "\"5711.02\""));
  EXPECT_THAT(Column(u"FARNumber"), ElementsAre("\"1281.1\"", "\"1281.1\""));
  EXPECT_THAT(Column(u"FPencentPrepare"), ElementsAre("5.0", "5.0"));
  EXPECT_THAT(SavedText(),
              HasSubstr("delete from icPriceDownClass where  FItemClassNumber='01' INSERT"));
  EXPECT_THAT(SavedText(),
              HasSubstr(R"(( 101,'B','改名',\r\n1052,'5711.02',1023,'1281.1',5)\r\n)"));
  EXPECT_THAT(SavedText(),
              HasSubstr(R"(( 102,'B','改名',\r\n1052,'5711.02',1023,'1281.1',5)\r\n)"));
}

TEST_F(Save, LeavesTheRowsWhenTheFirstOneCarriesTheHeader) {
  Open();
  // A second row with other values, as in an inconsistent class.
  form.MemberList().MoveFirst();
  form.MemberList().MoveNext();
  form.MemberList().SetField(u"FItemClassName", u"别名");
  form.ToolClicked(FormTool::Save);
  EXPECT_THAT(Column(u"FItemClassName"), ElementsAre("\"原材料\"", "\"别名\""));
  EXPECT_THAT(SavedText(), HasSubstr("( 102,'01','别名',"));
}

TEST_F(Save, TreatsAnotherSpellingOfThePercentageAsUnchanged) {
  Open();
  view.Type(FormField::Percentage, u"12.50");
  EXPECT_TRUE(CarriesHeader(form.MemberList(), ReadHeader(view)));
  form.ToolClicked(FormTool::Save);
  EXPECT_THAT(SavedText(), HasSubstr(",12.5)"));
}

TEST_F(Save, KeepsACopyOfTheRowsAsWritten) {
  Open();
  view.Type(FormField::ClassName, u"改名");
  form.ToolClicked(FormTool::Save);
  const Recordset& copy = form.State().keptCopy;
  ASSERT_EQ(copy.RecordCount(), 2);
  EXPECT_EQ(copy.Field(u"FItemClassName"), Value(u"改名"));
  EXPECT_EQ(copy.Fields().size(), 15u);
}

TEST_F(Save, KeepsTheSavedValues) {
  Open();
  Type({u"02", u"改名", u"5711", u"1281.1", 0}, u" 7.5 ");
  form.ToolClicked(FormTool::Save);
  EXPECT_EQ(form.State().savedValues, (ClassHeader{u"02", u"改名", u"5711", u"1281.1", 7.5}));
  EXPECT_EQ(form.State().openingNumber, u"01") << "a save does not change it";
}

TEST_F(Save, LooksAccountsUpByTheNumberAndNotByTheText) {
  struct Case {
    std::u16string_view text;
    const char* statement;
  };
  for (const Case& given :
       {Case{u"1281.10", "SELECT FAccountID FROM t_account WHERE FNumber='1281.1'"},
        Case{u"5711.02", "SELECT FAccountID FROM t_account WHERE FNumber='5711.02'"}}) {
    EditorWorld world;
    world.AcceptSaves();
    world.AnswerChecks(false);
    world.AnswerAccountIds();
    AnswerStatement(world.factory, u"SELECT FAccountID FROM t_account WHERE FNumber='5711.02'",
                    Rows({u"FAccountID"}, {{1052}}));
    world.OpenForEdit();
    world.view.Type(FormField::ReserveAccount, given.text);
    world.form.ToolClicked(FormTool::Save);
    EXPECT_THAT(world.log.Text(), HasSubstr(given.statement));
  }
}

TEST_F(Save, LooksAnAccountOfTwoSeparatorsUpByItsLeadingPart) {
  AcceptSaves();
  AnswerStatement(factory, u"select FNumber from t_account",
                  Rows({u"FNumber"}, {{u"5711"}, {u"1281.01.02"}}));
  AnswerChecks(false);
  AnswerAccountIds();
  AnswerStatement(factory, u"SELECT FAccountID FROM t_account WHERE FNumber='1281.01'",
                  Rows({u"FAccountID"}, {{77}}));
  OpenForEdit();
  view.Type(FormField::ReserveAccount, u"1281.01.02");
  form.ToolClicked(FormTool::Save);
  EXPECT_EQ(form.State().reserveAccountId, 77);
  // The text itself is stored.
  EXPECT_THAT(SavedText(), HasSubstr("1051,'5711',77,'1281.01.02',"));
}

TEST_F(Save, RoundsAccountIdsToTheNearestWholeNumber) {
  Open();
  AnswerStatement(factory, u"SELECT FAccountID FROM t_account WHERE FNumber='5711.02'",
                  Rows({u"FAccountID"}, {{u"1052.6"}}));
  view.Type(FormField::LossAccount, u"5711.02");
  form.ToolClicked(FormTool::Save);
  EXPECT_EQ(form.State().lossAccountId, 1053);
}

TEST_F(Save, TreatsAMissingAccountIdAsZero) {
  Open();
  AnswerStatement(factory, u"SELECT FAccountID FROM t_account WHERE FNumber='5711.02'",
                  Rows({u"FAccountID"}, {{Null{}}}));
  view.Type(FormField::LossAccount, u"5711.02");
  form.ToolClicked(FormTool::Save);
  EXPECT_EQ(form.State().lossAccountId, 0);
}

TEST_F(Save, StopsAtAnAccountThatIsNotFoundUnderItsNumber) {
  Open();
  AnswerStatement(factory, u"SELECT FAccountID FROM t_account WHERE FNumber='5711.02'",
                  Rows({u"FAccountID"}, {}));
  view.Type(FormField::LossAccount, u"5711.02");
  EXPECT_EQ(ErrorOf([this] { form.ToolClicked(FormTool::Save); }),
            NumberOf(ErrorNumber::NoCurrentRecord));
  EXPECT_TRUE(form.State().saved) << "as the passed check left it";
  EXPECT_EQ(SavedText(), "");
  EXPECT_THAT(Column(u"FAPNumber"), ElementsAre("\"5711.02\"", "\"5711.02\""));
  EXPECT_EQ(form.State().keptCopy.RecordCount(), 2);
  EXPECT_EQ(form.State().savedValues, RawMaterials()) << "not reached";
}

TEST_F(Save, StaysMarkedSavedWhenARowCannotTakeTheFields) {
  Open();
  view.Type(FormField::ClassName, std::u16string(81, u'长'));  // longer than the column
  EXPECT_NE(ErrorOf([this] { form.ToolClicked(FormTool::Save); }), std::nullopt);
  EXPECT_TRUE(form.State().saved);
  EXPECT_FALSE(form.State().keptCopy) << "not reached";
  EXPECT_EQ(SavedText(), "");
}

TEST_F(Save, WritesValuesUnchanged) {
  Open();
  view.Type(FormField::ClassName, u"it's");
  form.ToolClicked(FormTool::Save);
  EXPECT_THAT(SavedText(), HasSubstr("'01','it's',"));
}

// Which field, the number that was looked up, and then the database's own description.
TEST_F(Save, NamesTheAccountThatWasNotFound) {
  for (const FormField field : {FormField::LossAccount, FormField::ReserveAccount}) {
    EditorWorld world;
    world.AcceptSaves();
    world.AnswerChecks(false);
    world.AnswerAccountIds();
    FailStatement(world.factory, u"SELECT FAccountID FROM t_account WHERE FNumber='5711.02'",
                  -2147217871, u"超时已过期");
    world.OpenForEdit();
    world.view.Type(field, u"5711.02");
    const char* const account = field == FormField::LossAccount ? "损失" : "准备";
    EXPECT_EQ(FailureOf([&] { world.form.ToolClicked(FormTool::Save); }),
              std::string("80040E31 查找存货跌价") + account +
                  "科目失败，科目代码：5711.02\r\n超时已过期");
  }
}

TEST_F(Save, NamesTheAccountsThatCouldNotBeChecked) {
  FailStatement(factory, u"select FNumber from t_account", -2147217871, u"超时已过期");
  OpenForEdit();
  EXPECT_EQ(FailureOf([this] { form.ToolClicked(FormTool::Save); }),
            "80040E31 检查科目失败，科目代码：5711、1281.1\r\n超时已过期");
}

// Number and source stay the database's, for the host's error handling.
TEST_F(Save, KeepsNumberAndSourceOfAFailedCheck) {
  factory.Object(kConnectionId)
      .On(u"Execute", Arguments({u"select FNumber from t_account"}), Reply::From([](auto) -> Value {
            throw AutomationError(-2147217871, u"超时已过期", u"数据库");
          }));
  OpenForEdit();
  try {
    form.ToolClicked(FormTool::Save);
    ADD_FAILURE() << "no failure";
  } catch (const AutomationError& error) {
    EXPECT_EQ(error.Number(), -2147217871);
    EXPECT_EQ(Utf8(error.Source()), "数据库");
  }
}

TEST_F(Save, NamesTheClassNumberThatCouldNotBeChecked) {
  AnswerStatement(factory, u"select FNumber from t_account",
                  Rows({u"FNumber"}, {{u"5711"}, {u"1281.1"}}));
  FailStatement(factory,
                u"select FItemClassNumber from icPriceDownClass where FItemClassNumber<>'01'",
                -2147217871, u"超时已过期");
  OpenForEdit();
  view.Type(FormField::ClassNumber, u"02");
  EXPECT_EQ(FailureOf([this] { form.ToolClicked(FormTool::Save); }),
            "80040E31 检查物料类别代码失败，物料类别代码：02\r\n超时已过期");
}

TEST_F(Save, NamesTheClassThatCouldNotBeWritten) {
  AnswerChecks(false);
  AnswerAccountIds();
  FailStatement(factory, kSaveOf01, -2147217900, u"字符串后的引号不完整");
  OpenForEdit();
  EXPECT_EQ(FailureOf([this] { form.ToolClicked(FormTool::Save); }),
            "80040E14 写入物料类别失败，物料类别代码：01\r\n字符串后的引号不完整");
}

TEST_F(Save, PassesTheDatabasesRefusalOnAndStaysMarkedSaved) {
  AnswerChecks(false);
  AnswerAccountIds();
  factory.Object(kConnectionId)
      .On(u"Execute", Reply::Failing(-2147217900, u"字符串后的引号不完整"));
  OpenForEdit();
  EXPECT_EQ(ErrorOf([this] { form.ToolClicked(FormTool::Save); }), -2147217900);
  EXPECT_TRUE(form.State().saved);
}

TEST_F(Save, WritesDoublesWithTheirShortestText) {
  struct Case {
    const char16_t* text;
    const char* written;
  };
  for (const Case& given : {Case{u"0.1", ",0.1)"}, Case{u"100", ",100)"}, Case{u"1e1", ",10)"},
                            Case{u".25", ",0.25)"}, Case{u"12.3456", ",12.3456)"}}) {
    EditorWorld world;
    world.AcceptSaves();
    world.AnswerChecks(false);
    world.AnswerAccountIds();
    world.OpenForEdit();
    world.view.Type(FormField::Percentage, given.text);
    world.form.ToolClicked(FormTool::Save);
    EXPECT_THAT(world.log.Text(), HasSubstr(given.written));
  }
}

TEST_F(Save, EmptiesTheFormForTheNextNewClassWithoutAQuestion) {
  AcceptSaves();
  AnswerChecks(true);
  AnswerAccountIds();
  form.SetMode(kAddMode);
  form.SetMemberList(Members({}, BoltAndNut()));
  form.Load();
  Type(RawMaterials(), u"12.5");
  form.ToolClicked(FormTool::Save);
  const std::string text = log.Text();
  EXPECT_THAT(text, HasSubstr("delete from icPriceDownClass where  FItemClassNumber='' INSERT"));
  EXPECT_EQ(text.substr(text.rfind("release ZEP")),
            "release ZEPConnection.AppConnection\n" + kEmptied + "disable Save\n");
  EXPECT_EQ(form.State().mode, kAddMode);
  EXPECT_EQ(form.State().savedValues, RawMaterials()) << "what was written";
  EXPECT_EQ(form.State().keptCopy.RecordCount(), 2);
  EXPECT_EQ(form.MemberList().RecordCount(), 0);
}

TEST_F(Save, RefusesASecondSaveUnderANewNumberAsADuplicate) {
  Open();
  view.Type(FormField::ClassNumber, u"B");
  form.ToolClicked(FormTool::Save);
  // The rows under B now belong to another class than the opened one.
  AnswerStatement(factory,
                  u"select FItemClassNumber from icPriceDownClass where FItemClassNumber<>'01'",
                  Rows({u"FItemClassNumber"}, {{u"B"}, {u"B"}}));
  log.Clear();
  form.ToolClicked(FormTool::Save);
  EXPECT_THAT(log.Text(), HasSubstr("\"已经存在代码为:B的物料类别,请重新输入物料类别代码！\""));
  EXPECT_EQ(SavedText(), "");
}

TEST_F(Save, TextOfAnEmptyListIsOnlyTheDelete) {
  OpenForAdd();
  EXPECT_EQ(Utf8(SaveText(form.State())),
            "delete from icPriceDownClass where  FItemClassNumber=''");
}

}  // namespace
}  // namespace pricedown
