// The first display and the host's messages.
#include "control/price_down.h"
#include "platform/error.h"
#include "tests/control/control_fixture.h"

namespace pricedown::testing {
namespace {

// The lines of one reading of the user settings.
std::string ReadingOf(const std::string& arguments) {
  return "create ZEPEBCBASE.UserProfile\n"
         "ZEPEBCBASE.UserProfile.Load(\"Host\", \"PriceDown\")\n"
         "ZEPEBCBASE.UserProfile.Dictionary()\n"
         "dictionary.GetValue(" +
         arguments +
         ")\n"
         "release dictionary\n"
         "release ZEPEBCBASE.UserProfile\n";
}

class Show : public ::testing::Test {
 protected:
  void Initialize() {
    world_.CreateAndInitialize();
    world_.log.Clear();
  }
  // Logged by every Show before the tree.
  static std::string LoadingTheTree() {
    return "screen pointer 11\n"
           "tree redraw off\n"
           "create ZEPConnection.AppConnection\n" +
           ExecuteLine(kTreeStatement) +
           "\nrelease ZEPConnection.AppConnection\n"
           "tree insert 1 under 0 \"物料\"\n"
           "tree insert 2 under 1 \"01(原料)\"\n"
           "tree insert 3 under 1 \"02(成品)\"\n"
           "tree redraw on\n"
           "screen pointer 0\n";
  }

