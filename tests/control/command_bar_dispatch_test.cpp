// Clicks on tools of the command bar: the control's own, and those that a host forwards.
#include "control/price_down.h"
#include "platform/error.h"
#include "tests/control/dispatch_fixture.h"

namespace pricedown::testing {
namespace {

const ControlCommand& Refresh() { return *CommandOfTool(u"iRefresh"); }

TEST_F(Dispatch, ClosesTheContainerForTheHostsExitTool) {
  Start();
  Click(u"iExit");
  EXPECT_EQ(world_.log.Text(), "tool.Name()\ncontainer close\nrelease tool\n");
}

TEST_F(Dispatch, SendsClassToolsThroughTheStripButtons) {
  Start();
  world_.company.grantedMasks = "none";
  for (const RightCase& right : {RightCase{u"iInsert", "131072"}, RightCase{u"iEdit", "4194304"},
                                 RightCase{u"iCut", "65536"}}) {
    world_.log.Clear();
    Click(right.key);
    EXPECT_EQ(world_.log.Text(), "tool.Name()\nZEPEBCGLView.GLData.AccessCheck(1002, 35, " +
                                     std::string(right.mask) + ")\n" + kRefusal + Reload() +
                                     "release tool\n")
        << Utf8(right.key);
  }
}

TEST_F(Dispatch, PrintsFromTheBarWithoutAskingForTheRight) {
  Start();
  world_.company.grantedMasks = "none";
  for (const std::u16string_view key : {u"iPrint", u"iPrintPreView"}) {
    world_.log.Clear();
    Click(key);
    EXPECT_EQ(world_.log.Text().find("AccessCheck"), std::string::npos) << world_.log.Text();
    EXPECT_EQ(world_.log.Count(key == u"iPrint" ? "output print" : "output preview"), 1u)
        << world_.log.Text();
  }
}

TEST_F(Dispatch, RefreshesTheCurrentNode) {
  Start();
  Click(u"iRefresh");
  EXPECT_EQ(world_.log.Text(),
            "tool.Name()\n"
            "screen pointer 11\n"
            "release result\n"
            "create ZEPConnection.AppConnection\n" +
                ExecuteLine(kItemsOf01) +
                "\nrelease ZEPConnection.AppConnection\n"
                "grid changed 0 rows\n"
                "grid changed 2 rows\n"
                "grid changed 2 rows\n"
                "screen pointer 0\n"
                "release tool\n");
}

// Editing has moved the grid's rows into the form.
TEST_F(Dispatch, EditsAndDeletesAnEditedClassAgainAfterARefresh) {
  Start();
  Control().CommandChosen(Button(u"Edit"));
  Click(u"iRefresh");
  world_.log.Clear();
  Control().CommandChosen(Button(u"Edit"));
  EXPECT_EQ(world_.log.Count("editor show mode 0 \"01\""), 1u);
  Control().CommandChosen(Refresh());
  world_.log.Clear();
  world_.questions.WillAnswer({false});
  Control().CommandChosen(Button(u"Del"));
  EXPECT_EQ(world_.log.Count("ask question \"岚禾提示\": \"确定要删除当前记录? "
                             "当前的物料类别代码为:01  物料类别名称为:原料\" -> no"),
            1u);
}

TEST_F(Dispatch, RefreshesNothingBeforeANodeWasSelected) {
  world_.company.nodeSetting = u"";
  Start();
  Click(u"iRefresh");
  EXPECT_EQ(world_.log.Text(), "tool.Name()\nrelease tool\n");
}

TEST_F(Dispatch, RefreshesForAKeyAsForTheToolAndAddsNoTool) {
  Start();
  Click(u"iRefresh");
  const std::string clicked = world_.log.Text();
  const std::string effects = clicked.substr(clicked.find('\n') + 1);
  world_.log.Clear();
  Control().CommandChosen(Refresh());
  EXPECT_EQ(world_.log.Text() + "release tool\n", effects);
  EXPECT_EQ(Control().BarList()->Tool(u"iRefresh"), nullptr);
}

TEST_F(Dispatch, RefreshesForNoKeyWhileTheHostHasDisabledTheTool) {
  Start();
  Control().BarList()->Add({u"iRefresh", u"", u"", u""})->SetEnabled(false);
  Control().CommandChosen(Refresh());
  EXPECT_EQ(world_.log.Text(), "");
  EXPECT_FALSE(Control().IsEnabled(Refresh()));
  EXPECT_TRUE(Control().IsEnabled(Button(u"Print")));
}

// The host releases the control during a call to the suite; the click keeps it alive to its end.
TEST_F(Dispatch, LivesAsLongAsAClickOnItsBar) {
  std::shared_ptr<PriceDown> owner;
  world_.hold = [&]() -> std::shared_ptr<void> { return owner; };
  Start();
  Control().GetGrid().Attach(nullptr);
  owner = std::move(world_.control);
  const std::weak_ptr<PriceDown> watch = owner;
  bool alive = false;
  world_.factory.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Arguments({kItemsOf01}), Reply::From([&](auto) {
            owner.reset();
            alive = !watch.expired();
            return NewScriptedRecordset(world_.factory.GetRecorder(), ItemRows({}));
          }));
  const std::shared_ptr<CommandBar> bar = owner->BarList();
  bar->Add({u"iRefresh", u"", u"", u""});
  bar->Click(u"iRefresh");
  EXPECT_TRUE(alive);
  EXPECT_TRUE(watch.expired());
  EXPECT_EQ(world_.factory.LiveObjects(), 0);
}

TEST_F(Dispatch, DoesNothingForAnyOtherKey) {
  Start();
  for (const std::u16string_view key :
       {u"mnuEdit", u"", u"iexit", u"IINSERT", u"Add", u"Del", u"Exit", u"iPrintPreview"}) {
    world_.log.Clear();
    Click(key);
    EXPECT_EQ(world_.log.Text(), "tool.Name()\nrelease tool\n") << Utf8(key);
  }
}

TEST_F(Dispatch, RefusesAClickWithoutATool) {
  Start();
  EXPECT_THROW(Control().ParentWindow_ToolBarClick(nullptr), AutomationError);
}

TEST_F(Dispatch, InvertsTheHostsOwnToolBeforeTheLayout) {
  Start();
  const ObjectPtr tool = world_.NewTool(u"iToolBar", true);
  Control().ParentWindow_ToolBarClick(tool);
  EXPECT_EQ(world_.log.Text(), Lines(R"(
      tool.Name()
      put tool.Checked = False
      view place
      )"));
}

// For any initial state of the host's own tool.
TEST_F(Dispatch, RestoresTheLayoutWithTheSecondPressOfAnyTool) {
  Start();
  const Layout before = world_.view.placed;
  for (const bool checked : {true, false}) {
    const auto tool =
        std::make_shared<CommandBarTool>(CommandBarTool::Definition{u"iToolBar", {}, {}, {}});
    tool->SetChecked(checked);
    Control().ParentWindow_ToolBarClick(tool);
    EXPECT_EQ(world_.view.placed.toolStrip.height, 0) << checked;
    EXPECT_FALSE(tool->Checked());
    Control().ParentWindow_ToolBarClick(tool);
    EXPECT_EQ(world_.view.placed, before) << checked;
    EXPECT_TRUE(tool->Checked());
  }
  EXPECT_EQ(Control().BarList()->Tools().size(), 4u);
}

TEST_F(Dispatch, TogglesForAToolWithoutAState) {
  Start();
  for (const std::u16string_view name : {u"iToolBar", u"mnuViewStatusBar"}) {
    world_.factory.Object(u"bare").On(u"Name", std::u16string(name)).Lacks(u"Checked");
    const ObjectPtr tool = world_.factory.NewObject(u"bare");
    const Layout before = world_.view.placed;
    Control().ParentWindow_ToolBarClick(tool);
    const Layout& placed = world_.view.placed;
    EXPECT_EQ((name == u"iToolBar" ? placed.toolStrip : placed.statusBar).height, 0) << Utf8(name);
    Control().ParentWindow_ToolBarClick(tool);
    EXPECT_EQ(world_.view.placed, before) << Utf8(name);
  }
}

TEST_F(Dispatch, NotifiesTheListenerOfAForwardedClickAfterItsCommand) {
  Start();
  std::string clicked;
  world_.factory.Object(u"listener").On(u"ToolChanged", Value());
  world_.factory.Object(u"listener").On(u"ToolClicked", Reply::From([&](auto arguments) {
                                          clicked += Readable(arguments[0].Object()->Get(u"Name"));
                                          clicked +=
                                              Readable(arguments[0].Object()->Get(u"Caption"));
                                          return Value();
                                        }));
  Control().BarList()->Add({u"iRefresh", u"刷新", {}, {}});
  Control().BarList()->SetListener(world_.factory.NewObject(u"listener"));
  Click(u"iRefresh");
  // The bar's own tool, not the host's.
  EXPECT_EQ(clicked, "\"iRefresh\"\"刷新\"");
  EXPECT_LT(world_.log.Text().find("Execute"), world_.log.Text().find("ToolClicked"));
  Click(u"iUnknown");
  Click(u"IREFRESH");
  Control().BarList()->Tool(u"iCut")->SetEnabled(false);
  Click(u"iCut");
  EXPECT_EQ(clicked, "\"iRefresh\"\"刷新\"");
}

TEST_F(Dispatch, NotifiesTheListenerOfAForwardedClickOnAToolWithoutACommand) {
  Start();
  std::string clicked;
  world_.factory.Object(u"listener").On(u"ToolChanged", Value());
  world_.factory.Object(u"listener").On(u"ToolClicked", Reply::From([&](auto arguments) {
                                          clicked +=
                                              Readable(arguments[0].Object()->Get(u"Caption"));
                                          return Value();
                                        }));
  const auto tool = Control().BarList()->Add({u"hostReport", u"报表", {}, {}});
  Control().BarList()->SetListener(world_.factory.NewObject(u"listener"));
  Click(u"HOSTREPORT");
  EXPECT_EQ(clicked, "\"报表\"");
  tool->SetEnabled(false);
  Click(u"hostReport");
  EXPECT_EQ(clicked, "\"报表\"");
}

TEST_F(Dispatch, OnlyFollowsTheHostsToolOfTheStatusBar) {
  Start();
  for (const bool checked : {false, true}) {
    world_.log.Clear();
    Control().ParentWindow_ToolBarClick(world_.NewTool(u"mnuViewStatusBar", checked));
    EXPECT_EQ(world_.log.Text(), Lines(R"(
        tool.Name()
        tool.Checked()
        view place
        release tool
        )"));
  }
}

TEST_F(Dispatch, TogglesTheBarsOwnTool) {
  Start();
  const auto own = Control().BarList()->Add({u"iToolBar", {}, {}, {}});
  Control().BarList()->Click(u"iToolBar");
  EXPECT_FALSE(own->Checked());
  EXPECT_EQ(world_.view.placed.toolStrip.height, 0);
  Control().BarList()->Click(u"iToolBar");
  EXPECT_TRUE(own->Checked());
  EXPECT_GT(world_.view.placed.toolStrip.height, 0);
}

TEST_F(Dispatch, ShowsTheStatusBarOnlyWhileItsToolIsChecked) {
  Start();
  const auto tool =
      std::make_shared<CommandBarTool>(CommandBarTool::Definition{u"mnuViewStatusBar", {}, {}, {}});
  tool->SetChecked(false);
  Control().ParentWindow_ToolBarClick(tool);
  EXPECT_FALSE(tool->Checked());
  EXPECT_EQ(world_.view.placed.statusBar.height, 0);
  tool->SetChecked(true);
  Control().ParentWindow_ToolBarClick(tool);
  EXPECT_TRUE(tool->Checked());
  EXPECT_GT(world_.view.placed.statusBar.height, 0);
}

TEST_F(Dispatch, RunsNoClassCommandForAForwardedClickOnADisabledTool) {
  world_.company.mode = u"2";
  Start();
  for (const std::u16string_view name : {u"iInsert", u"iEdit", u"iCut"}) {
    world_.log.Clear();
    Click(name);
    EXPECT_EQ(world_.log.Text(), "tool.Name()\nrelease tool\n") << Utf8(name);
  }
}

// A host may close the control wherever it is called.
TEST_F(Dispatch, DoesNothingOnceTheHostHasClosedTheControlWhenAskedForTheToolsName) {
  Start();
  Control().GetGrid().Attach(nullptr);
  world_.factory.Object(u"tool").On(u"Name", Reply::From([this](auto) {
                                      Control().Terminate();
                                      world_.log.Clear();
                                      return u"iExit";
                                    }));
  Control().ParentWindow_ToolBarClick(world_.factory.NewObject(u"tool"));
  EXPECT_EQ(world_.log.Text(), "release tool\n");
}

TEST_F(Dispatch, SkipsTheLayoutOnceTheListenerHasClosedTheControl) {
  Start();
  Control().GetGrid().Attach(nullptr);
  Control().BarList()->Add({u"iToolBar", {}, {}, {}});
  world_.factory.Object(u"listener").On(u"ToolChanged", Reply::From([this](auto) {
                                          Control().Terminate();
                                          return Value();
                                        }));
  Control().BarList()->SetListener(world_.factory.NewObject(u"listener"));
  Control().BarList()->Click(u"iToolBar");
  EXPECT_EQ(world_.log.Count("view place"), 0u) << world_.log.Text();
}

TEST_F(Dispatch, NotifiesTheListenerOfARefreshByKeyAsOfAClick) {
  Start();
  std::string clicked;
  world_.factory.Object(u"listener").On(u"ToolClicked", Reply::From([&](auto arguments) {
                                          clicked += Readable(arguments[0].Object()->Get(u"Name"));
                                          return Value();
                                        }));
  Control().BarList()->Add({u"iRefresh", {}, {}, {}});
  Control().BarList()->SetListener(world_.factory.NewObject(u"listener"));
  Control().CommandChosen(Refresh());
  EXPECT_EQ(clicked, "\"iRefresh\"");
}

}  // namespace
}  // namespace pricedown::testing
