// What a click on a node does, the restored selection and the refresh.
#include "browser/class_tree.h"
#include "platform/error.h"
#include "tests/browser/browser_fixture.h"

namespace pricedown::testing {
namespace {

class NodeClick : public BrowserFixture {
 protected:
  NodeClick() {
    AnswerStatement(factory_, kTreeStatement, ClassRows({{u"00", u"空"}, {u"01", u"原料"}}));
    AnswerStatement(factory_, kItemsOf01, ItemRows(kTwoItems));
    AnswerStatement(factory_, kItemsOfRoot, ItemRows({}));
    tree_.LoadClassTree();
    log_.Clear();
  }

  static constexpr NodeIndex kRoot = 1;
  static constexpr NodeIndex kClass01 = 3;
};

TEST_F(NodeClick, FillsTheGridUnderTheHourglassAndLetsMessagesRun) {
  tree_.NodeClick(kClass01);
  EXPECT_EQ(log_.Text(), Lines("screen pointer 11\n"
                               "create ZEPConnection.AppConnection\n" +
                               ExecuteLine(kItemsOf01) +
                               "\nrelease ZEPConnection.AppConnection\n"
                               "screen pointer 0\n"
                               "screen messages\n"));
  EXPECT_EQ(CellOf(1, 2), "01.002");
}

TEST_F(NodeClick, MakesTheNodeTheCurrentOne) {
  EXPECT_FALSE(state_.currentNode);
  tree_.NodeClick(kClass01);
  EXPECT_EQ(state_.currentNode, NodeId::OfClass(u"01"));
  tree_.NodeClick(kRoot);
  EXPECT_EQ(state_.currentNode, NodeId{});
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 0);
}

TEST_F(NodeClick, DoesNothingWithoutANode) {
  tree_.NodeClick(kNoNode);
  tree_.NodeClick(-1);
  tree_.NodeClick(4);
  EXPECT_EQ(log_.Text(), "");
  EXPECT_FALSE(state_.currentNode);
}

TEST_F(NodeClick, RestoresThePointerAfterAFailedLoad) {
  FailStatement(factory_, kItemsOf01, -5, u"表被锁定");
  tree_.NodeClick(kClass01);
  log_.Clear();
  tree_.NodeClick(kClass01);
  EXPECT_EQ(log_.Text(), Lines("screen pointer 11\n"
                               "release result\n"
                               "create ZEPConnection.AppConnection\n" +
                               ExecuteLine(kItemsOf01) +
                               "\nrelease ZEPConnection.AppConnection\n"
                               "message information \"岚禾提示\": \"表被锁定\"\n"
                               "screen pointer 0\n"
                               "screen messages\n"));
}

TEST_F(NodeClick, RunsItsLaterStepsAfterAnyFailure) {
  FailEachCallInTurn([&](int failingCall) {
    const int before = factory_.CallCount();
    log_.Clear();
    factory_.FailCall(failingCall);
    tree_.NodeClick(kClass01);
    factory_.FailCall(0);
    EXPECT_EQ(state_.currentNode, NodeId::OfClass(u"01"));
    EXPECT_TRUE(log_.Lines().back().starts_with("screen messages"));
    EXPECT_EQ(log_.Count("screen pointer 0"), 1u);
    return factory_.CallCount() - before;
  });
}

// The messages of a click may reload the tree.
TEST_F(NodeClick, SurvivesAReloadInTheMiddle) {
  factory_.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Arguments({kItemsOfRoot}), Reply::From([&](auto) {
            tree_.LoadClassTree();
            return NewScriptedRecordset(factory_.GetRecorder(), ItemRows({}));
          }));
  tree_.NodeClick(kRoot);
  tree_.NodeClick(kRoot);
  EXPECT_EQ(state_.currentNode, NodeId{});
  EXPECT_EQ(tree_.Nodes().Count(), 3u);
}

TEST_F(NodeClick, SelectsAndClicksTheRoot) {
  tree_.NodeClick(kClass01);
  log_.Clear();
  tree_.SelectRoot();
  EXPECT_EQ(log_.Lines().front(), "tree select 1");
  EXPECT_EQ(log_.Count(ExecuteLine(kItemsOfRoot)), 1u);
  EXPECT_EQ(Utf8(tree_.SelectedKey()), "gc0");
}

TEST_F(NodeClick, FailsToSelectARootThatIsNotThere) {
  treeView_.refusedText = u"物料";
  tree_.LoadClassTree();
  log_.Clear();
  try {
    tree_.SelectRoot();
    ADD_FAILURE();
  } catch (const AutomationError& error) {
    EXPECT_EQ(Utf8(error.Description()), "没有该节点: gc0");
    EXPECT_EQ(Utf8(error.Source()), "tvwBase");
  }
  EXPECT_EQ(log_.Text(), "");
}

TEST_F(NodeClick, ReportsASelectionThatTheWindowRefused) {
  factory_.FailCall(1);
  EXPECT_THROW(tree_.SelectRoot(), AutomationError);
  EXPECT_FALSE(state_.currentNode);
}

TEST_F(NodeClick, RestoresTheSelectionByKey) {
  tree_.RestoreSelection(u"gi01");
  EXPECT_EQ(log_.Lines().front(), "tree select 3");
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 2);
  EXPECT_EQ(Utf8(tree_.SelectedKey()), "gi01");
}

TEST_F(NodeClick, RestoresNothingForAKeyThatNoLongerExists) {
  tree_.RestoreSelection(u"gi99");
  tree_.RestoreSelection(u"");
  EXPECT_EQ(log_.Text(), "");
}

TEST_F(NodeClick, ClicksTheRestoredNodeEvenWhenTheWindowRefusesToSelectIt) {
  factory_.FailCall(1);
  tree_.RestoreSelection(u"gi01");
  EXPECT_EQ(log_.Lines().front(), "tree select 3 fails");
  EXPECT_EQ(grid_.GetGrid().MaxRows(), 2);
}

TEST_F(NodeClick, HasNoSelectedKeyWithoutASelection) {
  EXPECT_EQ(Utf8(tree_.SelectedKey()), "");
  treeView_.selected = 99;
  EXPECT_EQ(Utf8(tree_.SelectedKey()), "");
}

TEST_F(NodeClick, RefreshesNothingBeforeTheFirstClick) {
  tree_.RefreshCurrentNode();
  EXPECT_EQ(log_.Text(), "");
}

TEST_F(NodeClick, RefreshesTheNodeOfTheLastClickWithoutReloadingTheTree) {
  tree_.NodeClick(kClass01);
  log_.Clear();
  tree_.RefreshCurrentNode();
  EXPECT_EQ(log_.Text(), Lines("screen pointer 11\n"
                               "release result\n"
                               "create ZEPConnection.AppConnection\n" +
                               ExecuteLine(kItemsOf01) +
                               "\nrelease ZEPConnection.AppConnection\n"
                               "screen pointer 0\n"));
}

TEST_F(NodeClick, RefreshesTheSameNodeAfterAReload) {
  tree_.NodeClick(kClass01);
  tree_.LoadClassTree();
  log_.Clear();
  tree_.RefreshCurrentNode();
  EXPECT_EQ(log_.Count(ExecuteLine(kItemsOf01)), 1u);
}

}  // namespace
}  // namespace pricedown::testing