  ControlWorld world_;
};

TEST_F(Show, RunsItsStepsInOrder) {
  Initialize();
  const ObjectPtr parent = world_.NewParent();
  EXPECT_TRUE(world_.control->Show(parent));
  EXPECT_EQ(world_.log.Text(),
            "container caption\n"
            "view title \"物料类别维护\"\n"
            "parent.MergeToolBar([object])\n"
            "screen messages\n" +
                LoadingTheTree() +
                "create ZEPEBCGLView.GLData\n"
                "ZEPEBCGLView.GLData.AccessCheck(10, 151, 4194304)\n"
                "screen messages\n" +
                ReadingOf(R"("NodeSel1", "gc0")") +
                "tree select 2\n"
                "screen pointer 11\n"
                "create ZEPConnection.AppConnection\n" +
                ExecuteLine(kItemsOf01) +
                "\nrelease ZEPConnection.AppConnection\n"
                "screen pointer 0\n"
                "screen messages\n" +
                ReadingOf(R"("GridFont", "")") +
                // Read again by the refresh itself.
                ReadingOf(R"("GridFont", "")") + ReadingOf(R"("RptFontSize", 9)") +
                "font label 宋体 9.0\n"
                "font tree 宋体 9.0\n"
                "font label 宋体 9.0\n");
  EXPECT_EQ(world_.control->GetGrid().MaxRows(), 2);
  EXPECT_EQ(world_.state.dataScope, 2);
}

TEST_F(Show, ReadsTheMaintenanceModeFromTheTrimmedCaption) {
  world_.container.caption = u"  物料类别维护 ";
  Initialize();
  world_.control->Show(nullptr);
  EXPECT_EQ(world_.log.Count("view title \"物料类别维护\""), 1u);
  EXPECT_EQ(world_.state.objectType, 10);
  EXPECT_EQ(world_.log.Count(R"(dictionary.GetValue("NodeSel1", "gc0"))"), 1u);
}

TEST_F(Show, UsesTheOtherModeForAnyOtherCaption) {
  for (const std::u16string_view caption :
       {u"物料类别查询", u"", u"物料类别维护1", u"物料 类别维护"}) {
    ControlWorld world;
    world.container.caption = caption;
    world.CreateAndInitialize();
    world.control->Show(nullptr);
    EXPECT_EQ(world.state.objectType, 11);
    EXPECT_EQ(world.log.Count("ZEPEBCGLView.GLData.AccessCheck(11, 151, 4194304)"), 1u);
    EXPECT_EQ(world.log.Count(R"(dictionary.GetValue("NodeSel2", "gc0"))"), 1u);
  }
}

TEST_F(Show, MergesNothingWithoutAParentObject) {
  Initialize();
  for (const Value& none : std::vector<Value>{nullptr, Value(), Missing{}, 5, u"parent"}) {
    EXPECT_TRUE(world_.control->Show(none));
  }
  EXPECT_EQ(world_.log.Text().find("MergeToolBar"), std::string::npos);
  world_.log.Clear();
  world_.control->RefreshToolbar();
  EXPECT_EQ(world_.log.Text(), "");
}

// Its method returns what no value can hold.
class Inconvertible : public AutomationObject {
 public:
  MemberId Find(std::u16string_view) override { return 1; }
  Value Invoke(MemberId, Access, std::span<Value>) override {
    throw AutomationError(ErrorNumber::TypeMismatch, u"answer");
  }
  void Perform(MemberId, std::span<Value>) override { ++performed; }
  int performed = 0;
};

TEST_F(Show, IgnoresWhatMergingReturns) {
  Initialize();
  const auto parent = std::make_shared<Inconvertible>();
  EXPECT_TRUE(world_.control->Show(ObjectPtr(parent)));
  world_.control->RefreshToolbar();
  EXPECT_EQ(parent->performed, 2);
}

TEST_F(Show, AcceptsAParentByReference) {
  Initialize();
  Value parent(world_.NewParent());
  EXPECT_TRUE(world_.control->Show(Value::ByReference(parent)));
  EXPECT_EQ(world_.log.Count("parent.MergeToolBar([object])"), 1u);
}

TEST_F(Show, ToleratesAParentThatRefusesTheToolbar) {
  Initialize();
  world_.factory.Object(u"parent").On(u"MergeToolBar", Reply::Failing(-9, u"没有工具栏"));
  EXPECT_TRUE(world_.control->Show(world_.factory.NewObject(u"parent")));
  EXPECT_EQ(world_.log.Count("release parent"), 0u);
  EXPECT_EQ(world_.log.Lines()[3], "screen messages");
  EXPECT_THROW(world_.control->RefreshToolbar(), AutomationError);
}

TEST_F(Show, PassesItsOwnCommandBarToTheParent) {
  Initialize();
  Value merged;
  world_.factory.Object(u"parent").On(u"MergeToolBar", Reply::From([&](auto arguments) {
                                        merged = arguments[0];
                                        return Value();
                                      }));
  world_.control->Show(world_.factory.NewObject(u"parent"));
  EXPECT_EQ(merged, Value(ObjectPtr(world_.control->BarList())));
  merged = Value();
  world_.control->RefreshToolbar();
  EXPECT_EQ(merged, Value(ObjectPtr(world_.control->BarList())));
}

TEST_F(Show, SelectsNothingForAKeyThatNoLongerExists) {
  world_.company.nodeSetting = u"gi99";
  Initialize();
  world_.control->Show(nullptr);
  EXPECT_EQ(world_.treeView.selected, kNoNode);
  EXPECT_EQ(world_.Messages(), 0u);
  EXPECT_FALSE(world_.control->Browser().currentNode);
}

TEST_F(Show, SelectsNothingForAnEmptyKey) {
  world_.company.nodeSetting = u"";
  Initialize();
  world_.control->Show(nullptr);
  EXPECT_EQ(world_.treeView.selected, kNoNode);
}

TEST_F(Show, SelectsTheRootWhenTheSettingsCannotBeRead) {
  Initialize();
  world_.factory.Refuses(u"ZEPEBCBASE.UserProfile");
  world_.control->Show(nullptr);
  EXPECT_EQ(world_.treeView.selected, 1);
  EXPECT_EQ(world_.log.Count(ExecuteLine(kItemsOfRoot)), 1u);
}

TEST_F(Show, AppliesTheStoredFontInsteadOfTheReportSize) {
  world_.company.gridFont = u"FontName=楷体|FontSize=12|FontBold=True|FontItalic=False";
  Initialize();
  world_.control->Show(nullptr);
  EXPECT_EQ(world_.log.Count(R"(dictionary.GetValue("RptFontSize", 9))"), 0u);
  EXPECT_EQ(world_.log.Count("font tree 楷体 12.0 bold"), 1u);
  EXPECT_EQ(world_.control->GetGrid().CellFont().size, 12);
}

TEST_F(Show, LocksTheGridForADataScopeOfZero) {
  world_.company.grantedMasks = " 1048576 ";
  world_.company.mode = u"2";
  world_.company.nodeSetting = u"gc0";
  Initialize();
  world_.control->Show(nullptr);
  EXPECT_EQ(world_.state.dataScope, 0);
  EXPECT_TRUE(world_.control->GetGrid().IsLocked(4, 2));
}

TEST_F(Show, TakesOverTheDataScopeOfAnotherControlWhenNoneIsGranted) {
  ControlWorld alone;
  alone.company.grantedMasks = "none";
  alone.CreateAndInitialize();
  alone.control->Show(nullptr);
  EXPECT_TRUE(alone.control->GetGrid().IsLocked(4, 1));
  Initialize();
  world_.control->Show(nullptr);
  const std::unique_ptr<PriceDown> first = std::move(world_.control);
  world_.company.grantedMasks = "none";
  Initialize();
  world_.control->Show(nullptr);
  EXPECT_EQ(world_.log.Count("ZEPEBCGLView.GLData.AccessCheck(10, 151, 1048576)"), 1u);
  EXPECT_EQ(world_.state.dataScope, 2);
  EXPECT_TRUE(world_.control->GetGrid().IsLocked(3, 1));
  EXPECT_FALSE(world_.control->GetGrid().IsLocked(4, 1));
}

TEST_F(Show, LocksTheRowsThatTheGridHoldsBeforeANodeIsSelected) {
  world_.company.grantedMasks = " 1048576 ";
  world_.company.nodeSetting = u"";
  Initialize();
  world_.control->GetGrid().SetMaxRows(1);
  world_.control->Show(nullptr);
  EXPECT_TRUE(world_.control->GetGrid().IsLocked(4, 1));
}

TEST_F(Show, ListsAllItemsUnderTheRootWhenProvisionsAreKeptByItem) {
  world_.company.mode = u"2";
  world_.company.nodeSetting = u"gc0";
  Initialize();
  world_.control->Show(nullptr);
  EXPECT_EQ(world_.control->Nodes().Count(), 1u);
  EXPECT_EQ(world_.log.Count(ExecuteLine(kAllItems)), 1u);
  EXPECT_EQ(world_.control->GetGrid().MaxRows(), 2);
}

// After any failure all later steps run, and the only message is the grid's.
TEST_F(Show, NeverFailsAndRunsItsLaterSteps) {
  for (const std::u16string_view gridFont : {u"", u"FontSize=12"}) {
    FailEachCallInTurn([&](int failingCall) {
      ControlWorld world;
      world.company.gridFont = gridFont;
      world.CreateAndInitialize();
      world.log.Clear();
      const int before = world.factory.CallCount();
      world.factory.FailCall(failingCall);
      EXPECT_TRUE(world.control->Show(world.NewParent()));
      world.factory.FailCall(0);
      const int calls = world.factory.CallCount() - before;
      const std::string log = world.log.Text();
      for (const char* step :
           {"container caption", "view title ", "parent.MergeToolBar(", "screen messages",
            "tree redraw on", "create ZEPEBCGLView.GLData", "NodeSel", "GridFont"}) {
        const bool settingsFailed = log.find("UserProfile fails") != log.npos ||
                                    log.find(".Load(\"Host\", \"PriceDown\") fails") != log.npos ||
                                    log.find(".Dictionary() fails") != log.npos;
        if (settingsFailed && (step == std::string("NodeSel") || step == std::string("GridFont"))) {
          continue;
        }
        EXPECT_NE(log.find(step), log.npos) << step << " in\n" << log;
      }
      EXPECT_LE(world.Messages(), 1u);
      world.control.reset();
      EXPECT_EQ(world.factory.LiveObjects(), 0);
      return calls;
    });
  }
}

// The user closes the host's window while messages are processed: nothing more is loaded.
TEST_F(Show, StopsWhenTheControlEndsWhileMessagesRun) {
  for (const int pump : {1, 2, 3}) {
    ControlWorld world;
    world.CreateAndInitialize();
    int pumps = 0;
    std::size_t linesAtEnd = 0;
    world.screen.onMessages = [&] {
      if (++pumps != pump) return;
      world.control->Terminate();
      linesAtEnd = world.log.Size();
    };
    ObjectPtr parent = world.NewParent();
    EXPECT_TRUE(world.control->Show(parent));
    EXPECT_EQ(pumps, pump);
    EXPECT_EQ(world.log.Size(), linesAtEnd) << world.log.Text();
    parent.reset();
    EXPECT_EQ(world.factory.LiveObjects(), 0);
  }
}

TEST_F(Show, PaintsOnlyOnceAfterTheHostHasMergedItsToolbar) {
  Initialize();
  std::vector<bool> painted;
  world_.screen.onMessages = [&] { painted.push_back(world_.screen.paints); };
  world_.control->Show(world_.NewParent());
  EXPECT_EQ(painted, std::vector<bool>({true, false, false}));
  EXPECT_TRUE(world_.screen.paints);
}

TEST_F(Show, PaintsAgainWhenTheControlEndsMeanwhile) {
  Initialize();
  world_.screen.onMessages = [&] { world_.control->Terminate(); };
  world_.control->Show(nullptr);
  EXPECT_TRUE(world_.screen.paints);
}

TEST_F(Show, IgnoresOtherMessagesOfTheHost) {
  Initialize();
  world_.control->Show(nullptr);
  world_.log.Clear();
  for (const std::u16string_view message :
       {u"QueryUnload", u"FirstShow", u"", u"activate", u"ACTIVATE", u"Activate ", u"Deactivate"}) {
    world_.control->NotifyMessage(message);
  }
  EXPECT_EQ(world_.log.Text(), "");
}

TEST_F(Show, RefreshesTheFontWhenTheHostReportsActivate) {
  Initialize();
  world_.control->Show(nullptr);
  world_.log.Clear();
  world_.company.reportSize = u"12";
  world_.control->NotifyMessage(u"Activate");
  EXPECT_EQ(world_.log.Text(), ReadingOf(R"("GridFont", "")") + ReadingOf(R"("RptFontSize", 9)") +
                                   "font label 宋体 12.0\n"
                                   "font tree 宋体 12.0\n"
                                   "font label 宋体 12.0\n");
}

TEST_F(Show, SelectsABlockOfAnyGridForTheHost) {
  Initialize();
  world_.factory.Object(u"grid")
      .AllowPut(u"Col")
      .AllowPut(u"Col2")
      .AllowPut(u"Row")
      .AllowPut(u"Row2")
      .On(u"MaxRows", 9);
  world_.control->SelBlock(world_.factory.NewObject(u"grid"), 1, 3, Missing{}, Missing{});
  EXPECT_EQ(world_.log.Text(), Lines(R"(
      put grid.Col = 1
      put grid.Col2 = 3
      put grid.Row = 1
      grid.MaxRows()
      put grid.Row2 = 9
      release grid
      )"));
}

}  // namespace
}  // namespace pricedown::testing
