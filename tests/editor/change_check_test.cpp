// What counts as a changed header and a changed form.
#include "editor/change_check.h"

#include <gmock/gmock.h>

#include "tests/editor/editor_test.h"
#include "tests/support/failed_block.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

bool Carried(const EditorWorld& world) {
  return CarriesHeader(world.form.MemberList(), ReadHeader(world.view));
}

bool SameTexts(const EditorWorld& world) {
  return ReadHeader(world.view) == world.form.State().savedValues;
}

class ChangeCheck : public EditorTest {
 protected:
  // A class that has been saved once in this showing.
  void OpenSaved() {
    factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
    AnswerChecks(false);
    AnswerAccountIds();
    OpenForEdit();
    form.ToolClicked(FormTool::Save);
    ASSERT_TRUE(form.State().saved);
  }
  bool Unchanged() { return IsUnchanged(form.State(), ReadHeader(view)); }
};

TEST_F(ChangeCheck, FindsTheLoadedHeaderInTheFirstRow) {
  OpenForEdit();
  EXPECT_TRUE(Carried(*this));
}

TEST_F(ChangeCheck, FindsAnyChangedFieldOfTheHeader) {
  for (const FormField field : kFormFields) {
    EditorWorld world;
    world.OpenForEdit();
    world.view.Type(field, u"13");
    EXPECT_FALSE(Carried(world)) << NameOf(field);
  }
}

TEST_F(ChangeCheck, ComparesTextsExactlyAndThePercentageAsANumber) {
  OpenForEdit({u"ab", u"名", u"5711", u"1281.1", 12.5}, BoltAndNut());
  view.Type(FormField::Percentage, u" 12.50 ");
  EXPECT_TRUE(Carried(*this));
  view.Type(FormField::Percentage, u"12.5x");
  EXPECT_FALSE(Carried(*this)) << "no number is unequal";
  view.Type(FormField::Percentage, u"12.5");
  view.Type(FormField::ClassNumber, u"AB");
  EXPECT_FALSE(Carried(*this));
}

TEST_F(ChangeCheck, FindsNoHeaderInAnEmptyListOrInNulls) {
  OpenForAdd();
  EXPECT_FALSE(Carried(*this));
  EditorWorld world;
  world.OpenForEdit();
  world.form.MemberList().MoveFirst();
  world.form.MemberList().SetField(u"FItemClassName", Null{});
  world.view.Type(FormField::ClassName, u"");
  EXPECT_FALSE(Carried(world));
  world.form.MemberList().SetField(u"FItemClassName", u"");
  EXPECT_TRUE(Carried(world));
  world.form.MemberList().SetField(u"FPencentPrepare", Null{});
  EXPECT_FALSE(Carried(world));
}

TEST_F(ChangeCheck, ReadsTheFirstRowAndNotTheCurrentOne) {
  OpenForEdit();
  form.MemberList().MoveFirst();
  form.MemberList().MoveNext();
  form.MemberList().SetField(u"FItemClassName", u"other");
  EXPECT_TRUE(Carried(*this));
}

TEST_F(ChangeCheck, ComparesTheFieldsWithTheSavedTexts) {
  OpenForEdit();
  EXPECT_TRUE(SameTexts(*this));
  for (const FormField field : kFormFields) {
    const std::u16string before = view.Text(field);
    view.Type(field, u"13");
    EXPECT_FALSE(SameTexts(*this)) << NameOf(field);
    view.Type(field, before);
  }
  EXPECT_TRUE(SameTexts(*this));
}

TEST_F(ChangeCheck, ComparesThePercentageByItsLeadingNumber) {
  OpenForEdit();
  view.Type(FormField::Percentage, u"12.5x");
  EXPECT_TRUE(SameTexts(*this));
  EditorWorld world;
  world.OpenForAdd();
  world.view.Type(FormField::Percentage, u"abc");
  EXPECT_TRUE(SameTexts(world)) << "no number counts as 0";
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
  EXPECT_FALSE(Unchanged()) << "before a save only an empty list counts as unchanged";
}

TEST_F(ChangeCheck, AfterASaveComparesOnlyTheTexts) {
  OpenSaved();
  EXPECT_TRUE(Unchanged());
  form.MemberList().MoveFirst();
  form.MemberList().Delete();
  EXPECT_TRUE(Unchanged()) << "the saved flag decides";
  view.Type(FormField::ClassName, u"x");
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, WithoutAKeptCopyCountsTheRowsOnceTheyHaveBeenReadAgain) {
  factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
  AnswerChecks(false);
  AnswerAccountIds();
  OpenForEdit();
  factory.Refuses(u"ADODB.Recordset");
  form.ToolClicked(FormTool::Save);
  ASSERT_FALSE(form.State().keptCopy);
  EXPECT_TRUE(Unchanged()) << "the saved flag decides";
  ReadRows();
  EXPECT_FALSE(Unchanged()) << "a form with items is changed";
}

TEST_F(ChangeCheck, ComparesItemsOnceTheRowsHaveBeenReadAgain) {
  OpenSaved();
  ReadRows();
  EXPECT_TRUE(Unchanged());
  view.Type(FormField::ClassName, u"x");
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, FindsAnotherItemInTheSamePlace) {
  OpenSaved();
  ReadRows();
  form.MemberList().MoveFirst();
  form.MemberList().MoveNext();
  form.MemberList().SetField(u"FItemID", 999);
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, FindsAnItemThatLostItsId) {
  OpenSaved();
  ReadRows();
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
  form.ToolClicked(FormTool::Save);
  ReadRows();
  EXPECT_TRUE(Unchanged());
  form.MemberList().MoveFirst();
  form.MemberList().SetField(u"FItemID", u"A-3");
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, FindsItemsInAnotherOrder) {
  OpenSaved();
  ReadRows();
  form.MemberList().MoveFirst();
  form.MemberList().SetField(u"FItemID", 102);
  form.MemberList().MoveNext();
  form.MemberList().SetField(u"FItemID", 101);
  EXPECT_FALSE(Unchanged());
}

TEST_F(ChangeCheck, FindsMoreOrFewerItems) {
  OpenSaved();
  ReadRows();
  form.MemberList().MoveFirst();
  form.MemberList().Delete();
  form.MemberList().Update();
  EXPECT_FALSE(Unchanged());
  EditorWorld world;
  world.factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
  world.AnswerChecks(false);
  world.AnswerAccountIds();
  world.OpenForEdit();
  world.form.ToolClicked(FormTool::Save);
  world.ReadRows();
  world.form.MemberList().AddNew();
  world.form.MemberList().Update();
  EXPECT_FALSE(IsUnchanged(world.form.State(), ReadHeader(world.view)));
}

TEST_F(ChangeCheck, IgnoresOtherColumnsOfTheItems) {
  OpenSaved();
  ReadRows();
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
    world.form.ToolClicked(FormTool::Save);
    world.ReadRows();
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { world.form.ToolClicked(FormTool::Exit); });
    const int calls = world.factory.CallCount() - before;
    const bool fails = failingCall != 0 && !HasFailedBlock(world.log);
    EXPECT_EQ(error, fails ? std::optional(kInjectedFailure) : std::nullopt);
    EXPECT_EQ(world.form.IsLoaded(), fails);
    // A second request closes it.
    world.form.ToolClicked(FormTool::Exit);
    EXPECT_EQ(world.log.Count("unload"), 1u);
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    return calls;
  });
}

}  // namespace
}  // namespace pricedown
