// The buttons of the tool strip and the commands behind them.
#include "control/price_down.h"
#include "tests/control/dispatch_fixture.h"

namespace pricedown::testing {
namespace {

TEST_F(Dispatch, RefusesACommandWithoutItsRightAndReloadsAnyway) {
  Start();
  world_.company.grantedMasks = "none";
  for (const RightCase& right :
       {RightCase{u"Print", "32768"}, RightCase{u"PrintView", "32768"}, RightCase{u"Add", "131072"},
        RightCase{u"Edit", "4194304"}, RightCase{u"Del", "65536"}}) {
    world_.log.Clear();
    Control().CommandChosen(Button(right.key));
    EXPECT_EQ(world_.log.Text(), std::string("ZEPEBCGLView.GLData.AccessCheck(1002, 35, ") +
                                     right.mask + ")\n" + kRefusal + Reload())
        << Utf8(right.key);
  }
}

TEST_F(Dispatch, RunsACommandWithItsOwnRightOnly) {
  Start();
  const auto run = [&](std::u16string_view key, const char* mask) {
    world_.company.grantedMasks = std::string(" ") + mask + " ";
    return FailureOf([&] { Control().CommandChosen(Button(key)); });
  };
  EXPECT_EQ(run(u"Print", "32768"), "");
  EXPECT_EQ(world_.log.Count("output print"), 1u);
  EXPECT_EQ(run(u"PrintView", "32768"), "");
  EXPECT_EQ(world_.log.Count("output preview"), 1u);
  EXPECT_EQ(run(u"Add", "131072"), "");
  EXPECT_EQ(world_.log.Count("editor show mode 1 \"\""), 1u);
  EXPECT_EQ(run(u"Edit", "4194304"), "");
  EXPECT_EQ(world_.log.Count("editor show mode 0 \"01\""), 1u);
  Control().NodeClicked(2);
  world_.questions.WillAnswer({false});
  EXPECT_EQ(run(u"Del", "65536"), "");
  EXPECT_EQ(world_.log.Count("ask question \"岚禾提示\": \"确定要删除当前记录? "
                             "当前的物料类别代码为:01  物料类别名称为:原料\" -> no"),
            1u);
}

TEST_F(Dispatch, DoesNotReloadAfterACommandThatFails) {
  Start();
  world_.factory.FailCall(2);
  EXPECT_NE(FailureOf([&] { Control().CommandChosen(Button(u"Add")); }), "");
  EXPECT_EQ(world_.log.Text(),
            "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 131072)\neditor form fails\n");
}

TEST_F(Dispatch, LetsAFailingRightsCheckReachTheCaller) {
  Start();
  world_.factory.FailCall(1);
  EXPECT_NE(FailureOf([&] { Control().CommandChosen(Button(u"Del")); }), "");
  EXPECT_EQ(world_.log.Text(), "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 65536) fails\n");
}

TEST_F(Dispatch, ReloadsForASeparatorAndAsksForNoRight) {
  Start();
  for (const std::u16string_view key : {u"sp2", u"sp3"}) {
    world_.log.Clear();
    Control().CommandChosen(Button(key));
    EXPECT_EQ(world_.log.Text(), Reload()) << Utf8(key);
  }
}

TEST_F(Dispatch, ClosesTheContainerOnExitAndReloadsWhenItStays) {
  Start();
  Control().CommandChosen(Button(u"Exit"));
  EXPECT_EQ(world_.log.Text(), "container close\n" + Reload());
}

TEST_F(Dispatch, TouchesNothingWhenClosingEndedTheControl) {
  Start();
  Control().GetGrid().Attach(nullptr);
  world_.container.onClose = [&] {
    Control().Terminate();
    world_.log.Clear();
  };
  Control().CommandChosen(Button(u"Exit"));
  EXPECT_EQ(world_.log.Text(), "");
}

// As a host that destroys its window and releases the control without another word.
TEST_F(Dispatch, StoresTheSelectedClassWhenClosingDestroyedTheWindow) {
  Start();
  Control().GetGrid().Attach(nullptr);
  world_.container.onClose = [&] { world_.view.hasWindow = false; };
  Control().CommandChosen(Button(u"Exit"));
  EXPECT_EQ(world_.log.Text(), "container close\n");
  Control().Terminate();
  EXPECT_EQ(world_.log.Count("put dictionary(\"NodeSel1\") = \"gi01\""), 1u);
}

TEST_F(Dispatch, ReportsAContainerThatCannotBeClosed) {
  Start();
  world_.factory.FailCall(1);
  EXPECT_NE(FailureOf([&] { Control().CommandChosen(Button(u"Exit")); }), "");
  EXPECT_EQ(world_.log.Text(), "container close fails\n");
}

TEST_F(Dispatch, FillsTheGridForAClickedNode) {
  Start();
  Control().NodeClicked(1);
  EXPECT_EQ(world_.log.Count(ExecuteLine(kItemsOfRoot)), 1u);
  EXPECT_EQ(Control().GetGrid().MaxRows(), 0);
}

TEST_F(Dispatch, AsksBeforeDeletingThroughTheStripAndReloadsAfterNo) {
  Start();
  world_.questions.WillAnswer({false});
  Control().CommandChosen(Button(u"Del"));
  EXPECT_EQ(world_.log.Text(),
            "ZEPEBCGLView.GLData.AccessCheck(1002, 35, 65536)\n"
            "ask question \"岚禾提示\": \"确定要删除当前记录? 当前的物料类别代码为:01  "
            "物料类别名称为:原料\" -> no\n" +
                Reload());
}

TEST_F(Dispatch, DeletesNothingOnceTheControlHasEndedDuringTheQuestion) {
  Start();
  world_.questions.whileAsked = [this] { Control().Terminate(); };
  world_.questions.WillAnswer({true});
  Control().delRecord();
  EXPECT_EQ(world_.log.Text().find("t_voucher"), std::string::npos) << world_.log.Text();
  EXPECT_EQ(world_.log.Text().find("delete"), std::string::npos) << world_.log.Text();
}

TEST_F(Dispatch, DeletesNothingOnceTheControlIsGoneDuringTheQuestion) {
  Start();
  world_.questions.whileAsked = [this] {
    Control().GetGrid().Attach(nullptr);
    world_.control.reset();
  };
  world_.questions.WillAnswer({true});
  Control().delRecord();
  EXPECT_EQ(world_.log.Text().find("t_voucher"), std::string::npos) << world_.log.Text();
}

TEST_F(Dispatch, AsksForAClassInTheHostsOwnCallsAndReloadsNothing) {
  world_.company.nodeSetting = u"gc0";
  Start();
  world_.control->GetGrid().Attach(nullptr);
  EXPECT_EQ(Control().editRecord(), Value());
  EXPECT_EQ(world_.log.Text(), "message information \"岚禾提示\": \"请选择要修改的物料类别\"\n");
  world_.log.Clear();
  EXPECT_EQ(Control().delRecord(), Value());
  EXPECT_EQ(world_.log.Text(), "message information \"岚禾提示\": \"请选择要删除的物料类别\"\n");
}

TEST_F(Dispatch, RunsNoDisabledCommand) {
  world_.company.mode = u"2";
  Start();
  for (const std::u16string_view key : {u"Add", u"Edit", u"Del"}) {
    EXPECT_FALSE(Control().IsEnabled(Button(key))) << Utf8(key);
    Control().CommandChosen(Button(key));
    EXPECT_EQ(world_.log.Text(), "") << Utf8(key);
  }
  EXPECT_TRUE(Control().IsEnabled(Button(u"Exit")));
}

TEST_F(Dispatch, CopiesWhatTheGridHas) {
  Start();
  const ControlCommand& copy =
      *CommandOfPress({.key = Key::C, .control = true}, surface::kGridMenu);
  Control().CommandChosen(copy);
  EXPECT_EQ(world_.log.Text(), "view copy\n");
  Control().CommandChosen(
      *CommandOfPress({.key = Key::C, .shift = true, .control = true}, surface::kGridMenu));
  EXPECT_EQ(world_.log.Text(), "view copy\nview copy titled\n");
  Control().NodeClicked(1);
  world_.log.Clear();
  EXPECT_FALSE(Control().IsEnabled(copy));
  Control().CommandChosen(copy);
  EXPECT_EQ(world_.log.Text(), "");
}

}  // namespace
}  // namespace pricedown::testing
