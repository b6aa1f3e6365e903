// Copies of recordsets: fields, rows, positions, and failing steps ignored one by one.
#include "editor/record_copy.h"

#include <gmock/gmock.h>

#include "tests/editor/editor_test.h"

namespace pricedown {
namespace {

using namespace pricedown::testing;
using ::testing::ElementsAre;

// The rows of a recordset as texts, from its first row on.
std::vector<std::string> RowTexts(const Recordset& recordset) {
  std::vector<std::string> texts;
  if (recordset.RecordCount() == 0) return texts;
  const std::vector<FieldDefinition> fields = recordset.Fields();
  for (recordset.MoveFirst(); !recordset.AtEnd(); recordset.MoveNext()) {
    std::string& text = texts.emplace_back();
    for (const FieldDefinition& field : fields) {
      text += Readable(recordset.Field(field.name)) + " ";
    }
  }
  return texts;
}

// A source as a query returns it.
ScriptedRows TwoItems() {
  return {{{u"Fitemid", ado::kInteger, 4, 0x10, 0, 0},
           {u"FName", ado::kVarWChar, 80, 0x68, 0, 0},
           {u"FPencentPrepare", ado::kNumeric, 19, 0x20, 18, 4},
           {u"FRate", ado::kDouble, 8, 0x20, 0, 0}},
          {{101, u"螺钉", 12.3456, 0.1}, {102, Null{}, 0.0, Null{}}}};
}

class RecordCopy : public EditorTest {
 protected:
  Recordset source{NewScriptedRecordset(factory.GetRecorder(), TwoItems(), u"source")};
};

TEST_F(RecordCopy, RepeatsNamesTypesSizesAndAttributesInOrder) {
  for (const Recordset& copy : {CopyRecords(factory, source), CopyList(factory, source)}) {
    std::vector<std::string> fields;
    for (const FieldDefinition& field : copy.Fields()) {
      fields.push_back(Utf8(field.name) + " " + std::to_string(field.type) + " " +
                       std::to_string(field.definedSize) + " " + std::to_string(field.attributes) +
                       " " + std::to_string(field.precision) + "." + std::to_string(field.scale));
    }
    EXPECT_THAT(fields, ElementsAre("Fitemid 3 4 16 0.0", "FName 202 80 104 0.0",
                                    "FPencentPrepare 131 19 32 18.4", "FRate 5 8 32 0.0"));
  }
}

TEST_F(RecordCopy, RepeatsAllRowsWhateverTheSourcesPosition) {
  source.MoveFirst();
  source.MoveNext();
  const Recordset copy = CopyList(factory, source);
  EXPECT_EQ(copy.RecordCount(), 2);
  EXPECT_EQ(copy.Field(u"FItemID"), Value(101)) << "is on its first row";
  EXPECT_THAT(RowTexts(copy), ElementsAre("101 \"螺钉\" 12.3456 0.1 ", "102 Null 0.0 Null "));
}

TEST_F(RecordCopy, ClearsTheSourcesFilter) {
  source.SetFilter(u"FName='螺钉'");
  EXPECT_EQ(CopyRecords(factory, source).RecordCount(), 2);
  EXPECT_EQ(source.RecordCount(), 2);
}

TEST_F(RecordCopy, OfAListKeepsItsFilter) {
  source.SetFilter(u"FName='螺钉'");
  EXPECT_EQ(CopyList(factory, source).RecordCount(), 1);
}

TEST_F(RecordCopy, OfNoRowsIsOpenAndEmpty) {
  const Recordset empty = Members({}, {});
  for (const Recordset& copy : {CopyRecords(factory, empty), CopyList(factory, empty)}) {
    EXPECT_EQ(copy.RecordCount(), 0);
    EXPECT_EQ(copy.Fields().size(), 15u);
  }
}

TEST_F(RecordCopy, SharesNothingWithItsSource) {
  const Recordset copy = CopyList(factory, source);
  source.MoveFirst();
  source.SetField(u"FName", u"垫圈");
  source.Delete();
  EXPECT_EQ(copy.Field(u"FName"), Value(u"螺钉"));
  EXPECT_EQ(copy.RecordCount(), 2);
}

TEST_F(RecordCopy, CommitsEveryRowForTheBrowserAndOneBatchForTheForm) {
  factory.LogRecordsetCalls();
  CopyRecords(factory, source);
  EXPECT_EQ(log.Count("ADODB.Recordset.UpdateBatch()"), 2u);
  EXPECT_EQ(log.Count("put source.Filter = \"\""), 1u);
  log.Clear();
  CopyList(factory, source);
  EXPECT_EQ(log.Count("ADODB.Recordset.UpdateBatch()"), 1u);
  EXPECT_EQ(log.Count("put source.Filter = \"\""), 0u);
}

TEST_F(RecordCopy, ReadsRowsInBlocksAndAddsEachWithOneCall) {
  factory.LogRecordsetCalls();
  CopyList(factory, source);
  EXPECT_EQ(log.Count("source.GetRows(4096, Missing, "
                      "[\"Fitemid\", \"FName\", \"FPencentPrepare\", \"FRate\"])"),
            1u);
  EXPECT_EQ(log.Count("ADODB.Recordset.AddNew([0, 1, 2, 3], [101, \"螺钉\", 12.3456, 0.1])"), 1u);
  EXPECT_EQ(log.Count("ADODB.Recordset.AddNew([0, 1, 2, 3], [102, Null, 0.0, Null])"), 1u);
}

TEST_F(RecordCopy, LosesOnlyTheValueThatDoesNotFit) {
  ScriptedRows rows = TwoItems();
  rows.columns[1].definedSize = 2;
  rows.rows.insert(rows.rows.begin() + 1, {103, u"六角螺栓", 1.0, 0.2});
  const Recordset copy =
      CopyRecords(factory, Recordset(NewScriptedRecordset(factory.GetRecorder(), std::move(rows))));
  EXPECT_THAT(RowTexts(copy),
              ElementsAre("101 \"螺钉\" 12.3456 0.1 ", "103 Null 1.0 0.2 ", "102 Null 0.0 Null "));
}

TEST_F(RecordCopy, RepeatsASourceWithoutBlocks) {
  const Recordset plain(NewScriptedRecordset(factory.GetRecorder(), TwoItems().WithoutGetRows()));
  EXPECT_THAT(RowTexts(CopyRecords(factory, plain)),
              ElementsAre("101 \"螺钉\" 12.3456 0.1 ", "102 Null 0.0 Null "));
}

TEST_F(RecordCopy, OfNothingIsNothing) {
  EXPECT_FALSE(CopyRecords(factory, Recordset()));
  EXPECT_FALSE(CopyList(factory, Recordset()));
}

TEST_F(RecordCopy, CannotBeMadeWithoutRecordsets) {
  RecordingFactory bare(log);
  bare.Refuses(u"ADODB.Recordset");
  EXPECT_FALSE(CopyList(bare, source));
}

TEST(RecordCopyFailures, LoseOnlyWhatTheStepWouldHaveCopied) {
  FailEachCallInTurn([](int failingCall) {
    EditorWorld world;
    const Recordset source(
        NewScriptedRecordset(world.factory.GetRecorder(), TwoItems(), u"source"));
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const Recordset copy = CopyRecords(world.factory, source);
    const int calls = world.factory.CallCount() - before;
    if (failingCall == 0) {
      EXPECT_EQ(copy.RecordCount(), 2);
    } else if (copy) {
      EXPECT_LE(copy.RecordCount(), 2);
      // One field or the whole of the definitions cannot be read; without them there is no copy.
      EXPECT_GE(copy.Fields().size(), 3u);
    }
    return calls;
  });
}

TEST(RecordCopyFailures, NeverPutARowsValuesIntoTheRowBefore) {
  FailEachCallInTurn([](int failingCall) {
    EditorWorld world;
    const Recordset source(
        NewScriptedRecordset(world.factory.GetRecorder(), TwoItems(), u"source"));
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const Recordset copy = CopyList(world.factory, source);
    const int calls = world.factory.CallCount() - before;
    // A field that could not be appended is missing.
    if (!copy || copy.RecordCount() == 0 || copy.Fields().size() < 4) return calls;
    copy.MoveFirst();
    const Value id = copy.Field(u"Fitemid");
    const Value name = copy.Field(u"FName");
    // The failing step may have been the one that copies either value.
    EXPECT_TRUE(id.IsNothing() || name.IsNothing() || (id == Value(101) && name == Value(u"螺钉")))
        << Readable(id) << " " << Readable(name);
    EXPECT_FALSE(copy.RecordCount() == 2 && id == Value(102));
    return calls;
  });
}

}  // namespace
}  // namespace pricedown
