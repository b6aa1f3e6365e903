// Loading the class tree.
#include "browser/class_tree.h"

#include "platform/convert.h"
#include "platform/error.h"
#include "store/statements.h"
#include "tests/browser/browser_fixture.h"
#include "tests/support/memory_block.h"

namespace pricedown::testing {
namespace {

class ClassTreeLoad : public BrowserFixture {
 protected:
  // Key and text of each node, in order.
  std::vector<std::string> Nodes() const {
    std::vector<std::string> nodes;
    const NodeCollection& shown = tree_.Nodes();
    for (NodeIndex node = 1; shown.Contains(node); ++node) {
      nodes.push_back(Utf8(shown.IdOf(node).Key()) + " " + Utf8(shown.TextOf(node)));
    }
    return nodes;
  }
  // The window and the collection must hold the same nodes.
  void ExpectWindowInStep() const {
    std::map<NodeIndex, std::string> texts;
    for (std::size_t index = 1; index <= tree_.Nodes().Count(); ++index) {
      const auto node = static_cast<NodeIndex>(index);
      texts[node] = Utf8(tree_.Nodes().TextOf(node));
    }
    EXPECT_EQ(treeView_.texts, texts);
  }
  using Texts = std::vector<std::string>;
};

TEST_F(ClassTreeLoad, ListsOneNodePerClassUnderTheRoot) {
  AnswerStatement(
      factory_, kTreeStatement,
      ClassRows({{u"01", u"原料"}, {u"01", u"原料"}, {u"01", u"原料"}, {u"02", u"成品"}}));
  tree_.LoadClassTree();
  EXPECT_EQ(log_.Text(), Lines(R"log(
      tree redraw off
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("Select t1.FitemClassNumber,t1.FitemClassName \r\n FROM icPriceDownClass t1 order by t1.FitemClassNumber asc")
      release ZEPConnection.AppConnection
      tree insert 1 under 0 "物料"
      tree insert 2 under 1 "01(原料)"
      tree insert 3 under 1 "02(成品)"
      tree redraw on
      )log"));
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gi01 01(原料)", "gi02 02(成品)"}));
}

TEST_F(ClassTreeLoad, ReadsFieldByFieldWhereTheRecordsetHasNoBlocks) {
  AnswerStatement(
      factory_, kTreeStatement,
      ClassRows({{u"01", u"原料"}, {u"01", u"别名"}, {u"02", u"成品"}}).WithoutGetRows());
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gi01 01(原料)", "gi02 02(成品)"}));
}

TEST_F(ClassTreeLoad, ShowsTheNameOfTheFirstRowOfAClass) {
  AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"甲"}, {u"01", u"乙"}}));
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gi01 01(甲)"}));
}

// A collation that ignores case may mix the rows of 'a' and 'A'.
TEST_F(ClassTreeLoad, RefusesANumberThatReappearsAfterAnother) {
  AnswerStatement(factory_, kTreeStatement,
                  ClassRows({{u"a", u"甲"}, {u"A", u"乙"}, {u"a", u"丙"}, {u"A", u"丁"}}));
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gia a(甲)", "giA A(乙)"}));
  ExpectWindowInStep();
}

TEST_F(ClassTreeLoad, TrimsTheNameAndKeepsTheNumberAsStored) {
  AnswerStatement(factory_, kTreeStatement, ClassRows({{u" 0 1 ", u"  原 料  "}, {u"02", u"\t"}}));
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gi 0 1   0 1 (原 料)", "gi02 02(\t)"}));
}

TEST_F(ClassTreeLoad, ShowsNullsAsEmptyAndNumbersInTheirDefaultText) {
  AnswerStatement(factory_, kTreeStatement,
                  ClassRows({{Null{}, Null{}}, {Null{}, u"again"}, {12, u"数"}, {12, u"数"}}));
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gi ()", "gi12 12(数)"}));
}

