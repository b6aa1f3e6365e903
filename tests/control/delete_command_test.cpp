// Deleting a class from every place that a user can click, from the click to the last repaint.
#include <sstream>

#include "control/price_down.h"
#include "tests/browser/class_deletion.h"
#include "tests/control/dispatch_fixture.h"

namespace pricedown::testing {
namespace {

class DeleteCommand : public Dispatch {
 protected:
  // A company in which class 01 may be deleted; afterwards the tree no longer lists it.
  static void ScriptDeletable(ControlWorld& world) {
    AnswerStatement(world.factory, kTreeStatement, ClassRows({{u"02", u"成品"}}));
    AnswerStatement(world.factory, kVoucher, Rows({u"FVoucherID"}, {}));
    AnswerStatement(world.factory, kHistory, Rows({u"FItemID"}, {}));
    AnswerNothing(world.factory, kDeleteProvision);
    AnswerNothing(world.factory, kDeleteClass);
  }
  void StartDeletable() {
    ScriptDeletable(world_);
    Start();
    world_.questions.WillAnswer({true});
  }

  static std::string TreeLoad() {
    return "tree redraw off\n"
           "tree clear\n"
           "create ZEPConnection.AppConnection\n" +
           ExecuteLine(kTreeStatement) +
           "\nrelease ZEPConnection.AppConnection\n"
           "release result\n"
           "tree insert 1 under 0 \"物料\"\n"
           "tree insert 2 under 1 \"02(成品)\"\n"
           "tree redraw on\n";
  }
  static std::string Deletion() {
    return "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 65536)\n" + std::string(kQuestion) + "yes\n" +
           ReadingThePeriod("P") + ExecuteLine(kVoucher) + "\nrelease result\n" +
           ExecuteLine(kHistory) + "\nrelease result\n" + ExecuteLine(kDeleteProvision) + "\n" +
           ExecuteLine(kDeleteClass) + "\nrelease ZEPConnection.AppConnection\nscreen pointer 0\n" +
           TreeLoad() +
           "tree select 1\n"
           "screen pointer 11\n"
           "release result\n"
           "create ZEPConnection.AppConnection\n" +
           ExecuteLine(kItemsOfRoot) +
           "\nrelease ZEPConnection.AppConnection\n"
           "grid changed 0 rows\n"
           "grid changed 0 rows\n"
           "screen pointer 0\n"
           "screen messages\n"
           // After every click on the tool strip, even if the command has reloaded.
           "screen pointer 11\n" +
           TreeLoad() +
           "screen pointer 0\n"
           "grid changed 0 rows\n";
  }
};

TEST_F(DeleteCommand, RunsCompletelyForTheStripsButton) {
  StartDeletable();
  Control().CommandChosen(Button(u"Del"));
  EXPECT_EQ(world_.log.Text(), Deletion());
  EXPECT_EQ(world_.treeView.texts,
            (std::map<NodeIndex, std::string>{{1, "物料"}, {2, "02(成品)"}}));
}

TEST_F(DeleteCommand, RunsCompletelyForTheHostsTool) {
  StartDeletable();
  Click(u"iCut");
  EXPECT_EQ(world_.log.Text(), "tool.Name()\n" + Deletion() + "release tool\n");
}

TEST_F(DeleteCommand, RunsCompletelyForTheBarsTool) {
  StartDeletable();
  Control().BarList()->Call(u"Click", {u"iCut"});
  EXPECT_EQ(world_.log.Text(), Deletion());
}

// The command selects the root; the reload after every click selects nothing again.
TEST_F(DeleteCommand, LeavesNothingSelectedAfterItsSecondReload) {
  StartDeletable();
  Control().CommandChosen(Button(u"Del"));
  EXPECT_EQ(world_.log.Count("tree select 1"), 1u);
  EXPECT_EQ(world_.log.Count("tree clear"), 2u);
  EXPECT_EQ(world_.treeView.selected, kNoNode);
}

TEST_F(DeleteCommand, EndsWithTheRootForTheHostsOwnCall) {
  StartDeletable();
  Control().delRecord();
  EXPECT_EQ(world_.log.Count("tree clear"), 1u);
  EXPECT_EQ(world_.treeView.selected, 1);
}

TEST_F(DeleteCommand, ReloadsOnceAfterARefusal) {
  struct Refusal {
    bool voucher;
    const char* message;
  };
  for (const Refusal& refusal : {Refusal{true, "本期跌价准备数据已经生成凭证，不得删除物料类别！"},
                                 Refusal{false, "该物料类别在以前期间已有业务发生，不得删除！"}}) {
    ControlWorld world;
    AnswerStatement(world.factory, refusal.voucher ? kVoucher : kHistory,
                    Rows({u"FItemID"}, {{7}}));
    ScriptDeletable(world);
    world.CreateAndInitialize();
    world.control->Show(nullptr);
    RecordingGridView gridView(world.factory.GetRecorder(), world.control->GetGrid());
    world.control->GetGrid().Attach(&gridView);
    world.log.Clear();
    world.questions.WillAnswer({true});
    world.control->CommandChosen(Button(u"Del"));
    world.control->GetGrid().Attach(nullptr);
    EXPECT_EQ(world.log.Text(),
              "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 65536)\n" + std::string(kQuestion) +
                  "yes\n" + ReadingThePeriod("P") + ExecuteLine(kVoucher) + "\nrelease result\n" +
                  (refusal.voucher ? "" : ExecuteLine(kHistory) + "\nrelease result\n") +
                  "screen pointer 0\nmessage information \"岚禾提示\": \"" + refusal.message +
                  "\"\nrelease ZEPConnection.AppConnection\nscreen pointer 11\n" + TreeLoad() +
                  "screen pointer 0\ngrid changed 2 rows\n");
  }
}

// Up to the second delete, a failing call ends the command: nothing runs after it, and what ran
// before it stays done. The reloads after it ignore failures.
TEST_F(DeleteCommand, EndsAtTheCallThatFails) {
  FailEachCallInTurn([](int failingCall) {
    ControlWorld world;
    ScriptDeletable(world);
    world.CreateAndInitialize();
    world.control->Show(nullptr);
    RecordingGridView gridView(world.factory.GetRecorder(), world.control->GetGrid());
    world.control->GetGrid().Attach(&gridView);
    world.log.Clear();
    world.questions.WillAnswer({true});
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const bool failed =
        FailureOf([&] { world.control->CommandChosen(Button(u"Del")); }) != std::string();
    world.questions.ForgetAnswers();  // a failure before the question left it
    const int calls = world.factory.CallCount() - before;
    world.control->GetGrid().Attach(nullptr);
    const std::string log = world.log.Text();
    if (log.find(ExecuteLine(kDeleteClass) + "\n") != std::string::npos) return calls;
    EXPECT_TRUE(failed) << log;
    const std::size_t end = log.find(" fails\n");
    EXPECT_TRUE(Deletion().starts_with(log.substr(0, log.rfind('\n', end) + 1))) << log;
    std::istringstream behind(log.substr(end + 7));
    for (std::string line; std::getline(behind, line);) {
      EXPECT_TRUE(line.starts_with("release ") || line == "screen pointer 0") << log;
    }
    return calls;
  });
}

}  // namespace
}  // namespace pricedown::testing
