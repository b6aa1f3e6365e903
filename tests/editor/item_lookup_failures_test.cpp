// `AddItem` when the picker or an item fails, and when the form ends in the middle.
#include <gmock/gmock.h>

#include "tests/editor/editor_test.h"
#include "tests/editor/item_picker_script.h"
#include "tests/support/failed_block.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class ItemLookupFailures : public EditorTest {
 protected:
  ItemLookupFailures() { ScriptPicker(factory, {}); }
};

TEST_F(ItemLookupFailures, KeepsTheRowsBeforeAnItemThatFails) {
  // Its name is longer than the column.
  ScriptItem(factory, u"long", 203, u"02.003", std::u16string(81, u'长'), u"");
  ChooseBoth(factory);
  factory.Object(u"chosen")
      .On(u"", "1", factory.Answering(u"washer"))
      .On(u"", "2", factory.Answering(u"long"));
  OpenForEdit();
  form.ToolClicked(FormTool::AddItem);
  EXPECT_THAT(MemberIds(), ElementsAre(101, 102, 201, 202));
  log.Clear();
  EXPECT_NE(ErrorOf([this] { form.ToolClicked(FormTool::AddItem); }), std::nullopt);
  // The added rows are shown.
  EXPECT_EQ(log.Count("rows 6"), 1u);
  // The row started for the long name was dropped.
  EXPECT_THAT(MemberIds(), ElementsAre(101, 102, 201, 202, 201));
}

TEST_F(ItemLookupFailures, ShowsNothingAndKeepsTheSaveWhenThePickerFails) {
  factory.Object(kConnectionId).On(u"Execute", Reply(nullptr));
  AnswerChecks(false);
  AnswerAccountIds();
  factory.Object(kLedgerViewId).On(u"ItemLookUp", Reply::Failing(-2147217871, u"超时已过期"));
  Cancel(factory);
  OpenForEdit();
  form.ToolClicked(FormTool::AddItem);
  form.ToolClicked(FormTool::Save);
  ASSERT_TRUE(form.State().saved);
  log.Clear();
  EXPECT_EQ(ErrorOf([this] { form.ToolClicked(FormTool::AddItem); }), -2147217871);
  EXPECT_TRUE(form.State().saved);
  EXPECT_EQ(log.Count("rows 3"), 0u);
}

TEST_F(ItemLookupFailures, StopsWhenTheFormIsClosedWhileMessagesArePending) {
  ChooseBoth(factory);
  OpenForEdit();
  screen.onMessages = [this] { form.Unload(); };
  form.ToolClicked(FormTool::AddItem);
  EXPECT_THAT(log.Text(), ::testing::Not(HasSubstr("rows ")));
  state.ledgerView.reset();
  EXPECT_EQ(factory.LiveObjects(), 0);
}

TEST_F(ItemLookupFailures, AsksForNoItemOnceTheFormHasEndedInItsStatement) {
  EditorWorld world;
  world.factory.Object(u"ZEPEBCBASE.Dictionary").On(u"Add", Reply(Value()));
  world.factory.Object(kConnectionId)
      .On(u"Execute", Arguments({kOthersOf01}), Reply::From([&world](auto) -> Value {
            world.form.Unload();
            return NewScriptedRecordset(world.factory.GetRecorder(), Rows({u"FItemID"}, {{12}}));
          }));
  world.OpenForEdit();
  world.form.ToolClicked(FormTool::AddItem);
  EXPECT_EQ(world.log.Count("unload"), 1u);
  EXPECT_EQ(world.log.Count("create ZEPEBCGLView.GLView"), 0u);
  EXPECT_EQ(world.factory.LiveObjects(), 0);
}

TEST_F(ItemLookupFailures, ShowsNothingInAFormThatWasClosedWhenTheChoiceFails) {
  factory.Object(u"result").On(u"ReturnOK", Reply::From([this](auto) -> Value {
                                 form.Unload();
                                 throw AutomationError(kInjectedFailure, u"断开");
                               }));
  OpenForEdit();
  EXPECT_EQ(ErrorOf([this] { form.ToolClicked(FormTool::AddItem); }), kInjectedFailure);
  const std::string text = log.Text();
  EXPECT_EQ(text.substr(text.find("unload")), "unload\nrelease result\n");
}

TEST(ItemLookupFailuresInTurn, ReachTheCallerAndKeepWholeRows) {
  FailEachCallInTurn([](int failingCall) {
    EditorWorld world;
    ScriptPicker(world.factory, {{12}});
    ChooseBoth(world.factory);
    world.OpenForEdit();
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { world.form.ToolClicked(FormTool::AddItem); });
    const int calls = world.factory.CallCount() - before;
    const bool fails = failingCall != 0 && !HasFailedBlock(world.log);
    EXPECT_EQ(error, fails ? std::optional(kInjectedFailure) : std::nullopt);
    // Every row is complete.
    const std::vector<std::int32_t> ids = world.MemberIds();
    EXPECT_GE(ids.size(), fails ? 2u : 4u);
    for (const std::string& percentage : world.Column(u"FPencentPrepare")) {
      EXPECT_EQ(percentage, "12.5");
    }
    // The form still works: the next lookup appends both items.
    world.form.ToolClicked(FormTool::AddItem);
    EXPECT_EQ(world.MemberIds().size(), ids.size() + 2);
    world.form.Unload();
    world.state.ledgerView.reset();
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    return calls;
  });
}

}  // namespace
}  // namespace pricedown
