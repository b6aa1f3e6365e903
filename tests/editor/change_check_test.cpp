// `Check`, `CheckTextSave` and `checkRecord`: what counts as changed.
#include "editor/change_check.h"

#include <gmock/gmock.h>

#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

class ChangeCheck : public EditorTest {
 protected:
  // A class that has been saved once in this showing.
  void OpenSaved() {
    factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
    AnswerChecks(false);
    AnswerAccountIds();
    OpenForEdit();
    form.Save();
    ASSERT_TRUE(form.State().saved);
  }
  bool Unchanged() {
    form.checkRecord();
    return form.State().unchanged;
  }
};

TEST_F(ChangeCheck, FindsTheLoadedHeaderInTheFirstRow) {
  OpenForEdit();
  EXPECT_TRUE(form.Check());
}

TEST_F(ChangeCheck, FindsAnyChangedFieldOfTheHeader) {
  for (const FormField field : kFormFields) {
    EditorWorld world;
    world.OpenForEdit();
    world.view.Type(field, u"13");
    EXPECT_FALSE(world.form.Check()) << NameOf(field);
  }
}

TEST_F(ChangeCheck, ComparesTextsExactlyAndThePercentageAsANumber) {
  OpenForEdit({u"ab", u"名", u"5711", u"1281.1", 12.5}, BoltAndNut());
  view.Type(FormField::Percentage, u" 12.50 ");
  EXPECT_TRUE(form.Check());
  view.Type(FormField::Percentage, u"12.5x");
  EXPECT_FALSE(form.Check()) << "no number is unequal";
  view.Type(FormField::Percentage, u"12.5");
  view.Type(FormField::ClassNumber, u"AB");
  EXPECT_FALSE(form.Check());
}

TEST_F(ChangeCheck, FindsNoHeaderInAnEmptyListOrInNulls) {
  OpenForAdd();
  EXPECT_FALSE(form.Check());
  EditorWorld world;
  world.OpenForEdit();
  world.form.MemberList().MoveFirst();
  world.form.MemberList().SetField(u"FItemClassName", Null{});
  world.view.Type(FormField::ClassName, u"");
  EXPECT_FALSE(world.form.Check());
  world.form.MemberList().SetField(u"FItemClassName", u"");
  EXPECT_TRUE(world.form.Check());
  world.form.MemberList().SetField(u"FPencentPrepare", Null{});
  EXPECT_FALSE(world.form.Check());
}

TEST_F(ChangeCheck, LooksAtTheFirstRowWhateverTheCurrentOne) {
  OpenForEdit();
  form.MemberList().MoveFirst();
  form.MemberList().MoveNext();
  form.MemberList().SetField(u"FItemClassName", u"other");
  EXPECT_TRUE(form.Check());
}

TEST_F(ChangeCheck, ComparesTheFieldsWithTheSavedTexts) {
  OpenForEdit();
  form.CheckTextSave();
  EXPECT_TRUE(form.State().textsUnchanged);
  for (const FormField field : kFormFields) {
    const std::u16string before = view.Text(field);
    view.Type(field, u"13");
    form.CheckTextSave();
    EXPECT_FALSE(form.State().textsUnchanged) << NameOf(field);
    view.Type(field, before);
  }
  form.CheckTextSave();
  EXPECT_TRUE(form.State().textsUnchanged);
}

TEST_F(ChangeCheck, ComparesThePercentageByItsLeadingNumber) {
  OpenForEdit();
  view.Type(FormField::Percentage, u"12.5x");
  form.CheckTextSave();
  EXPECT_TRUE(form.State().textsUnchanged);
  EditorWorld world;
  world.OpenForAdd();
  world.view.Type(FormField::Percentage, u"abc");
  world.form.CheckTextSave();
  EXPECT_TRUE(world.form.State().textsUnchanged) << "no number counts as 0";
}

TEST_F(ChangeCheck, OfANewFormIsUnchangedUntilATextIsTyped) {
  OpenForAdd();
  EXPECT_TRUE(Unchanged());
  view.Type(FormField::ClassName, u"x");
  EXPECT_FALSE(Unchanged());
  view.Type(FormField::ClassName, u"");
  EXPECT_TRUE(Unchanged());
}

TEST_F(ChangeCheck, OfAFormThatListsItemsIsChangedUntilASave) {
  OpenForEdit();
  EXPECT_FALSE(Unchanged()) << "before a save only an empty grid counts as unchanged";
}

