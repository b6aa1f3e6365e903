// Tests of the walk over a recordset's rows.
// Both ways of reading, by blocks and field by field, have to show the same rows.
#include "platform/row_reader.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "platform/convert.h"
#include "tests/support/case_name.h"
#include "tests/support/failure.h"
#include "tests/support/memory_block.h"
#include "tests/support/scripted_recordset.h"

namespace pricedown::testing {
namespace {

std::string Shown(const CellView& cell) {
  switch (cell.kind) {
    case CellView::Kind::Null:
      return "Null";
    case CellView::Kind::Number:
      return Utf8(NumberText(cell.number));
    case CellView::Kind::Text:
      return Quoted(cell.text);
    case CellView::Kind::Other:
      return "other";
  }
  return "unknown";
}

// All rows as "1|"甲"" and so on, one a line.
std::string ReadAll(RowReader& reader, std::size_t columns) {
  std::string text;
  while (reader.Next()) {
    for (std::size_t index = 0; index < columns; ++index) {
      if (index > 0) text += "|";
      text += Shown(reader.Field(index));
    }
    text += "\n";
  }
  return text;
}

struct WayCase {
  const char* name;
  bool byBlocks;
};
void PrintTo(const WayCase& way, std::ostream* stream) { *stream << way.name; }

class RowReaderTest : public ::testing::TestWithParam<WayCase> {
 protected:
  Recordset Answer(ScriptedRows rows) {
    rows.hasGetRows = GetParam().byBlocks;
    return Recordset(NewScriptedRecordset(factory.GetRecorder(), std::move(rows)));
  }