TEST_F(ClassTreeLoad, LeavesTheRootAloneForATableWithoutRows) {
  AnswerStatement(factory_, kTreeStatement, ClassRows({}));
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料"}));
}

TEST_F(ClassTreeLoad, ShowsOnlyTheRootWhenProvisionsAreKeptByItem) {
  for (const std::int16_t type : std::initializer_list<std::int16_t>{0, 2, -1}) {
    state_.itemClassType = type;
    tree_.LoadClassTree();
    EXPECT_EQ(Nodes(), (Texts{"gc0 物料"})) << type;
  }
  EXPECT_EQ(log_.Count("create ZEPConnection.AppConnection"), 0u);
}

TEST_F(ClassTreeLoad, ClosesAndReleasesTheClassesWhenProvisionsAreKeptByItem) {
  factory_.LogRecordsetCalls();
  state_.classRecordset =
      Recordset(NewScriptedRecordset(factory_.GetRecorder(), ClassRows({{u"01", u"甲"}})));
  state_.itemClassType = 2;
  tree_.LoadClassTree();
  EXPECT_EQ(log_.Text(), Lines(R"log(
      tree redraw off
      tree insert 1 under 0 "物料"
      result.Close()
      release result
      tree redraw on
      )log"));
  EXPECT_FALSE(state_.classRecordset);
}

TEST_F(ClassTreeLoad, KeepsTheRecordsetUntilTheNextReload) {
  AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"甲"}}));
  tree_.LoadClassTree();
  EXPECT_TRUE(state_.classRecordset);
  EXPECT_EQ(log_.Count("release result"), 0u);
  tree_.LoadClassTree();
  EXPECT_TRUE(state_.classRecordset);
  EXPECT_EQ(log_.Count("release result"), 1u);
}

TEST_F(ClassTreeLoad, HasTheSameNodesWhenLoadedTwice) {
  AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"甲"}, {u"02", u"乙"}}));
  tree_.LoadClassTree();
  log_.Clear();
  tree_.LoadClassTree();
  EXPECT_EQ(log_.Text(), Lines(R"log(
      tree redraw off
      tree clear
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("Select t1.FitemClassNumber,t1.FitemClassName \r\n FROM icPriceDownClass t1 order by t1.FitemClassNumber asc")
      release ZEPConnection.AppConnection
      release result
      tree insert 1 under 0 "物料"
      tree insert 2 under 1 "01(甲)"
      tree insert 3 under 1 "02(乙)"
      tree redraw on
      )log"));
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gi01 01(甲)", "gi02 02(乙)"}));
  ExpectWindowInStep();
}

TEST_F(ClassTreeLoad, LeavesTheRootAloneWhenTheQueryFailsEvenAfterAnEarlierLoad) {
  AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"甲"}}));
  FailStatement(factory_, kTreeStatement, -5, u"连接已断开");
  tree_.LoadClassTree();
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料"}));
  EXPECT_FALSE(state_.classRecordset);
  EXPECT_TRUE(treeView_.redraw);
}

TEST_F(ClassTreeLoad, LeavesTheRootAloneWhenTheConnectionFailsOrReturnsNothing) {
  AnswerNothing(factory_, kTreeStatement);
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料"}));
  factory_.Refuses(u"ZEPConnection.AppConnection");
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料"}));
}

TEST_F(ClassTreeLoad, LeavesTheRootAloneWhenAColumnIsMissing) {
  AnswerStatement(factory_, kTreeStatement, Rows({u"FitemClassNumber"}, {{u"01"}}));
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料"}));
}