TEST_F(ChangeCheck, AfterASaveComparesTheTextsAlone) {
  OpenSaved();
  EXPECT_TRUE(Unchanged());
  form.MemberList().MoveFirst();
  form.MemberList().Delete();
  EXPECT_TRUE(Unchanged()) << "the saved flag decides";
  view.Type(FormField::ClassName, u"x");
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, ComparesItemsOnceTheGridHasAskedForRows) {
  OpenSaved();
  form.RowRequested(1);
  EXPECT_TRUE(Unchanged());
  view.Type(FormField::ClassName, u"x");
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, FindsAnotherItemInTheSamePlace) {
  OpenSaved();
  form.RowRequested(1);
  form.MemberList().MoveFirst();
  form.MemberList().MoveNext();
  form.MemberList().SetField(u"FItemID", 999);
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, FindsAnItemThatLostItsId) {
  OpenSaved();
  form.RowRequested(1);
  form.MemberList().MoveFirst();
  form.MemberList().SetField(u"FItemID", Null{});
  EXPECT_FALSE(Unchanged());
}

// As in a company whose id column is text.
TEST_F(ChangeCheck, FindsAnotherItemAmongIdsOfTexts) {
  factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
  AnswerChecks(false);
  AnswerAccountIds();
  const ClassHeader header = RawMaterials();
  std::vector<std::vector<Value>> rows;
  for (const std::u16string_view id : {u"A-1", u"A-2"}) {
    rows.push_back({id, u"01.001", u"螺钉", u"M4", header.number, header.name, header.lossAccount,
                    header.reserveAccount, header.percentage});
  }
  form.SetMode(0);
  form.SetOpeningNumber(header.number);
  form.SetMemberList(Recordset(
      NewScriptedRecordset(factory.GetRecorder(),
                           Rows({u"FItemID", u"FNumber", u"FName", u"FModel", u"FItemClassNumber",
                                 u"FItemClassName", u"FAPNumber", u"FARNumber", u"FPencentPrepare"},
                                std::move(rows)))));
  form.Load();
  form.Save();
  form.RowRequested(1);
  EXPECT_TRUE(Unchanged());
  form.MemberList().MoveFirst();
  form.MemberList().SetField(u"FItemID", u"A-3");
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, FindsItemsInAnotherOrder) {
  OpenSaved();
  form.RowRequested(1);
  form.MemberList().MoveFirst();
  form.MemberList().SetField(u"FItemID", 102);
  form.MemberList().MoveNext();
  form.MemberList().SetField(u"FItemID", 101);
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, FindsMoreOrFewerItems) {
  OpenSaved();
  form.RowRequested(1);
  form.MemberList().MoveFirst();
  form.MemberList().Delete();
  form.MemberList().Update();
  EXPECT_FALSE(Unchanged());
  EditorWorld world;
  world.factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
  world.AnswerChecks(false);
  world.AnswerAccountIds();
  world.OpenForEdit();
  world.form.Save();
  world.form.RowRequested(1);
  world.form.MemberList().AddNew();
  world.form.MemberList().Update();
  world.form.checkRecord();
  EXPECT_FALSE(world.form.State().unchanged);
}

TEST_F(ChangeCheck, IgnoresOtherColumnsOfTheItems) {
  OpenSaved();
  form.RowRequested(1);
  form.MemberList().MoveFirst();
  form.MemberList().SetField(u"FName", u"other");
  EXPECT_TRUE(Unchanged());
}

TEST(ChangeCheckFailures, ReachTheCallerAndLeaveTheFormOpen) {
  FailEachCallInTurn([](int failingCall) {
    EditorWorld world;
    world.factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
    world.AnswerChecks(false);
    world.AnswerAccountIds();
    world.OpenForEdit();
    world.form.Save();
    world.form.RowRequested(1);
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { world.form.ToolClicked(u"iExit"); });
    const int calls = world.factory.CallCount() - before;
    EXPECT_EQ(error, failingCall == 0 ? std::nullopt : std::optional(kInjectedFailure));
    EXPECT_EQ(world.form.State().loaded, failingCall != 0);
    // A second request closes it.
    world.form.ToolClicked(u"iExit");
    EXPECT_EQ(world.log.Count("unload"), 1u);
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    return calls;
  });
}

}  // namespace
}  // namespace pricedown
