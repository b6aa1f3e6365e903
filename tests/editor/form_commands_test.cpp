// `Add`, `iExit` and the saving tool: questions, clearing, staying and unloading.
#include <gmock/gmock.h>

#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* kAskSave = R"(ask no icon "岚禾提示": "是否保存当前数据？")";
constexpr const char* kAskChanged = R"(ask information "岚禾提示": "当前记录已经改变，是否保存?")";

class FormCommands : public EditorTest {
 protected:
  FormCommands() { factory.Object(kConnectionId).On(u"Execute", Reply(nullptr)); }
  void AllowSave(bool adding) {
    AnswerChecks(adding);
    AnswerAccountIds();
  }
  // A new class with bolts and nuts, not saved.
  void OpenFilledForAdd() {
    form.SetMode(kAddMode);
    form.SetMemberList(Members(RawMaterials(), BoltAndNut()));
    form.Load();
    Type(RawMaterials(), u"12.5");
  }
  void SaveNewClass() {
    AllowSave(true);
    OpenFilledForAdd();
    form.ToolClicked(FormTool::Save);
  }
};

TEST_F(FormCommands, AddClearsListAndFieldsWithoutSavingOnNo) {
  OpenFilledForAdd();
  questions.WillAnswer({false});
  form.ToolClicked(FormTool::Add);
  EXPECT_EQ(log.Text(), std::string(kAskSave) + " -> no\n" + kEmptied);
  EXPECT_EQ(form.MemberList().RecordCount(), 0);
  EXPECT_TRUE(form.MemberList().AtEnd());
}

TEST_F(FormCommands, AddAsksEvenIfNothingWasChanged) {
  OpenForAdd();
  questions.WillAnswer({false});
  form.ToolClicked(FormTool::Add);
  EXPECT_EQ(log.Text(), std::string(kAskSave) + " -> no\nfocus itemClassNumber\n");
}

TEST_F(FormCommands, AddLeavesTheFieldsOfAnEmptyList) {
  OpenForAdd();
  Type(RawMaterials(), u"12.5");
  questions.WillAnswer({false});
  form.ToolClicked(FormTool::Add);
  EXPECT_EQ(Utf8(view.Text(FormField::ClassNumber)), "01");
  EXPECT_EQ(Utf8(view.Text(FormField::Percentage)), "12.5");
  EXPECT_THAT(log.Text(), Not(HasSubstr("rows ")));
}

TEST_F(FormCommands, AddSavesOnYesAndClearsOnce) {
  AllowSave(true);
  OpenFilledForAdd();
  questions.WillAnswer({true});
  form.ToolClicked(FormTool::Add);
  EXPECT_THAT(log.Text(), HasSubstr("INSERT INTO icPriceDownClass"));
  EXPECT_EQ(log.Count("rows 3"), 1u);
  EXPECT_EQ(form.MemberList().RecordCount(), 0);
}

TEST_F(FormCommands, AddKeepsWhatWasTypedWhenTheSaveIsRefused) {
  AllowSave(true);
  OpenFilledForAdd();
  view.Type(FormField::ClassName, u"");
  questions.WillAnswer({true});
  form.ToolClicked(FormTool::Add);
  EXPECT_THAT(log.Text(), Not(HasSubstr("INSERT")));
  EXPECT_EQ(form.MemberList().RecordCount(), 2);
  EXPECT_EQ(Utf8(view.Text(FormField::ClassNumber)), "01");
  EXPECT_EQ(log.Count("focus ItemClassName"), 1u);
}

TEST_F(FormCommands, AddClearsNothingInAFormThatWasClosedWhileItAsked) {
  OpenFilledForAdd();
  const Recordset members = form.MemberList();
  questions.WillAnswer({false});
  questions.whileAsked = [this] { form.Unload(); };
  form.ToolClicked(FormTool::Add);
  EXPECT_EQ(log.Text(), std::string(kAskSave) + " -> no\nunload\n");
  EXPECT_EQ(members.RecordCount(), 2);
}

TEST_F(FormCommands, AddDoesNotAskAfterASave) {
  AllowSave(false);
  OpenForEdit();
  form.ToolClicked(FormTool::Save);
  log.Clear();
  form.ToolClicked(FormTool::Add);
  EXPECT_THAT(log.Text(), Not(HasSubstr("ask")));
  EXPECT_EQ(form.MemberList().RecordCount(), 0);
}

TEST_F(FormCommands, AddKeepsModeAndSnapshot) {
  OpenForEdit();
  questions.WillAnswer({false});
  form.ToolClicked(FormTool::Add);
  EXPECT_EQ(form.State().mode, 0);
  EXPECT_EQ(form.State().savedValues, RawMaterials());
  EXPECT_EQ(form.State().openingNumber, u"01");
}

