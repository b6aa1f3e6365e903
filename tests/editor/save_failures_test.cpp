// A save of which one call to the suite fails, each in turn.
#include <gmock/gmock.h>

#include "editor/save.h"
#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::HasSubstr;

// A form on a class whose name was changed.
struct ChangedClass : EditorWorld {
  ChangedClass() {
    AcceptSaves();
    AnswerChecks(false);
    AnswerAccountIds();
    OpenForEdit();
    view.Type(FormField::ClassName, u"改名");
    before = factory.CallCount();
  }
  int before = 0;  // calls
};

TEST(SaveFailures, NameTheClassWhoseRowsCouldNotBeUpdated) {
  int named = 0;
  FailEachCallInTurn([&named](int failingCall) {
    ChangedClass world;
    world.factory.FailCall(failingCall);
    const std::string failure = FailureOf([&] { world.form.ToolClicked(FormTool::Save); });
    if (failure.find(" 更新物料失败，物料类别代码：01\r\n") != std::string::npos) ++named;
    return world.factory.CallCount() - world.before;
  });
  EXPECT_GT(named, 0);
}

TEST(SaveFailures, EndTheSaveAndLeaveTheFormUsable) {
  FailEachCallInTurn([](int failingCall) {
    ChangedClass world;
    world.factory.FailCall(failingCall);
    const auto error = ErrorOf([&] { world.form.ToolClicked(FormTool::Save); });
    const int calls = world.factory.CallCount() - world.before;
    EXPECT_FALSE(world.view.tools.at(FormTool::Save)) << "disabled in every case";
    if (failingCall == 0) {
      EXPECT_EQ(error, std::nullopt);
      EXPECT_TRUE(world.form.State().saved);
    } else {
      // A failing step of the stored copy is ignored; any other failure ends the save.
      EXPECT_TRUE(error == std::nullopt || error == kInjectedFailure);
    }
    EXPECT_EQ(world.MemberIds().size(), 2u);
    // The next save succeeds.
    world.log.Clear();
    world.form.ToolClicked(FormTool::Save);
    EXPECT_TRUE(world.form.State().saved);
    EXPECT_THAT(world.log.Text(), HasSubstr("( 102,'01','改名',"));
    world.form.Unload();
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    return calls;
  });
}

}  // namespace
}  // namespace pricedown
