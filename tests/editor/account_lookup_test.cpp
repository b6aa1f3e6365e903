// The account lookup, by button and by key, and its error handler.
#include "editor/account_lookup.h"

#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;

void PickerAnswers(RecordingFactory& factory, Reply chosen) {
  factory.Object(kLedgerViewId).On(u"AccountLookup", factory.Answering(u"result"));
  factory.Object(u"result").On(u"ReturnObject", std::move(chosen));
  factory.Object(u"account").On(u"Number", Reply(u"1281.10"));
}

class AccountLookup : public EditorTest {
 protected:
  AccountLookup() {
    PickerAnswers(factory, factory.Answering(u"account"));
    OpenForEdit();
  }
};

TEST_F(AccountLookup, WritesTheChosenNumberIntoTheFieldOfTheButton) {
  form.LookupRequested(FormField::ReserveAccount);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPEBCGLView.GLView
      ZEPEBCGLView.GLView.AccountLookup("1281.1")
      result.ReturnObject()
      account.Number()
      text txtitem(1) = "1281.10"
      enable Save
      enable Save
      screen messages
      release account
      release result
      )"));
  EXPECT_EQ(Utf8(view.Text(FormField::LossAccount)), "5711");
}

// A field that keeps its text reports no change.
TEST_F(AccountLookup, EnablesSavingWhenTheFieldHeldTheChosenNumberAlready) {
  view.Type(FormField::LossAccount, u"1281.10");
  view.tools[FormTool::Save] = false;
  form.LookupRequested(FormField::LossAccount);
  EXPECT_TRUE(view.tools[FormTool::Save]);
}

TEST_F(AccountLookup, EnablesNothingInAFormThatWasClosedWhileThePickerWasOpen) {
  factory.Object(u"account").On(u"Number", Reply::From([this](auto) {
                                  form.Unload();
                                  return Value(u"1281.10");
                                }));
  form.LookupRequested(FormField::ReserveAccount);
  form.LookupRequested(FormField::ReserveAccount);
  const std::string text = log.Text();
  EXPECT_EQ(log.Count("unload"), 1u);
  EXPECT_EQ(text.find("enable Save", text.find("unload")), text.npos) << text;
}

TEST_F(AccountLookup, PassesTheTextTrimmed) {
  view.Type(FormField::LossAccount, u"  57 11 ");
  form.LookupRequested(FormField::LossAccount);
  EXPECT_EQ(log.Count(R"(ZEPEBCGLView.GLView.AccountLookup("57 11"))"), 1u);
}

TEST_F(AccountLookup, OpensForEitherAccountField) {
  form.LookupRequested(FormField::LossAccount);
  form.LookupRequested(FormField::ReserveAccount);
  EXPECT_EQ(log.Count(R"(ZEPEBCGLView.GLView.AccountLookup("5711"))"), 1u);
  EXPECT_EQ(log.Count(R"(ZEPEBCGLView.GLView.AccountLookup("1281.1"))"), 1u);
}

TEST_F(AccountLookup, OpensForNoOtherField) {
  for (const FormField field :
       {FormField::ClassNumber, FormField::ClassName, FormField::Percentage}) {
    form.LookupRequested(field);
  }
  EXPECT_EQ(log.Text(), "");
}

TEST_F(AccountLookup, KeepsTheLedgerViewForTheNextTime) {
  form.LookupRequested(FormField::LossAccount);
  form.LookupRequested(FormField::ReserveAccount);
  EXPECT_EQ(log.Count("create ZEPEBCGLView.GLView"), 1u);
  EXPECT_NE(state.ledgerView, nullptr);
}