// Reading the block fails because of one value, which fails again in its row.
TEST_F(ClassTreeLoad, SkipsARowThatCannotBeReadAndListsTheOtherClasses) {
  int row = 0;
  factory_.Object(u"rows")
      .On(u"EOF", Reply::From([&](auto) { return row >= 3; }))
      .On(u"GetRows", Reply::Failing(-5, u"损坏的值"))
      .On(u"MoveFirst", Value())
      .On(u"MoveNext", Reply::From([&](auto) {
            ++row;
            return Value();
          }))
      .On(u"Fields", factory_.Answering(u"fields"));
  factory_.Object(u"fields")
      .On(u"", R"("FItemClassNumber")", factory_.Answering(u"number"))
      .On(u"", R"("FItemClassName")", factory_.Answering(u"name"));
  factory_.Object(u"number").On(u"Value", Reply::From([&](auto) { return row + 1; }));
  factory_.Object(u"name").On(u"Value", Reply::From([&](auto) -> Value {
                                if (row == 1) throw AutomationError(-5, u"损坏的值");
                                return u"类";
                              }));
  factory_.Object(u"ZEPConnection.AppConnection").On(u"Execute", factory_.Answering(u"rows"));
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gi1 1(类)", "gi3 3(类)"}));
  ExpectWindowInStep();
}

// After any failure the load ends, redraw is on again and the window shows what the collection
// holds.
TEST_F(ClassTreeLoad, MatchesTheWindowAfterAnyFailure) {
  for (const bool blocks : {true, false}) {
    FailEachCallInTurn([&](int failingCall) {
      CallLog log;
      RecordingFactory factory(log);
      RecordingQuestions questions(log);
      RecordingScreen screen(factory.GetRecorder());
      RecordingTreeView view(factory.GetRecorder());
      ThreadState threadState;
      Environment environment(factory, threadState, questions, screen, u"Host");
      BrowserState state;
      state.itemClassType = 1;
      ItemGrid grid(environment, state);
      ClassTree tree(environment, state, view, grid);
      ScriptedRows rows = ClassRows({{u"01", u"甲"}, {u"01", u"甲"}, {u"02", u"乙"}});
      rows.hasGetRows = blocks;
      AnswerStatement(factory, kTreeStatement, rows);
      factory.FailCall(failingCall);
      tree.LoadClassTree();
      factory.FailCall(0);

      const std::string& last = log.Lines().back();
      EXPECT_TRUE(last == "tree redraw on" || last == "tree redraw on fails") << last;
      EXPECT_EQ(view.texts.size(), tree.Nodes().Count());
      for (const auto& [index, text] : view.texts) {
        EXPECT_EQ(text, Utf8(tree.Nodes().TextOf(index)));
      }
      if (tree.Nodes().Count() > 0) {
        EXPECT_EQ(Utf8(tree.Nodes().IdOf(1).Key()), "gc0");
      }
      const int calls = factory.CallCount();
      // A later load repairs everything.
      tree.LoadClassTree();
      EXPECT_EQ(tree.Nodes().Count(), 3u);
      EXPECT_TRUE(view.redraw);
      state.classRecordset.Release();
      EXPECT_EQ(factory.LiveObjects(), 0);
      return calls;
    });
  }
}

TEST_F(ClassTreeLoad, KeepsAndAddsNothingOnceTheControlHasEndedInTheQuery) {
  factory_.Object(u"ZEPConnection.AppConnection")
      .On(u"Execute", Reply::From([&](auto) {
            environment_.lifetime.End();
            log_.Add("end");
            return NewScriptedRecordset(factory_.GetRecorder(), ClassRows({{u"01", u"甲"}}));
          }));
  tree_.LoadClassTree();
  EXPECT_FALSE(state_.classRecordset);
  const std::string text = log_.Text();
  EXPECT_EQ(text.find("tree insert", text.find("end\n")), text.npos) << text;
  EXPECT_EQ(tree_.Nodes().Count(), 0u);
  EXPECT_EQ(factory_.LiveObjects(), 0);
}

