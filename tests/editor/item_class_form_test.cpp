// The form: loading in both modes, captions, events, unloading.
#include "editor/item_class_form.h"

#include <gmock/gmock.h>

#include "tests/editor/editor_test.h"
#include "tests/support/failed_block.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::ElementsAre;

class ItemClassFormTest : public EditorTest {
 protected:
  std::string Field(FormField field) const { return Utf8(view.Text(field)); }
};

TEST_F(ItemClassFormTest, LoadsForANewClassWithEmptyFields) {
  form.SetMemberList(Members({}, {}));
  form.SetMode(kAddMode);
  log.Clear();
  form.Load();
  EXPECT_EQ(log.Text(), Lines(R"(
      caption title = "物料类别维护"
      caption Frame1 = "对应明细物料："
      caption FrameAdd = "物料类别："
      caption Label5 = "计提跌价比例(%)："
      caption Label4 = "对应存货跌价准备科目："
      caption Label3 = "对应存货跌价损失科目："
      caption Label2 = "物料类别名称："
      caption Label1 = "物料类别代码："
      tool 1 = "新增", tip ""
      tool 2 = "保存", tip ""
      tool 4 = "增加物料", tip ""
      tool 5 = "删除物料", tip ""
      tool 7 = "退出", tip "退出"
      create ZEPPropsMgr.ShareProps
      ZEPPropsMgr.ShareProps.GetProperty("PropsString", ref Empty)
      release ZEPPropsMgr.ShareProps
      column 1 width 2000
      column 2 width 2500
      column 3 width 2800
      text itemClassNumber = ""
      text ItemClassName = ""
      text txtitem(0) = ""
      text txtitem(1) = ""
      text txtPencent = ""
      enable Save
      rows 1
      )"));
  EXPECT_EQ(view.tools.count(FormTool::Add), 0u);
}

TEST_F(ItemClassFormTest, LoadsAClassFromItsFirstRow) {
  form.SetMode(0);
  form.SetOpeningNumber(u"01");
  form.SetMemberList(Members(RawMaterials(), BoltAndNut()));
  log.Clear();
  factory.LogRecordsetCalls();
  form.Load();
  const std::string text = log.Text();
  EXPECT_EQ(text.substr(text.find("column 3")), Lines(R"(
      column 3 width 2800
      ADODB.Recordset.MoveFirst()
      disable Add
      ADODB.Recordset.Fields()
      ADODB.Recordset.Fields.Item("FItemClassNumber")
      ADODB.Recordset.Fields("FItemClassNumber").Value()
      text itemClassNumber = "01"
      enable Save
      ADODB.Recordset.Fields()
      ADODB.Recordset.Fields.Item("FItemClassName")
      ADODB.Recordset.Fields("FItemClassName").Value()
      text ItemClassName = "原材料"
      enable Save
      ADODB.Recordset.Fields()
      ADODB.Recordset.Fields.Item("FAPNumber")
      ADODB.Recordset.Fields("FAPNumber").Value()
      text txtitem(0) = "5711"
      enable Save
      ADODB.Recordset.Fields()
      ADODB.Recordset.Fields.Item("FARNumber")
      ADODB.Recordset.Fields("FARNumber").Value()
      text txtitem(1) = "1281.1"
      enable Save
      ADODB.Recordset.Fields()
      ADODB.Recordset.Fields.Item("FPencentPrepare")
      ADODB.Recordset.Fields("FPencentPrepare").Value()
      text txtPencent = "12.5"
      enable Save
      ADODB.Recordset.RecordCount()
      enable Save
      ADODB.Recordset.EOF()
      ADODB.Recordset.GetRows(4096, Missing, ["FNumber", "FName", "FModel"])
      rows 3
      )"));
}

TEST_F(ItemClassFormTest, TreatsAnyModeButOneAsEditing) {
  for (const std::int16_t mode : {std::int16_t{0}, std::int16_t{2}, std::int16_t{-1}}) {
    EditorWorld world;
    world.form.SetMode(mode);
    world.form.SetMemberList(world.Members(RawMaterials(), BoltAndNut()));
    world.form.Load();
    EXPECT_FALSE(world.view.tools.at(FormTool::Add));
    EXPECT_EQ(Utf8(world.view.Text(FormField::ClassNumber)), "01");
  }
}

TEST_F(ItemClassFormTest, ShowsNullColumnsAsEmptyFields) {
  const Recordset members = Members({}, {{7, u"01.007", u"垫圈", Null{}}});
  for (const char16_t* column :
       {u"FItemClassNumber", u"FItemClassName", u"FAPNumber", u"FARNumber", u"FPencentPrepare"}) {
    members.SetField(column, Null{});
  }
  form.SetMemberList(members);
  form.Load();
  for (const FormField field : kFormFields) EXPECT_EQ(Field(field), "") << NameOf(field);
}

TEST_F(ItemClassFormTest, ShowsThePercentageInItsDefaultText) {
  struct Case {
    double percentage;
    const char* text;
  };
  for (const Case& given : {Case{0, "0"}, Case{0.5, "0.5"}, Case{100, "100"},
                            Case{12.3456, "12.3456"}, Case{33.333333, "33.3333"}}) {
    EditorWorld world;
    ClassHeader header = RawMaterials();
    header.percentage = given.percentage;
    world.OpenForEdit(header, BoltAndNut());
    EXPECT_EQ(Utf8(world.view.Text(FormField::Percentage)), given.text);
  }
}

TEST_F(ItemClassFormTest, FillsFieldsUpToTheirMaximumLength) {
  EXPECT_EQ(MaximumLength(FormField::ClassNumber), 40u);
  EXPECT_EQ(MaximumLength(FormField::ClassName), 40u);
  EXPECT_EQ(MaximumLength(FormField::Percentage), 7u);
  EXPECT_EQ(MaximumLength(FormField::LossAccount), 0u);
  EXPECT_EQ(MaximumLength(FormField::ReserveAccount), 0u);
  const std::u16string longText(60, u'x');
  OpenForEdit({longText, longText, longText, longText, 1}, BoltAndNut());
  EXPECT_EQ(view.Text(FormField::ClassNumber).size(), 40u);
  EXPECT_EQ(view.Text(FormField::ClassName).size(), 40u);
  EXPECT_EQ(view.Text(FormField::LossAccount).size(), 60u);
}

// 40 units are 20 of these characters; behind a letter the 40th is half of one.
TEST_F(ItemClassFormTest, CutsNoCharacterOfTwoUnitsInTwo) {
  std::u16string pairs;
  for (int i = 0; i < 25; ++i) pairs += u"𠮷";
  OpenForEdit({pairs, u"x" + pairs, u"5711", u"1281.1", 1}, BoltAndNut());
  EXPECT_EQ(Field(FormField::ClassNumber), Utf8(pairs.substr(0, 40)));
  EXPECT_EQ(Field(FormField::ClassName), Utf8(u"x" + pairs.substr(0, 38)));
  EXPECT_EQ(view.Text(FormField::ClassName).size(), 39u);
}

TEST_F(ItemClassFormTest, StoresASnapshotOfTheShownFields) {
  OpenForEdit();
  EXPECT_EQ(form.State().savedValues, RawMaterials());
  EXPECT_FALSE(form.State().saved);
}

TEST_F(ItemClassFormTest, StoresAnEmptySnapshotForANewClass) {
  OpenForAdd();
  EXPECT_EQ(form.State().savedValues, ClassHeader());
}

TEST_F(ItemClassFormTest, LoadsTheTextsOfOtherLanguagesUnderItsKey) {
  RecordingFactory other(log);
  AllowRecordsets(other);
  other.Object(u"ZEPPropsMgr.ShareProps")
      .On(u"GetProperty", Reply(Value()).Writing(1, u"LANGUAGE=CHT"));
  other.Object(u"ZEPFrmRes.FrmResLoader")
      .AllowPut(u"NeedMLColumnHeaders")
      .On(u"LoadFrmResStrings", Reply(Value()));
  Environment foreign(other, state, questions, screen, u"Host");
  ItemClassForm foreignForm(foreign, view, list);
  view.formObject = other.NewObject(u"form");
  foreignForm.SetMode(kAddMode);
  foreignForm.SetMemberList(Members({}, {}));
  log.Clear();
  foreignForm.Load();
  const std::string text = log.Text();
  EXPECT_THAT(text, ::testing::HasSubstr(Lines(R"(
      create ZEPFrmRes.FrmResLoader
      put ZEPFrmRes.FrmResLoader.NeedMLColumnHeaders = True
      ZEPFrmRes.FrmResLoader.LoadFrmResStrings([form], "Q7INDUSTRY")
      release ZEPFrmRes.FrmResLoader
      )")));
  EXPECT_LT(text.find("caption title"), text.find("LoadFrmResStrings"));
}

TEST_F(ItemClassFormTest, ShowsNothingOnceItHasEndedWhileItsTextsAreLoaded) {
  for (const std::int16_t mode : {kAddMode, std::int16_t{0}}) {
    RecordingFactory other(log);
    AllowRecordsets(other);
    Environment ending(other, state, questions, screen, u"Host");
    ItemClassForm endingForm(ending, view, list);
    other.Object(u"ZEPPropsMgr.ShareProps")
        .On(u"GetProperty", Reply::From([&endingForm](auto) -> Value {
              endingForm.Unload();
              return u"LANGUAGE=chs";
            }));
    endingForm.SetMode(mode);
    endingForm.SetMemberList(Members(RawMaterials(), BoltAndNut()));
    log.Clear();
    EXPECT_EQ(ErrorOf([&] { endingForm.Load(); }), std::nullopt) << mode;
    EXPECT_FALSE(endingForm.IsLoaded());
    EXPECT_THAT(log.Text(), ::testing::Not(::testing::HasSubstr("column 1"))) << log.Text();
  }
}

TEST_F(ItemClassFormTest, ListsTheMembersUnderTheirTitles) {
  OpenForEdit();
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n01.001|螺钉|M4|\n01.002|螺母||\n");
}

TEST_F(ItemClassFormTest, ListsOnlyTheTitlesForANewClass) {
  OpenForAdd();
  EXPECT_EQ(list.RowTexts(), "物料代码|物料名称|规格型号|\n");
}

TEST_F(ItemClassFormTest, EnablesSavingAndForgetsTheSaveWhenRowsAreRead) {
  factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
  AnswerChecks(false);
  AnswerAccountIds();
  OpenForEdit();
  EXPECT_TRUE(view.tools[FormTool::Save]);
  form.ToolClicked(FormTool::Save);
  EXPECT_FALSE(view.tools[FormTool::Save]);
  EXPECT_TRUE(form.State().saved);
  ReadRows();
  EXPECT_TRUE(view.tools[FormTool::Save]);
  EXPECT_FALSE(form.State().saved);
}

TEST_F(ItemClassFormTest, OffersSavingWhenItHasOpened) {
  OpenForAdd();
  EXPECT_TRUE(view.tools.at(FormTool::Save));
}

TEST_F(ItemClassFormTest, EnablesSavingWhenAnyFieldChanges) {
  OpenForEdit();
  for (const FormField field : kFormFields) {
    view.tools[FormTool::Save] = false;
    view.Type(field, u"9");
    EXPECT_TRUE(view.tools[FormTool::Save]) << NameOf(field);
  }
  EXPECT_EQ(log.Count("enable Save"), 5u);
  EXPECT_EQ(log.Size(), 5u);
  EXPECT_FALSE(form.State().saved);
}

TEST_F(ItemClassFormTest, ReleasesEverythingWhenItIsUnloaded) {
  form.SetSecondRecordSet(Members(RawMaterials(), BoltAndNut()));
  OpenForEdit();
  EXPECT_EQ(factory.LiveObjects(), 2);
  form.Unload();
  EXPECT_EQ(log.Count("unload"), 1u);
  EXPECT_EQ(log.Count("release ADODB.Recordset"), 2u);
  EXPECT_EQ(factory.LiveObjects(), 0);
  EXPECT_EQ(form.State().openingNumber, u"");
  EXPECT_EQ(form.State().mode, 0);
  EXPECT_EQ(form.State().rows.Items(), 0);
}

TEST_F(ItemClassFormTest, UnloadsOnceHoweverOftenItIsClosed) {
  OpenForEdit();
  form.Unload();
  form.Unload();
  form.Unload();
  EXPECT_EQ(log.Count("unload"), 1u);
}

TEST_F(ItemClassFormTest, ReleasesItsListWhenItIsNeverShown) {
  form.SetMemberList(Members(RawMaterials(), BoltAndNut()));
  form.Unload();
  EXPECT_EQ(factory.LiveObjects(), 0);
  EXPECT_EQ(log.Count("unload"), 0u);
}

TEST_F(ItemClassFormTest, AsksNothingWhenItsFrameIsClosed) {
  OpenForEdit();
  view.Type(FormField::ClassName, u"changed");
  log.Clear();
  form.Unload();
  EXPECT_EQ(log.Text(), Lines(R"(
      release ADODB.Recordset
      unload
      )"));
}

TEST_F(ItemClassFormTest, IgnoresEventsWhileItIsNotLoaded) {
  for (const FormTool tool :
       {FormTool::Add, FormTool::Save, FormTool::AddItem, FormTool::DelItem, FormTool::Exit}) {
    form.ToolClicked(tool);
  }
  form.FieldChanged();
  form.LookupRequested(FormField::ReserveAccount);
  EXPECT_EQ(log.Text(), "");
}

TEST_F(ItemClassFormTest, OpensAgainAsNew) {
  OpenForEdit();
  form.Unload();
  OpenForAdd();
  EXPECT_EQ(Field(FormField::ClassNumber), "");
  EXPECT_EQ(form.State().openingNumber, u"");
  EXPECT_EQ(form.State().savedValues, ClassHeader());
}

TEST_F(ItemClassFormTest, FailsToLoadAnEmptyListForEditing) {
  form.SetMemberList(Members({}, {}));
  EXPECT_EQ(ErrorOf([&] { form.Load(); }), NumberOf(ErrorNumber::NoCurrentRecord));
  EXPECT_EQ(log.Count("unload"), 1u);
  EXPECT_EQ(factory.LiveObjects(), 0);
}

TEST_F(ItemClassFormTest, FailsToLoadWithoutAList) {
  form.SetMode(kAddMode);
  EXPECT_EQ(ErrorOf([&] { form.Load(); }), NumberOf(ErrorNumber::ObjectNotSet));
  EXPECT_FALSE(form.IsLoaded());
}

TEST(ItemClassFormFailures, UnloadAFormThatCannotBeLoaded) {
  FailEachCallInTurn([](int failingCall) {
    EditorWorld world;
    world.form.SetMode(0);
    world.form.SetMemberList(world.Members(RawMaterials(), BoltAndNut()));
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { world.form.Load(); });
    const int calls = world.factory.CallCount() - before;
    // Without a properties string the language is the built-in one; that is not an error.
    if (failingCall <= 2 || HasFailedBlock(world.log)) {
      EXPECT_EQ(error, std::nullopt);
      EXPECT_TRUE(world.form.IsLoaded());
      world.form.Unload();
    } else {
      EXPECT_EQ(error, kInjectedFailure);
      EXPECT_FALSE(world.form.IsLoaded());
    }
    EXPECT_EQ(world.log.Count("unload"), 1u);
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    // Another showing is possible.
    world.OpenForEdit();
    EXPECT_EQ(world.list.Rows().Items(), 2);
    return calls;
  });
}

}  // namespace
}  // namespace pricedown
