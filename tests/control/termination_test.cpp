// The control's end: what it stores, what it releases, and that nothing happens afterwards.
#include "control/price_down.h"
#include "tests/control/control_fixture.h"

namespace pricedown::testing {
namespace {

class Termination : public ::testing::Test {
 protected:
  void Start() {
    world_.CreateAndInitialize();
    world_.control->Show(world_.NewParent());
    world_.log.Clear();
  }

  ControlWorld world_;
};

TEST_F(Termination, SavesTheSelectedKeyAndReleasesEverything) {
  Start();
  world_.control->Terminate();
  EXPECT_EQ(world_.log.Text(), Lines(R"(
      create ZEPEBCBASE.UserProfile
      ZEPEBCBASE.UserProfile.Load("Host", "PriceDown")
      ZEPEBCBASE.UserProfile.Dictionary()
      put dictionary("NodeSel1") = "gi01"
      release dictionary
      ZEPEBCBASE.UserProfile.Save("Host", "PriceDown")
      release ZEPEBCBASE.UserProfile
      release parent
      release form
      release result
      release ZEPEBCGLView.GLData
      release result
      )"));
  EXPECT_EQ(world_.factory.LiveObjects(), 0);
  EXPECT_EQ(world_.control->GetGrid().MaxRows(), 0);
}

TEST_F(Termination, SavesUnderTheKeyOfTheOtherMode) {
  world_.container.caption = u"查询";
  Start();
  world_.control->Terminate();
  EXPECT_EQ(world_.log.Count("put dictionary(\"NodeSel2\") = \"gi01\""), 1u);
}

TEST_F(Termination, SavesNothingWithoutASelection) {
  Start();
  world_.control->CommandChosen(Button(u"sp2"));  // reloads the tree
  world_.log.Clear();
  world_.control->Terminate();
  EXPECT_EQ(world_.log.Text().find("UserProfile"), std::string::npos);
  EXPECT_EQ(world_.factory.LiveObjects(), 0);
}

TEST_F(Termination, SavesNothingForAControlThatWasNeverShown) {
  world_.CreateAndInitialize();
  world_.log.Clear();
  world_.control->Terminate();
  EXPECT_EQ(world_.log.Text(), "release form\n");
}

TEST_F(Termination, DoesNothingASecondTime) {
  Start();
  world_.control->Terminate();
  world_.log.Clear();
  world_.control->Terminate();
  world_.control.reset();
  EXPECT_EQ(world_.log.Text(), "");
  EXPECT_EQ(world_.state.controls, 0);
}

TEST_F(Termination, RunsInTheControlsDestructor) {
  Start();
  world_.control.reset();
  EXPECT_EQ(world_.log.Count("put dictionary(\"NodeSel1\") = \"gi01\""), 1u);
  EXPECT_EQ(world_.factory.LiveObjects(), 0);
}

TEST_F(Termination, ReleasesEverythingAfterAnyFailure) {
  FailEachCallInTurn([&](int failingCall) {
    ControlWorld world;
    world.CreateAndInitialize();
    world.control->Show(world.NewParent());
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    world.control->Terminate();
    const int calls = world.factory.CallCount() - before;
    EXPECT_EQ(world.factory.LiveObjects(), 0);
    EXPECT_EQ(world.control->GetGrid().MaxRows(), 0);
    return calls;
  });
}

TEST_F(Termination, KeepsTheLedgerObjectsForTheRemainingControls) {
  Start();
  auto other = std::make_unique<PriceDown>(PriceDownPorts{
      world_.factory, world_.state, world_.questions, world_.screen, world_.container, world_.view,
      world_.treeView, world_.fontView, u"Host", nullptr, world_.editor, world_.output});
  EXPECT_EQ(world_.state.controls, 2);
  world_.state.ledgerView = world_.factory.NewObject(u"form");
  world_.control.reset();
  EXPECT_NE(world_.state.ledgerData, nullptr);
  EXPECT_NE(world_.state.ledgerView, nullptr);
  other.reset();
  EXPECT_EQ(world_.state.ledgerData, nullptr);
  EXPECT_EQ(world_.state.ledgerView, nullptr);
  EXPECT_EQ(world_.state.controls, 0);
}

TEST_F(Termination, LeavesHostsWithABarThatDoesNothing) {
  Start();
  const ObjectPtr bar = world_.control->BarList();
  world_.control.reset();
  world_.log.Clear();
  bar->Call(u"Click", {u"iInsert"});
  EXPECT_EQ(world_.log.Text(), "");
}

TEST_F(Termination, DisablesEveryMemberAndEvent) {
  Start();
  const ObjectPtr tool = world_.NewTool(u"iInsert");
  const ObjectPtr grid = world_.factory.NewObject(u"grid of the host");
  PriceDown& control = *world_.control;
  control.SplitterDown();
  control.Terminate();
  world_.log.Clear();
  EXPECT_TRUE(control.Show(nullptr));
  control.NotifyMessage(u"Activate");
  control.RefreshToolbar();
  control.ParentWindow_ToolBarClick(tool);
  control.SelBlock(grid, Missing{}, Missing{}, Missing{}, Missing{});
  EXPECT_EQ(control.PreviewPara(), Value());
  EXPECT_EQ(control.PrintPara(), Value());
  EXPECT_EQ(control.ModelCurrent(), Value());
  EXPECT_EQ(control.addRecord(), Value());
  EXPECT_EQ(control.editRecord(), Value());
  EXPECT_EQ(control.delRecord(), Value());
  control.Resized();
  control.SplitterDown();
  control.SplitterMoved(100);
  control.SplitterUp();
  control.StepSplitter(true);
  control.NodeClicked(1);
  control.CommandChosen(Button(u"Exit"));
  EXPECT_EQ(world_.log.Text(), "");
}

}  // namespace
}  // namespace pricedown::testing