TEST_F(ClassTreeLoad, AddsNoClassOnceTheControlHasEndedWhileRowsAreRead) {
  factory_.Object(u"rows")
      .On(u"EOF", false)
      .On(u"EOF", true)
      .On(u"GetRows", Reply::From([&](auto) {
            environment_.lifetime.End();
            return CellBlockPtr(std::make_shared<MemoryBlock>(
                2, std::vector<std::vector<Value>>{{u"01", u"甲"}, {u"02", u"乙"}}));
          }));
  factory_.Object(u"ZEPConnection.AppConnection").On(u"Execute", factory_.Answering(u"rows"));
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料"}));
}

// A call to the suite may run messages that load the tree again, for which a class was deleted and
// another added.
TEST_F(ClassTreeLoad, KeepsTheClassesOfALoadThatBeganInsideAnother) {
  for (const bool inQuery : {true, false}) {
    int queries = 0;
    factory_.Object(inQuery ? u"first" : u"second")
        .On(u"EOF", false)
        .On(u"EOF", true)
        .On(u"GetRows", Reply::From([&](auto) {
              if (queries == 1) tree_.LoadClassTree();
              return CellBlockPtr(std::make_shared<MemoryBlock>(
                  2, std::vector<std::vector<Value>>{{u"01", u"甲"}, {u"02", u"乙"}}));
            }));
    factory_.Object(u"ZEPConnection.AppConnection")
        .On(u"Execute", Reply::From([&](auto) -> Value {
              if (++queries == 2) {
                return NewScriptedRecordset(factory_.GetRecorder(),
                                            ClassRows({{u"02", u"乙"}, {u"03", u"丙"}}));
              }
              if (inQuery) tree_.LoadClassTree();
              return factory_.NewObject(inQuery ? u"first" : u"second");
            }));
    tree_.LoadClassTree();
    EXPECT_EQ(queries, 2);
    EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gi02 02(乙)", "gi03 03(丙)"})) << inQuery;
    ExpectWindowInStep();
    EXPECT_TRUE(treeView_.redraw);
  }
}

// A node that the window refused is inserted again with the class's next row.
TEST_F(ClassTreeLoad, ContinuesWithTheNextRowWhenTheWindowRefusesANode) {
  AnswerStatement(factory_, kTreeStatement,
                  ClassRows({{u"01", u"甲"}, {u"01", u"乙"}, {u"02", u"丙"}}));
  treeView_.refusedText = u"01(甲)";
  tree_.LoadClassTree();
  EXPECT_EQ(Nodes(), (Texts{"gc0 物料", "gi01 01(乙)", "gi02 02(丙)"}));
  ExpectWindowInStep();
}

TEST_F(ClassTreeLoad, MarksTheClickedClassAgainAndSelectsNothing) {
  AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"甲"}, {u"03", u"丙"}}));
  AnswerStatement(factory_, statements::ItemsOfClass(u"03"), ItemRows({}));
  tree_.LoadClassTree();
  EXPECT_EQ(treeView_.marked, kNoNode);
  tree_.NodeClick(3);
  EXPECT_EQ(treeView_.marked, 3);
  AnswerStatement(factory_, kTreeStatement,
                  ClassRows({{u"01", u"甲"}, {u"02", u"乙"}, {u"03", u"丙"}}));
  tree_.LoadClassTree();
  EXPECT_EQ(treeView_.marked, 4) << "the class, not the place";
  EXPECT_EQ(treeView_.selected, kNoNode);
}

TEST_F(ClassTreeLoad, MarksThePlaceOfAClassThatIsGone) {
  AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"甲"}, {u"02", u"乙"}}));
  AnswerStatement(factory_, statements::ItemsOfClass(u"02"), ItemRows({}));
  tree_.LoadClassTree();
  tree_.NodeClick(3);
  AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"甲"}, {u"02A", u"乙"}}));
  tree_.LoadClassTree();
  EXPECT_EQ(treeView_.marked, 3);
  AnswerStatement(factory_, kTreeStatement, ClassRows({{u"01", u"甲"}}));
  tree_.LoadClassTree();
  EXPECT_EQ(treeView_.marked, 2) << "the last one";
}

}  // namespace
}  // namespace pricedown::testing