TEST_F(FormCommands, AddLeavesTheCountOfRows) {
  OpenFilledForAdd();
  questions.WillAnswer({false});
  form.ToolClicked(FormTool::Add);
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n");
  EXPECT_EQ(list.Rows().Count(), 3);
}

TEST_F(FormCommands, CheckRecordSaveCallsNothingAndChangesNothing) {
  OpenForEdit();
  const std::string shown = log.Text();
  const int calls = factory.CallCount();
  form.CheckRecordSave();
  EXPECT_EQ(log.Text(), shown);
  EXPECT_EQ(factory.CallCount(), calls);
  EXPECT_FALSE(form.State().saved);
}

TEST_F(FormCommands, SavingDisablesItsToolOnSuccessAndRefusal) {
  AllowSave(false);
  OpenForEdit();
  form.ToolClicked(FormTool::Save);
  EXPECT_TRUE(form.State().saved);
  EXPECT_FALSE(view.tools[FormTool::Save]);
  view.Type(FormField::ClassName, u"");
  EXPECT_TRUE(view.tools[FormTool::Save]);
  form.ToolClicked(FormTool::Save);
  EXPECT_FALSE(form.State().saved);
  EXPECT_FALSE(view.tools[FormTool::Save]);
}

TEST_F(FormCommands, ASecondNewClassIsSavedAfterTheFirst) {
  SaveNewClass();
  EXPECT_FALSE(form.State().saved);
  form.MemberList().AddNew();
  form.MemberList().SetField(u"FItemID", 301);
  form.MemberList().Update();
  Type({u"02", u"成品", u"5711", u"1281.1", 0}, u"3");
  form.ToolClicked(FormTool::Save);
  EXPECT_THAT(log.Text(), HasSubstr("delete from icPriceDownClass where  FItemClassNumber='' "
                                    "INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,"
                                    "FItemClassName,FAPAccID,FAPNumber,FARAccID,FARNumber,"
                                    "FPencentPrepare)VALUES\\r\\n( 301,'02','成品',"));
}

TEST_F(FormCommands, SavingANewClassLeavesItsToolDisabledOnTheEmptiedForm) {
  SaveNewClass();
  EXPECT_EQ(Utf8(view.Text(FormField::ClassNumber)), "");
  EXPECT_FALSE(view.tools[FormTool::Save]);
  view.Type(FormField::ClassNumber, u"02");
  EXPECT_TRUE(view.tools[FormTool::Save]);
}

// The emptied list is shown anew, which counts as a change.
TEST_F(FormCommands, AddAsksAgainAfterASavedNewClass) {
  SaveNewClass();
  log.Clear();
  questions.WillAnswer({false});
  form.ToolClicked(FormTool::Add);
  EXPECT_EQ(log.Text(), std::string(kAskSave) + " -> no\nfocus itemClassNumber\n");
}