  CallLog log;
  RecordingFactory factory{log};
};

INSTANTIATE_TEST_SUITE_P(Way, RowReaderTest,
                         ::testing::Values(WayCase{"ByBlocks", true},
                                           WayCase{"FieldByField", false}),
                         CaseName<WayCase>);

TEST_P(RowReaderTest, ReturnsTheRequestedFieldsInTheRequestedOrder) {
  const Recordset recordset =
      Answer(Rows({u"FItemID", u"FNumber", u"FName"}, {{1, u"01", u"甲"}, {2, u"02", Null{}}}));
  RowReader reader(recordset, {u"fname", u"FItemID"});
  EXPECT_EQ(ReadAll(reader, 2), Lines(R"(
      "甲"|1
      Null|2
      )"));
}

TEST_P(RowReaderTest, BeginsAtTheCurrentRow) {
  const Recordset recordset = Answer(Rows({u"FItemID"}, {{1}, {2}, {3}}));
  recordset.MoveNext();
  RowReader reader(recordset, {u"FItemID"});
  EXPECT_EQ(ReadAll(reader, 1), "2\n3\n");
}

TEST_P(RowReaderTest, LeavesTheRecordsetAtItsEnd) {
  const Recordset recordset = Answer(Rows({u"FItemID"}, {{1}, {2}}));
  RowReader reader(recordset, {u"FItemID"});
  ReadAll(reader, 1);
  EXPECT_TRUE(recordset.AtEnd());
  EXPECT_FALSE(reader.Next());
}

TEST_P(RowReaderTest, ReadsNothingFromAnEmptyRecordset) {
  const Recordset recordset = Answer(Rows({u"FItemID"}, {}));
  RowReader reader(recordset, {u"FItemID"});
  EXPECT_FALSE(reader.Next());
  EXPECT_FALSE(reader.Next());
}

TEST_P(RowReaderTest, ReadsNothingFromARecordsetAtItsEnd) {
  const Recordset recordset = Answer(Rows({u"FItemID"}, {{1}}));
  recordset.MoveNext();
  RowReader reader(recordset, {u"FItemID"});
  EXPECT_FALSE(reader.Next());
}

TEST_P(RowReaderTest, ReturnsEveryKindOfValueAsNullNumberOrText) {
  const Recordset recordset = Answer(Rows(
      {u"F"},
      {{Value()}, {Null{}}, {std::int16_t{-3}}, {70000}, {12.5}, {u""}, {true}, {Date{39448.5}}}));
  RowReader reader(recordset, {u"F"});
  EXPECT_EQ(ReadAll(reader, 1), Lines(R"(
      Null
      Null
      -3
      70000
      12.5
      ""
      "True"
      "2008-01-01 12:00:00"
      )"));
}

TEST_P(RowReaderTest, KeepsConvertedTextsOfOneRowApart) {
  const Recordset recordset = Answer(Rows({u"F1", u"F2"}, {{true, false}}));
  RowReader reader(recordset, {u"F1", u"F2"});
  ASSERT_TRUE(reader.Next());
  const CellView first = reader.Field(0);
  const CellView second = reader.Field(1);
  EXPECT_EQ(Shown(first), R"("True")");
  EXPECT_EQ(Shown(second), R"("False")");
}

TEST_P(RowReaderTest, ReadsMoreRowsThanABlockHolds) {
  constexpr int kRows = 4096 * 2 + 1;
  std::vector<std::vector<Value>> rows;
  for (int row = 0; row < kRows; ++row) rows.push_back({row, NumberText(row)});
  const Recordset recordset = Answer(Rows({u"FItemID", u"FNumber"}, std::move(rows)));
  RowReader reader(recordset, {u"FItemID", u"FNumber"});
  int row = 0;
  for (; reader.Next(); ++row) {
    ASSERT_EQ(reader.Field(0).number, row);
    ASSERT_EQ(reader.Field(1).text, NumberText(row));
  }
  EXPECT_EQ(row, kRows);
}

TEST_P(RowReaderTest, ReadsWholeBlocksToTheLastRow) {
  std::vector<std::vector<Value>> rows(4096, {Value(1)});
  const Recordset recordset = Answer(Rows({u"FItemID"}, std::move(rows)));
  RowReader reader(recordset, {u"FItemID"});
  int count = 0;
  while (reader.Next()) ++count;
  EXPECT_EQ(count, 4096);
}

TEST_P(RowReaderTest, FailsForAFieldThatTheRecordsetDoesNotHave) {
  const Recordset recordset = Answer(Rows({u"FItemID"}, {{1}}));
  RowReader reader(recordset, {u"FItemID", u"FModel"});
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(Shown(reader.Field(0)), "1");
  EXPECT_EQ(FailureOf([&] { reader.Field(1); }).substr(0, 8), "800A0CC1");
  EXPECT_FALSE(reader.Next());
}

TEST_P(RowReaderTest, FailsWithoutARecordset) {
  RowReader reader(Recordset(), {u"FItemID"});
  EXPECT_EQ(FailureOf([&] { reader.Next(); }), "800A005B 未设置对象: 记录集");
  EXPECT_FALSE(reader.Next());
}

TEST_P(RowReaderTest, HoldsTheRecordsetWhileItWalks) {
  Recordset recordset = Answer(Rows({u"FItemID"}, {{1}, {2}}));
  {
    RowReader reader(recordset, {u"FItemID"});
    recordset.Release();
    EXPECT_EQ(ReadAll(reader, 1), "1\n2\n");
    EXPECT_EQ(factory.LiveObjects(), 1);
  }
  EXPECT_EQ(log.Text(), "release result\n");
}

// Each call to the recordset fails once: the failure arrives, and the walk ends whether or not the
// caller handles it. A block that fails is read again and loses nothing.
TEST_P(RowReaderTest, EndsAfterAnyOtherFailureOfTheRecordset) {
  FailEachCallInTurn([](int failingCall) {
    CallLog lines;
    RecordingFactory disturbed{lines};
    ScriptedRows rows = Rows({u"FItemID", u"FName"}, {{1, u"甲"}, {2, u"乙"}, {3, u"丙"}});
    rows.hasGetRows = GetParam().byBlocks;
    {
      const Recordset recordset(NewScriptedRecordset(disturbed.GetRecorder(), std::move(rows)));
      RowReader reader(recordset, {u"FItemID", u"FName"});
      disturbed.FailCall(failingCall);
      int failures = 0;
      int steps = 0;
      for (bool more = true; more; ++steps) {
        try {
          more = reader.Next();
        } catch (const AutomationError& error) {
          EXPECT_EQ(error.Number(), kInjectedFailure);
          ++failures;
        }
        if (steps > 10) {
          ADD_FAILURE() << "the walk does not end";
          break;
        }
      }
      const bool readAgain = lines.Text().find("GetRows") != std::string::npos;
      EXPECT_EQ(failures, failingCall == 0 || readAgain ? 0 : 1) << lines.Text();
      if (failures == 0) {
        EXPECT_EQ(steps, 4);
      }
    }
    EXPECT_EQ(disturbed.LiveObjects(), 0);
    return disturbed.CallCount();
  });
}

class RowReaderCalls : public ::testing::Test {
 protected:
  CallLog log;
  RecordingFactory factory{log};
};

TEST_F(RowReaderCalls, RequestsBlocksOf4096RowsOfTheNamedFields) {
  factory.LogRecordsetCalls();
  const Recordset recordset(
      NewScriptedRecordset(factory.GetRecorder(), Rows({u"FItemID", u"FName"}, {{1, u"甲"}})));
  RowReader reader(recordset, {u"FItemID", u"FName"});
  ReadAll(reader, 2);
  EXPECT_EQ(log.Text(), Lines(R"(
      result.EOF()
      result.GetRows(4096, Missing, ["FItemID", "FName"])
      result.EOF()
      )"));
}

TEST_F(RowReaderCalls, GetsTheFieldsOnceWhenItReadsFieldByField) {
  factory.LogRecordsetCalls();
  const Recordset recordset(NewScriptedRecordset(
      factory.GetRecorder(),
      Rows({u"FItemID", u"FName"}, {{1, u"甲"}, {2, u"乙"}}).WithoutGetRows()));
  RowReader reader(recordset, {u"FItemID", u"FName"});
  ReadAll(reader, 2);
  EXPECT_EQ(log.Text(), Lines(R"(
      result.EOF()
      result.Fields()
      result.Fields.Item("FItemID")
      result.Fields("FItemID").Value()
      result.Fields()
      result.Fields.Item("FName")
      result.Fields("FName").Value()
      result.MoveNext()
      result.EOF()
      result.Fields("FItemID").Value()
      result.Fields("FName").Value()
      result.MoveNext()
      result.EOF()
      )"));
}

struct LackCase {
  const char* name;
  ErrorNumber number;
};
void PrintTo(const LackCase& row, std::ostream* stream) { *stream << row.name; }

class RowReaderFallback : public ::testing::TestWithParam<LackCase> {};

TEST_P(RowReaderFallback, ReadsFieldByFieldWhenGetRowsIsDeclaredButMissing) {
  RecordingFactory factory{CallLog()};
  factory.Object(u"RS")
      .On(u"EOF", false)
      .On(u"EOF", true)
      .On(u"GetRows", Reply::Failing(static_cast<std::int32_t>(GetParam().number), u""))
      .On(u"Fields", factory.Answering(u"Fields"))
      .On(u"MoveNext", Value());
  factory.Object(u"Fields").On(u"", factory.Answering(u"Field"));
  factory.Object(u"Field").On(u"Value", 7);
  RowReader reader(Recordset(factory.NewObject(u"RS")), {u"FItemID"});
  EXPECT_EQ(ReadAll(reader, 1), "7\n");
}

INSTANTIATE_TEST_SUITE_P(Errors, RowReaderFallback,
                         ::testing::Values(LackCase{"UnknownName", ErrorNumber::UnknownName},
                                           LackCase{"MemberNotFound", ErrorNumber::MemberNotFound},
                                           LackCase{"NotImplemented", ErrorNumber::NotImplemented}),
                         CaseName<LackCase>);

// The rows of a query whose block number `failing` (from 0) fails, and so does the value of the
// second field in row `unreadable` (from 0).
class FailingRows {
 public:
  static constexpr int kRows = 10000;

  FailingRows(RecordingFactory& factory, int failing, int unreadable) {
    factory.Object(u"RS")
        .On(u"EOF", Reply::From([this](auto) { return row_ >= kRows; }))
        .On(u"MoveFirst", Reply::From([this](auto) {
              row_ = 0;
              return Value();
            }))
        .On(u"MoveNext", Reply::From([this](auto) {
              ++row_;
              return Value();
            }))
        .On(u"GetRows",
            Reply::From([this, failing](auto arguments) { return Block(arguments, failing); }))
        .On(u"Fields", factory.Answering(u"Fields"));
    factory.Object(u"Fields")
        .On(u"", R"("FItemID")", factory.Answering(u"id"))
        .On(u"", R"("FName")", factory.Answering(u"name"));
    factory.Object(u"id").On(u"Value", Reply::From([this](auto) { return row_; }));
    factory.Object(u"name").On(u"Value", Reply::From([this, unreadable](auto) -> Value {
                                 if (row_ == unreadable) throw AutomationError(-6, u"损坏的值");
                                 return NumberText(row_);
                               }));
  }

 private:
  Value Block(std::span<Value> arguments, int failing) {
    const int count = std::min(arguments[0].Int32(), kRows - row_);
    if (blocks_++ == failing) {
      row_ += count / 2;  // the recordset stands in the middle of the block
      throw AutomationError(-5, u"块无法读取");
    }
    std::vector<std::vector<Value>> rows;
    for (int i = 0; i < count; ++i) rows.push_back({row_ + i, NumberText(row_ + i)});
    row_ += count;
    return CellBlockPtr(std::make_shared<MemoryBlock>(2, std::move(rows)));
  }

  int row_ = 0;
  int blocks_ = 0;
};

TEST_F(RowReaderCalls, ReadsABlockThatFailsFieldByField) {
  for (const int failing : {0, 1, 2}) {
    RecordingFactory other{CallLog()};
    const FailingRows rows(other, failing, -1);
    RowReader reader(Recordset(other.NewObject(u"RS")), {u"FItemID", u"FName"});
    int row = 0;
    for (; reader.Next(); ++row) {
      ASSERT_EQ(reader.Field(0).number, row) << failing;
      ASSERT_EQ(reader.Field(1).text, NumberText(row)) << failing;
    }
    EXPECT_EQ(row, FailingRows::kRows) << failing;
  }
}

TEST_F(RowReaderCalls, FailsForTheRowOfAnUnreadableValueOnly) {
  RecordingFactory other{CallLog()};
  constexpr int kUnreadable = 4200;
  const FailingRows rows(other, 1, kUnreadable);
  RowReader reader(Recordset(other.NewObject(u"RS")), {u"FItemID", u"FName"});
  int row = 0;
  for (; reader.Next(); ++row) {
    ASSERT_EQ(reader.Field(0).number, row);
    if (row == kUnreadable) {
      EXPECT_EQ(FailureOf([&] { reader.Field(1); }), "FFFFFFFA 损坏的值");
    } else {
      ASSERT_EQ(reader.Field(1).text, NumberText(row));
    }
  }
  EXPECT_EQ(row, FailingRows::kRows);
}

TEST_F(RowReaderCalls, PassesOnAFailureOfGetRowsWhereTheRecordsetCannotGoBack) {
  factory.Object(u"RS")
      .On(u"EOF", false)
      .On(u"GetRows", Reply::Failing(-5, u"连接已断开"))
      .On(u"MoveFirst", Reply::Failing(-7, u"只能向前"));
  RowReader reader(Recordset(factory.NewObject(u"RS")), {u"FItemID"});
  EXPECT_EQ(FailureOf([&] { reader.Next(); }), "FFFFFFFB 连接已断开");
  EXPECT_FALSE(reader.Next());
}

TEST_F(RowReaderCalls, RefusesAResultThatIsNotABlockOfTheRequestedColumns) {
  const CellBlockPtr narrow =
      std::make_shared<MemoryBlock>(1, std::vector<std::vector<Value>>{{Value(1)}});
  factory.Object(u"RS")
      .On(u"EOF", false)
      .On(u"GetRows", u"?")
      .On(u"GetRows", CellBlockPtr())
      .On(u"GetRows", narrow)
      .Lacks(u"MoveFirst");
  for (int answer = 0; answer < 3; ++answer) {
    RowReader reader(Recordset(factory.NewObject(u"RS")), {u"FItemID", u"FName"});
    EXPECT_EQ(FailureOf([&] { reader.Next(); }).substr(0, 8), "80020005");
    EXPECT_FALSE(reader.Next());
  }
}

TEST_F(RowReaderCalls, EndsWhenABlockHasNoRows) {
  const CellBlockPtr empty = std::make_shared<MemoryBlock>(1, std::vector<std::vector<Value>>());
  factory.Object(u"RS").On(u"EOF", false).On(u"GetRows", empty);
  RowReader reader(Recordset(factory.NewObject(u"RS")), {u"FItemID"});
  EXPECT_FALSE(reader.Next());
}

}  // namespace
}  // namespace pricedown::testing
