// The find bar without its window: what typing, keys and reloads do.
#include "control/find.h"

#include <gtest/gtest.h>

#include "store/statements.h"
#include "tests/browser/class_deletion.h"
#include "tests/control/dispatch_fixture.h"

namespace pricedown::testing {
namespace {

// Items of class 01 and the classes 01(原料) and 02(成品), as the fixture scripts them.
class FindInControl : public Dispatch {
 protected:
  FindInControl() {
    Start();
    Control().NodeClicked(2);
    Grid& grid = Control().GetGrid();
    grid.SetMaxRows(0);
    grid.SetMaxRows(4);
    const char16_t* const texts[4][3]{{u"01.001", u"螺栓", u"M8"},
                                      {u"01.002", u"螺母", u"M8"},
                                      {u"01.003", u"垫圈", u"φ8"},
                                      {u"02.001", u"BOLT", u"M10"}};
    for (std::int32_t row = 1; row <= 4; ++row) {
      for (std::int32_t column = 1; column <= 3; ++column) {
        grid.SetText(column, row, texts[row - 1][column - 1]);
      }
    }
    world_.log.Clear();
  }
  Find& find() { return *Control().Finding(); }
  std::string Log() {
    std::string text = world_.log.Text();
    world_.log.Clear();
    return text;
  }
  void Open(FindPane pane) {
    find().Open(pane);
    world_.log.Clear();
  }
  std::string& Count() { return world_.view.findCount; }
};

TEST_F(FindInControl, GoesToTheFirstItemWhoseCodeNameOrModelHasTheText) {
  find().Open(FindPane::Grid);
  EXPECT_EQ(Log(), "find open grid \"\"\n");
  find().TextChanged(u"螺母", false);
  EXPECT_EQ(Log(), "find cell 2,2\n");
  find().TextChanged(u"m10", false);
  EXPECT_EQ(Log(), "find cell 3,4\n");
  find().TextChanged(u"01.003", false);
  EXPECT_EQ(Log(), "find cell 1,3\n");
}

TEST_F(FindInControl, SearchesALongerTextFromWhereTheBarWasOpened) {
  world_.view.currentRow = 2;
  Open(FindPane::Grid);
  find().TextChanged(u"0", false);
  EXPECT_EQ(Log(), "find cell 1,2\n");
  find().TextChanged(u"02", false);
  EXPECT_EQ(Log(), "find cell 1,2\n");
  find().TextChanged(u"02.", false);
  EXPECT_EQ(Log(), "find cell 1,4\n");
}

TEST_F(FindInControl, SearchesNothingWhileATextIsComposed) {
  Open(FindPane::Grid);
  find().TextChanged(u"luo", true);
  EXPECT_EQ(Log(), "");
  find().TextChanged(u"螺母", false);
  EXPECT_EQ(Log(), "find cell 2,2\n");
}

TEST_F(FindInControl, StaysWhereNothingIsFound) {
  Open(FindPane::Grid);
  find().TextChanged(u"没有", false);
  find().ContinueCounting();
  find().Next(false);
  EXPECT_EQ(Log(), "");
  EXPECT_EQ(Count(), "0 / 0");
}

TEST_F(FindInControl, GoesToTheNextAndToTheOneBefore) {
  Open(FindPane::Grid);
  find().TextChanged(u"8", false);
  find().Next(false);
  find().Next(false);
  find().Next(false);
  find().Next(true);
  EXPECT_EQ(Log(), "find cell 3,1\nfind cell 3,2\nfind cell 3,3\nfind cell 3,1\nfind cell 3,3\n");
  find().Accept();
  find().Accept();
  EXPECT_EQ(Log(), "find cell 3,1\nfind cell 3,2\n") << "Enter goes on";
}

TEST_F(FindInControl, CountsInPartsAndShowsTheNumberOfTheHit) {
  Open(FindPane::Grid);
  find().TextChanged(u"M8", false);
  EXPECT_TRUE(world_.view.findCounting);
  find().ContinueCounting();
  EXPECT_FALSE(world_.view.findCounting);
  EXPECT_EQ(Count(), "1 / 2");
  find().Next(false);
  EXPECT_EQ(Count(), "2 / 2");
}

TEST_F(FindInControl, GoesOnAfterTheBarIsClosed) {
  Open(FindPane::Grid);
  find().TextChanged(u"M8", false);
  find().Close();
  EXPECT_EQ(Log(), "find cell 3,1\nfind close grid\n");
  find().Next(false);
  EXPECT_EQ(Log(), "find cell 3,2\n");
  find().Close();
  EXPECT_EQ(Log(), "") << "it is closed";
}

TEST_F(FindInControl, OpensWithTheTextOfTheLastTime) {
  Open(FindPane::Grid);
  find().TextChanged(u"M8", false);
  find().Close();
  world_.log.Clear();
  find().Open(FindPane::Grid);
  EXPECT_EQ(Log(), "find open grid \"M8\"\n");
}

TEST_F(FindInControl, CountsAgainWhenTheRowsAreOthers) {
  Open(FindPane::Grid);
  find().TextChanged(u"M8", false);
  find().ContinueCounting();
  Control().GetGrid().SetText(3, 4, u"M8");
  find().RowsChanged(FindPane::Grid);
  EXPECT_TRUE(world_.view.findCounting);
  find().ContinueCounting();
  EXPECT_EQ(Count(), "1 / 3");
}

TEST_F(FindInControl, SearchesRowsThatWereReplacedFromTheCurrentOne) {
  world_.view.currentRow = 3;
  Open(FindPane::Grid);
  find().TextChanged(u"0", false);
  EXPECT_EQ(Log(), "find cell 1,3\n");
  world_.view.currentRow = 1;
  find().RowsChanged(FindPane::Grid);
  find().TextChanged(u"01", false);
  EXPECT_EQ(Log(), "find cell 1,1\n");
}

TEST_F(FindInControl, SearchesFromTheCurrentRowWhenTheRowsWereReplacedBeforeTyping) {
  world_.view.currentRow = 3;
  Open(FindPane::Grid);
  world_.view.currentRow = 1;
  find().RowsChanged(FindPane::Grid);
  find().TextChanged(u"0", false);
  EXPECT_EQ(Log(), "find cell 1,1\n");
}

TEST_F(FindInControl, KeepsWhereItSearchesFromWhenTheOtherPaneIsReloaded) {
  world_.view.currentRow = 3;
  Open(FindPane::Grid);
  world_.view.currentRow = 1;
  find().RowsChanged(FindPane::Tree);
  find().TextChanged(u"0", false);
  EXPECT_EQ(Log(), "find cell 1,3\n");
}

TEST_F(FindInControl, ShowsAClassByNumberOrNameAndSelectsItOnlyOnEnter) {
  Open(FindPane::Tree);
  find().TextChanged(u"成", false);
  EXPECT_EQ(Log(), "find node 3\n");
  find().TextChanged(u"01", false);
  EXPECT_EQ(Log(), "find node 2\n");
  find().TextChanged(u"物料", false);
  EXPECT_EQ(Log(), "find node 0\n") << "the root is no class";
  find().TextChanged(u"01(原", false);
  world_.log.Clear();
  find().Accept();
  const std::string log = Log();
  EXPECT_EQ(log.substr(0, log.find("screen")), "find node 0\nfind close tree\ntree select 2\n");
  EXPECT_NE(log.find(ExecuteLine(kItemsOf01)), std::string::npos);
}

TEST_F(FindInControl, EnterInTheTreeWithoutAHitOnlyCloses) {
  Open(FindPane::Tree);
  find().TextChanged(u"没有", false);
  world_.log.Clear();
  find().Accept();
  EXPECT_EQ(Log(), "find close tree\n");
}

TEST_F(FindInControl, ForgetsTheFoundClassWhenTheTreeIsReloaded) {
  Open(FindPane::Tree);
  find().TextChanged(u"成", false);
  world_.log.Clear();
  find().RowsChanged(FindPane::Tree);
  EXPECT_EQ(Log(), "find node 0\n");
}

TEST_F(FindInControl, ForgetsTheFoundClassWhenTheBarIsOpenedAgain) {
  Open(FindPane::Tree);
  find().TextChanged(u"成", false);
  world_.log.Clear();
  find().Open(FindPane::Tree);
  EXPECT_EQ(Log(), "find node 0\nfind open tree \"成\"\n");
}

TEST_F(FindInControl, ForgetsTheFoundClassWhenAClassIsClicked) {
  Open(FindPane::Tree);
  find().TextChanged(u"成", false);
  find().ContinueCounting();
  ASSERT_EQ(Count(), "1 / 1");
  world_.log.Clear();
  Control().NodeClicked(2);
  EXPECT_TRUE(Log().starts_with("find node 0\n"));
  EXPECT_EQ(Count(), "– / 1");
}

TEST_F(FindInControl, EnterInTheTreeSearchesTheTextOfTheLastTime) {
  Open(FindPane::Tree);
  find().TextChanged(u"01(原", false);
  find().Close();
  Open(FindPane::Tree);
  find().Accept();
  const std::string log = Log();
  EXPECT_TRUE(log.starts_with("find close tree\ntree select 2\n")) << log;
}

TEST_F(FindInControl, EnterInTheTreeSearchesFromTheClassThatWasCurrent) {
  Control().NodeClicked(1);
  Open(FindPane::Tree);
  find().TextChanged(u"0", false);
  find().Close();
  Open(FindPane::Tree);
  find().Accept();
  const std::string log = Log();
  EXPECT_TRUE(log.starts_with("find close tree\ntree select 2\n")) << log;
}

TEST_F(FindInControl, EnterInTheTreeLoadsNothingWhenClosingTheBarEndsTheControl) {
  Open(FindPane::Tree);
  find().TextChanged(u"01(原", false);
  world_.log.Clear();
  world_.view.whenFindCloses = [this] { Control().Terminate(); };
  find().Accept();
  const std::string log = Log();
  EXPECT_TRUE(log.starts_with("find node 0\nfind close tree\n")) << log;
  EXPECT_EQ(log.find("tree select"), std::string::npos) << log;
  EXPECT_EQ(log.find(ExecuteLine(kItemsOf01)), std::string::npos) << log;
}

TEST_F(FindInControl, EnterSelectsTheFoundClassAlthoughItStandsElsewhereByThen) {
  AnswerStatement(world_.factory, kTreeStatement, ClassRows({{u"02", u"成品"}}));
  Open(FindPane::Tree);
  find().TextChanged(u"成", false);
  world_.view.whenFindCloses = [this] { Control().delRecord(); };
  AnswerStatement(world_.factory, kVoucher, Rows({u"FVoucherID"}, {}));
  AnswerStatement(world_.factory, kHistory, Rows({u"FItemID"}, {}));
  AnswerNothing(world_.factory, kDeleteProvision);
  AnswerNothing(world_.factory, kDeleteClass);
  AnswerStatement(world_.factory, statements::ItemsOfClass(u"02"), ItemRows({}));
  world_.questions.WillAnswer({true});
  find().Accept();
  EXPECT_EQ(world_.treeView.selected, 2) << world_.log.Text();
}

TEST_F(FindInControl, SearchesTheTreeAgainWhenADeletionReloadsIt) {
  AnswerStatement(world_.factory, kTreeStatement, ClassRows({{u"02", u"成品"}}));
  AnswerStatement(world_.factory, kVoucher, Rows({u"FVoucherID"}, {}));
  AnswerStatement(world_.factory, kHistory, Rows({u"FItemID"}, {}));
  AnswerNothing(world_.factory, kDeleteProvision);
  AnswerNothing(world_.factory, kDeleteClass);
  world_.questions.WillAnswer({true});
  world_.view.focusedPane = FindPane::Tree;
  Open(FindPane::Tree);
  find().TextChanged(u"成", false);
  find().ContinueCounting();
  ASSERT_EQ(Count(), "1 / 1");
  Control().delRecord();
  EXPECT_TRUE(world_.view.findCounting);
  find().ContinueCounting();
  EXPECT_EQ(Count(), "– / 1");
  world_.log.Clear();
  find().Next(false);
  EXPECT_EQ(Log(), "find node 2\n") << "the class is the second node now";
}

TEST_F(FindInControl, F3InTheTreeOpensTheBar) {
  Open(FindPane::Grid);
  find().TextChanged(u"成", false);
  find().Close();
  world_.log.Clear();
  world_.view.focusedPane = FindPane::Tree;
  find().Next(false);
  EXPECT_EQ(Log(), "find open tree \"成\"\nfind node 3\n");
}

TEST_F(FindInControl, F3InTheGridSearchesItsRowsWithTheTextOfTheTree) {
  Open(FindPane::Tree);
  find().TextChanged(u"0", false);
  world_.log.Clear();
  world_.view.focusedPane = FindPane::Grid;
  world_.view.currentRow = 2;
  find().Next(false);
  EXPECT_EQ(Log(), "find node 0\nfind close tree\nfind cell 1,3\n");
  find().Next(true);
  EXPECT_EQ(Log(), "find cell 1,2\n");
}

TEST_F(FindInControl, OneBarIsOpenAtATime) {
  Open(FindPane::Grid);
  find().Open(FindPane::Tree);
  EXPECT_EQ(Log(), "find close grid\nfind open tree \"\"\n");
}

TEST_F(FindInControl, TheCommandOpensTheBarOfTheFocusedPane) {
  const ControlCommand& command =
      *CommandOfPress({.key = Key::F, .control = true}, surface::kTreeMenu);
  world_.view.focusedPane = FindPane::Tree;
  Control().CommandChosen(command);
  EXPECT_EQ(Log(), "find open tree \"\"\n");
}

TEST_F(FindInControl, EndsWithTheControl) {
  Control().Terminate();
  EXPECT_EQ(Control().Finding(), nullptr);
}

TEST(FindKeys, AreEnterF3AndEscape) {
  EXPECT_EQ(FindKeyOf({Key::Enter}), FindKey::Accept);
  EXPECT_EQ(FindKeyOf({.key = Key::Enter, .shift = true}), FindKey::Previous);
  EXPECT_EQ(FindKeyOf({Key::F3}), FindKey::Next);
  EXPECT_EQ(FindKeyOf({.key = Key::F3, .shift = true}), FindKey::Previous);
  EXPECT_EQ(FindKeyOf({Key::Escape}), FindKey::Close);
  EXPECT_EQ(FindKeyOf({.key = Key::F3, .control = true}), FindKey::None);
  EXPECT_EQ(FindKeyOf({Key::Space}), FindKey::None);
}

TEST(FindBar, PlacesLabelFieldAndCountInOneLine) {
  const FindPlaces places = PlaceFindBar({300, 20}, {24, 80, 16, 5});
  EXPECT_EQ(places.label, (Rectangle{5, 2, 24, 16}));
  EXPECT_EQ(places.count, (Rectangle{215, 2, 80, 16}));
  EXPECT_EQ(places.field, (Rectangle{34, 2, 176, 16}));
}

TEST(FindBar, LeavesOutWhatANarrowBarHasNoRoomFor) {
  const FindPlaces narrow = PlaceFindBar({190, 20}, {24, 80, 16, 5});
  EXPECT_EQ(narrow.label, Rectangle{});
  EXPECT_EQ(narrow.field, (Rectangle{5, 2, 95, 16}));
  const FindPlaces narrower = PlaceFindBar({100, 20}, {24, 80, 16, 5});
  EXPECT_EQ(narrower.count, Rectangle{});
  EXPECT_EQ(narrower.field, (Rectangle{5, 2, 90, 16}));
  EXPECT_EQ(PlaceFindBar({3, 4}, {24, 80, 16, 5}).field.width, 0);
}

TEST(FindBar, LeavesOutWhatWouldMakeTheFieldNarrowerThanTheCount) {
  EXPECT_EQ(PlaceFindBar({174, 20}, {24, 80, 16, 5}).count, Rectangle{});
  EXPECT_EQ(PlaceFindBar({175, 20}, {24, 80, 16, 5}).field, (Rectangle{5, 2, 80, 16}));
  EXPECT_EQ(PlaceFindBar({203, 20}, {24, 80, 16, 5}).label, Rectangle{});
  EXPECT_EQ(PlaceFindBar({204, 20}, {24, 80, 16, 5}).field, (Rectangle{34, 2, 80, 16}));
}

}  // namespace
}  // namespace pricedown::testing
