// Copies of recordsets: fields, rows, positions, and failing steps ignored one by one.
#include "editor/record_copy.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <functional>
#include <memory>
#include <span>
#include <utility>

#include "tests/editor/editor_test.h"
#include "tests/support/case_name.h"

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

TEST_F(RecordCopy, RepeatsAllRowsFromAnyPositionOfTheSource) {
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

// A recordset with one member replaced.
class Interposed : public AutomationObject {
 public:
  // `call` makes the member's own call.
  using Behaviour =
      std::function<Value(std::span<Value> arguments, const std::function<Value()>& call)>;
  Interposed(ObjectPtr inner, std::u16string_view member, Behaviour behaviour)
      : inner_(std::move(inner)), member_(inner_->Find(member)), behaviour_(std::move(behaviour)) {}

  MemberId Find(std::u16string_view name) override { return inner_->Find(name); }
  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override {
    const auto call = [&] { return inner_->Invoke(member, access, arguments); };
    return member == member_ ? behaviour_(arguments, call) : call();
  }

 private:
  ObjectPtr inner_;
  MemberId member_;
  Behaviour behaviour_;
};

[[noreturn]] void Fail() { throw AutomationError(ErrorNumber::Unspecified, u"failing member"); }

using CopyOf = Recordset (*)(ObjectFactory& factory, const Recordset& source);

class RecordCopyOfOddities : public EditorTest, public ::testing::WithParamInterface<CopyOf> {
 protected:
  // Three items in a recordset with that member replaced.
  Recordset Source(std::u16string_view member, Interposed::Behaviour behaviour) {
    ScriptedRows rows = TwoItems();
    rows.rows.push_back({103, u"垫圈", 1.5, 0.2});
    return Recordset(
        std::make_shared<Interposed>(NewScriptedRecordset(factory.GetRecorder(), std::move(rows)),
                                     member, std::move(behaviour)));
  }
  // The next recordsets have an AddNew that refuses the rows for which `refuses` returns true and
  // keeps the others.
  void RefuseWholeRows(const std::function<bool(int row)>& refuses) {
    factory.Makes(u"ADODB.Recordset", [refuses](const RecorderPtr& recorder) -> ObjectPtr {
      const Recordset made(NewScriptedRecordset(recorder, {}));
      made.Close();
      return std::make_shared<Interposed>(
          made.Object(), u"AddNew",
          [refuses, row = 0](std::span<Value> arguments, const auto& call) mutable {
            if (!arguments.empty() && refuses(++row)) Fail();
            return call();
          });
    });
  }
  static std::vector<std::string> Copied(const Recordset& copy) {
    return copy ? RowTexts(copy) : std::vector<std::string>{"no copy"};
  }

  const std::vector<std::string> kAll{"101 \"螺钉\" 12.3456 0.1 ", "102 Null 0.0 Null ",
                                      "103 \"垫圈\" 1.5 0.2 "};
};

TEST_P(RecordCopyOfOddities, LosesNoRowOfABlockThatFailsWhenItsRowsAreRead) {
  int blocks = 0;
  const Recordset source = Source(u"GetRows", [&](std::span<Value> arguments, const auto& call) {
    arguments[0] = Value(1);
    Value answer = call();
    if (++blocks == 2) Fail();
    return answer;
  });
  EXPECT_EQ(Copied(GetParam()(factory, source)), kAll);
  EXPECT_EQ(blocks, 2) << "no third block";
}

TEST_P(RecordCopyOfOddities, LosesNoRowOfABlockThatLacksAField) {
  const Recordset source = Source(u"GetRows", [](std::span<Value> arguments, const auto& call) {
    arguments[2] = Value(u"FName");
    return call();
  });
  EXPECT_EQ(Copied(GetParam()(factory, source)), kAll);
}

TEST_P(RecordCopyOfOddities, GoesOnWhereASourceIsThatCannotGoBack) {
  const Recordset source = Source(u"MoveFirst", [](auto, const auto&) -> Value { Fail(); });
  const Recordset blocks(std::make_shared<Interposed>(
      source.Object(), u"GetRows", [](std::span<Value> arguments, const auto& call) -> Value {
        arguments[0] = Value(1);
        call();
        Fail();
      }));
  EXPECT_THAT(Copied(GetParam()(factory, blocks)), ElementsAre(kAll[1], kAll[2]));
}

TEST_P(RecordCopyOfOddities, CopiesNoRowTwiceWhereASourceStopsOnItsWayBack) {
  int blocks = 0;
  const Recordset source = Source(u"MoveNext", [](auto, const auto&) -> Value { Fail(); });
  const Recordset failing(std::make_shared<Interposed>(
      source.Object(), u"GetRows", [&](std::span<Value> arguments, const auto& call) {
        arguments[0] = Value(1);
        Value answer = call();
        if (++blocks == 2) Fail();
        return answer;
      }));
  EXPECT_THAT(Copied(GetParam()(factory, failing)), ElementsAre(kAll[0]));
}

TEST_P(RecordCopyOfOddities, KeepsRowsThatCannotBeAddedWhole) {
  RefuseWholeRows([](int) { return true; });
  const Recordset source = Source(u"EOF", [](auto, const auto& call) { return call(); });
  EXPECT_EQ(Copied(GetParam()(factory, source)), kAll);
}

TEST_P(RecordCopyOfOddities, KeepsARowThatCannotBeAddedWholeBeforeAnotherOne) {
  RefuseWholeRows([](int row) { return row <= 2; });
  const Recordset source = Source(u"EOF", [](auto, const auto& call) { return call(); });
  EXPECT_EQ(Copied(GetParam()(factory, source)), kAll);
}

INSTANTIATE_TEST_SUITE_P(Manners, RecordCopyOfOddities, ::testing::Values(CopyRecords, CopyList),
                         [](const auto& tested) {
                           return tested.param == CopyRecords ? "Browser" : "Form";
                         });

// What the copy of the two items lacks after one failing call.
struct Loss {
  bool copy = false;
  std::string column;
  std::size_t firstRow = 2;  // from this row on
  std::size_t row = 2;
  std::string cellsOf;  // a column whose texts do not fit
  std::size_t cellRow = 2;
  std::string cell;
};

constexpr std::array kItemColumns{"Fitemid", "FName", "FPencentPrepare", "FRate"};
constexpr const char* kCopied = "ADODB.Recordset";

std::size_t CountStarting(const std::vector<std::string>& lines, const std::string& start) {
  return static_cast<std::size_t>(std::count_if(
      lines.begin(), lines.end(), [&](const auto& line) { return line.starts_with(start); }));
}

// The loss that follows from the failing line of the log, its last one that fails.
Loss LossOf(std::vector<std::string> lines) {
  constexpr std::string_view kFails = " fails";
  const auto failing = std::find_if(lines.begin(), lines.end(),
                                    [&](const auto& line) { return line.ends_with(kFails); });
  if (failing == lines.end()) return {};
  const std::string line = failing->substr(0, failing->size() - kFails.size());
  lines.erase(failing, lines.end());
  const std::string copy = kCopied;
  const bool opened = CountStarting(lines, copy + ".Open(") > 0;
  Loss loss;
  const auto names = [&](const char* column, const std::string& member) {
    return line.find("\"" + std::string(column) + "\"" + member) != std::string::npos;
  };
  if (!opened) {
    loss.copy = line.starts_with("create ") || line.find("CursorLocation") != std::string::npos ||
                line == copy + ".Open()" || line == "source.Fields()" ||
                line == "source.Fields.Count()";
    for (std::size_t i = 0; i < kItemColumns.size(); ++i) {
      const char* const column = kItemColumns[i];
      const bool appends = line.starts_with(copy + ".Fields.Append") || line == copy + ".Fields()";
      if (line == "source.Fields.Item(" + std::to_string(i) + ")" || names(column, ").Name()") ||
          (appends && CountStarting(lines, copy + ".Fields.Append") == i)) {
        loss.column = column;
      }
      if (names(column, ").DefinedSize()")) loss.cellsOf = column;
    }
    return loss;
  }
  const bool hasBlock = CountStarting(lines, "source.GetRows(") > 0;
  const std::size_t begun = CountStarting(lines, copy + ".AddNew()");
  if (line == "source.EOF()" && !hasBlock) loss.firstRow = begun;
  if (line == "source.MoveNext()") loss.firstRow = begun;
  if (line == copy + ".AddNew()") loss.row = begun;
  const bool inRow = begun > 0 && (line.find("Fields") != std::string::npos);
  if (inRow) {
    loss.cellRow = begun - 1;
    std::vector<std::string> row(lines.begin(), lines.end());
    while (CountStarting(row, copy + ".AddNew()") > 0) row.erase(row.begin());
    loss.cell = kItemColumns[CountStarting(row, "put " + copy + ".Fields(")];
  }
  return loss;
}

std::vector<std::string> RemainingRows(const Loss& loss) {
  const std::vector<std::vector<std::string>> rows{{"101", "\"螺钉\"", "12.3456", "0.1"},
                                                   {"102", "Null", "0.0", "Null"}};
  std::vector<std::string> texts;
  for (std::size_t row = 0; row < rows.size() && row < loss.firstRow; ++row) {
    if (row == loss.row) continue;
    std::string& text = texts.emplace_back();
    for (std::size_t i = 0; i < kItemColumns.size(); ++i) {
      const std::string column = kItemColumns[i];
      if (column == loss.column) continue;
      const bool lost = (row == loss.cellRow && column == loss.cell) ||
                        (column == loss.cellsOf && rows[row][i].starts_with("\""));
      text += (lost ? "Null" : rows[row][i]) + " ";
    }
  }
  return texts;
}

struct FailingCopy {
  const char* name;
  Recordset (*copy)(ObjectFactory& factory, const Recordset& source);
  bool hasBlocks;
};
void PrintTo(const FailingCopy& given, std::ostream* stream) { *stream << given.name; }

class RecordCopyFailures : public ::testing::TestWithParam<FailingCopy> {};

TEST_P(RecordCopyFailures, LoseOnlyWhatTheStepWouldHaveCopied) {
  FailEachCallInTurn([](int failingCall) {
    EditorWorld world;
    world.factory.LogRecordsetCalls();
    ScriptedRows rows = TwoItems();
    rows.hasGetRows = GetParam().hasBlocks;
    const Recordset source(
        NewScriptedRecordset(world.factory.GetRecorder(), std::move(rows), u"source"));
    const int before = world.factory.CallCount();
    world.factory.FailCall(failingCall);
    const Recordset copy = GetParam().copy(world.factory, source);
    const int calls = world.factory.CallCount() - before;
    const std::string log = world.log.Text();
    world.factory.FailCall(0);
    const Loss loss = LossOf(world.log.Lines());
    EXPECT_EQ(!copy, loss.copy) << log;
    if (copy) {
      EXPECT_EQ(RowTexts(copy), RemainingRows(loss)) << log;
    }
    return calls;
  });
}

INSTANTIATE_TEST_SUITE_P(Manners, RecordCopyFailures,
                         ::testing::Values(FailingCopy{"BrowserByBlocks", CopyRecords, true},
                                           FailingCopy{"FormByBlocks", CopyList, true},
                                           FailingCopy{"BrowserByFields", CopyRecords, false},
                                           FailingCopy{"FormByFields", CopyList, false}),
                         CaseName<FailingCopy>);

}  // namespace
}  // namespace pricedown