TEST_F(FormCommands, ExitStaysWhenTheEmptiedFormAfterASavedNewClassIsToBeSaved) {
  SaveNewClass();
  log.Clear();
  questions.WillAnswer({true});
  form.ToolClicked(FormTool::Exit);
  EXPECT_EQ(log.Text(), std::string(kAskChanged) + " -> yes\n" + Lines(R"(
      message information "岚禾提示": "请输入数字,物料类别代码不能为空！"
      focus itemClassNumber
      )"));
  EXPECT_TRUE(form.IsLoaded());
}

// More than a double holds.
TEST_F(FormCommands, AHugePercentageIsRefusedByTheCheckAndStopsNoOtherCommand) {
  OpenForEdit();
  view.Type(FormField::Percentage, u"1e999");
  log.Clear();
  form.ToolClicked(FormTool::Save);
  EXPECT_EQ(log.Text(), Lines(R"(
      message information "岚禾提示": "跌价比例有误,数值应位于0-100之间"
      focus txtPencent
      disable Save
      )"));
  questions.WillAnswer({false});
  form.ToolClicked(FormTool::Exit);
  EXPECT_EQ(log.Count("unload"), 1u);
}

TEST_F(FormCommands, SavesNothingInAFormThatWasClosedWhileItAsked) {
  OpenForEdit();
  questions.WillAnswer({true});
  questions.whileAsked = [this] { form.Unload(); };
  form.ToolClicked(FormTool::Exit);
  EXPECT_EQ(log.Text(), std::string(kAskChanged) + " -> yes\n" + Lines(R"(
      release ADODB.Recordset
      unload
      )"));
}

TEST_F(FormCommands, ExitClosesAnUnchangedFormWithoutAQuestion) {
  OpenForAdd();
  form.ToolClicked(FormTool::Exit);
  EXPECT_EQ(log.Text(), Lines(R"(
      release ADODB.Recordset
      unload
      )"));
}

TEST_F(FormCommands, ExitClosesAChangedFormOnNoWithoutSaving) {
  OpenForEdit();
  view.Type(FormField::ClassName, u"改名");
  log.Clear();
  questions.WillAnswer({false});
  form.ToolClicked(FormTool::Exit);
  EXPECT_EQ(log.Text(), std::string(kAskChanged) + " -> no\n" + Lines(R"(
      release ADODB.Recordset
      unload
      )"));
}

TEST_F(FormCommands, ExitSavesOnYesAndUnloadsOnce) {
  AllowSave(false);
  OpenForEdit();
  view.Type(FormField::ClassName, u"改名");
  log.Clear();
  questions.WillAnswer({true});
  form.ToolClicked(FormTool::Exit);
  EXPECT_THAT(log.Text(), HasSubstr("'01','改名',"));
  EXPECT_EQ(log.Count("unload"), 1u);
  EXPECT_EQ(factory.LiveObjects(), 0);
}

TEST_F(FormCommands, ExitUnloadsANewClassAfterItsSave) {
  AllowSave(true);
  OpenFilledForAdd();
  questions.WillAnswer({true});
  form.ToolClicked(FormTool::Exit);
  EXPECT_THAT(log.Text(), HasSubstr("INSERT INTO"));
  EXPECT_EQ(log.Count("unload"), 1u);
}

TEST_F(FormCommands, ExitStaysAfterARefusedSave) {
  OpenForEdit();
  view.Type(FormField::ClassName, u"");
  log.Clear();
  questions.WillAnswer({true});
  form.ToolClicked(FormTool::Exit);
  EXPECT_EQ(log.Count("unload"), 0u);
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_EQ(log.Count("focus ItemClassName"), 1u);
}

// The tool is disabled by its own click alone.
TEST_F(FormCommands, ASaveOfAQuestionThatIsRefusedOrFailsLeavesTheSaveEnabled) {
  for (const FormTool tool : {FormTool::Add, FormTool::Exit}) {
    for (const bool refused : {true, false}) {
      EditorWorld world;
      world.AnswerChecks(false);
      world.AnswerAccountIds();
      world.factory.Object(kConnectionId).On(u"Execute", Reply::Failing(-2147217900, u"超时"));
      world.OpenForEdit();
      if (refused) world.view.Type(FormField::ClassName, u"");
      world.questions.WillAnswer({true});
      EXPECT_EQ(ErrorOf([&] { world.form.ToolClicked(tool); }),
                refused ? std::nullopt : std::optional(-2147217900));
      EXPECT_TRUE(world.form.IsLoaded());
      EXPECT_TRUE(world.view.tools[FormTool::Save]);
    }
  }
}

TEST_F(FormCommands, TheSpacesBetweenItsToolsStartNothing) {
  OpenForEdit();
  for (const std::size_t position : {3U, 6U}) form.ToolClicked(FormTool{position});
  EXPECT_EQ(log.Text(), "");
}

// Only an empty number leaves the flag of an earlier save set.
TEST_F(FormCommands, ExitClosesWithoutSavingAnEmptiedNumberOnceSaved) {
  AllowSave(false);
  OpenForEdit();
  form.ToolClicked(FormTool::Save);
  view.Type(FormField::ClassNumber, u"");
  log.Clear();
  questions.WillAnswer({true});
  form.ToolClicked(FormTool::Exit);
  EXPECT_EQ(log.Text(), std::string(kAskChanged) + " -> yes\n" + Lines(R"(
      message information "岚禾提示": "请输入数字,物料类别代码不能为空！"
      focus itemClassNumber
      release ADODB.Recordset
      release ADODB.Recordset
      unload
      )"));
}

TEST_F(FormCommands, ExitStaysWhenTheSaveFails) {
  EditorWorld world;
  world.AnswerChecks(false);
  world.AnswerAccountIds();
  world.factory.Object(kConnectionId).On(u"Execute", Reply::Failing(-2147217900, u"超时"));
  world.OpenForEdit();
  world.questions.WillAnswer({true});
  EXPECT_EQ(ErrorOf([&] { world.form.ToolClicked(FormTool::Exit); }), -2147217900);
  EXPECT_TRUE(world.form.IsLoaded());
}

TEST_F(FormCommands, ExitAfterASaveAsksNothing) {
  AllowSave(false);
  OpenForEdit();
  form.ToolClicked(FormTool::Save);
  form.ToolClicked(FormTool::Exit);
  EXPECT_THAT(log.Text(), Not(HasSubstr("ask")));
  EXPECT_EQ(log.Count("unload"), 1u);
}

}  // namespace
}  // namespace pricedown