TEST_F(AccountLookup, LeavesTheTextWhenThePickerIsCancelled) {
  for (const Value& nothing : {Value(), Value(Null{}), Value(nullptr)}) {
    EditorWorld world;
    PickerAnswers(world.factory, Reply(nothing));
    world.OpenForEdit();
    world.form.LookupRequested(FormField::LossAccount);
    EXPECT_EQ(Utf8(world.view.Text(FormField::LossAccount)), "5711");
    EXPECT_EQ(world.log.Text(), Lines(R"(
        create ZEPEBCGLView.GLView
        ZEPEBCGLView.GLView.AccountLookup("5711")
        result.ReturnObject()
        release result
        )"));
  }
}

TEST_F(AccountLookup, ShowsAnErrorAfterALineBreakAndLeavesTheText) {
  EditorWorld world;
  world.factory.Object(kLedgerViewId)
      .On(u"AccountLookup", Reply::Failing(-2147217900, u"登录超时"));
  world.OpenForEdit();
  world.form.LookupRequested(FormField::LossAccount);
  EXPECT_EQ(world.log.Text(), Lines(R"(
      create ZEPEBCGLView.GLView
      ZEPEBCGLView.GLView.AccountLookup("5711")
      message no icon "岚禾提示": "\r\n登录超时"
      )"));
  EXPECT_EQ(Utf8(world.view.Text(FormField::LossAccount)), "5711");
}

TEST_F(AccountLookup, ReportsThatThereIsNoPicker) {
  EditorWorld world;
  world.factory.Refuses(kLedgerViewId);
  world.OpenForEdit();
  world.form.LookupRequested(FormField::LossAccount);
  EXPECT_EQ(world.log.Text(), Lines(R"(
      create ZEPEBCGLView.GLView
      message no icon "岚禾提示": "\r\n不能创建对象: ZEPEBCGLView.GLView"
      )"));
}

TEST_F(AccountLookup, ShowsErrorsOfAnyKind) {
  EditorWorld world;
  PickerAnswers(world.factory, Reply(5));
  world.OpenForEdit();
  world.form.LookupRequested(FormField::LossAccount);
  EXPECT_EQ(world.log.Count(R"(message no icon "岚禾提示": "\r\n未设置对象: ReturnObject")"), 1u);
  world.screen.onMessages = [] { throw std::runtime_error("out of handles"); };
  world.factory.Object(u"result").On(u"ReturnObject", world.factory.Answering(u"account"));
  world.log.Clear();
  world.form.LookupRequested(FormField::LossAccount);
  EXPECT_EQ(world.log.Count(R"(message no icon "岚禾提示": "\r\n意外错误")"), 1u);
}

TEST_F(AccountLookup, SurvivesAFormThatIsClosedInTheMeantime) {
  screen.onMessages = [this] { form.Unload(); };
  form.LookupRequested(FormField::LossAccount);
  EXPECT_EQ(log.Count("unload"), 1u);
  state.ledgerView.reset();
  EXPECT_EQ(factory.LiveObjects(), 0);
}

TEST_F(AccountLookup, ReportsNoFailureOnceTheFormIsClosed) {
  EditorWorld world;
  world.factory.Object(kLedgerViewId).On(u"AccountLookup", Reply::From([&](auto) -> Value {
                                           world.form.Unload();
                                           throw AutomationError(ErrorNumber::Unspecified, u"断开");
                                         }));
  world.OpenForEdit();
  world.form.LookupRequested(FormField::LossAccount);
  EXPECT_EQ(world.log.Lines().back(), "unload");
}

TEST(AccountLookupFailures, AreShownAndEndTheLookup) {
  FailEachCallInTurn([](int failingCall) {
    EditorWorld world;
    PickerAnswers(world.factory, world.factory.Answering(u"account"));
    world.OpenForEdit();
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    world.form.LookupRequested(FormField::LossAccount);
    const int calls = world.factory.CallCount() - before;
    const bool whole = failingCall == 0;
    // The screen is asked after the field is written.
    const bool written = whole || world.log.Count("screen messages fails") > 0;
    EXPECT_EQ(Utf8(world.view.Text(FormField::LossAccount)), written ? "1281.10" : "5711");
    std::size_t messages = 0;
    for (const std::string& line : world.log.Lines()) messages += line.rfind("message", 0) == 0;
    EXPECT_EQ(messages, whole ? 0u : 1u);
    world.form.Unload();
    world.state.ledgerView.reset();
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    return calls;
  });
}

}  // namespace
}  // namespace pricedown
