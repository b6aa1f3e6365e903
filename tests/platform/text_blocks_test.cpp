// Tests of reading rows as one text a block, through the reader that uses it.
// For all contents and failures of the recordset, the rows are the same as by the other ways of
// reading.
#include "platform/text_blocks.h"

#include <gtest/gtest.h>

#include "platform/cell_text.h"
#include "platform/convert.h"
#include "platform/row_reader.h"
#include "tests/support/case_name.h"
#include "tests/support/failure.h"
#include "tests/support/scripted_recordset.h"

namespace pricedown::testing {
namespace {

constexpr int kRows = kRowsPerBlock * 2 + 7;

std::vector<std::vector<Value>> NumberedRows(int count) {
  std::vector<std::vector<Value>> rows;
  for (int row = 0; row < count; ++row) {
    rows.push_back({row, u"N" + NumberText(row), u"名" + NumberText(row)});
  }
  return rows;
}

class TextBlocksTest : public ::testing::Test {
 protected:
  TextBlocksTest() { factory.LogRecordsetCalls(); }

  Recordset Answer(std::vector<std::vector<Value>> rows) {
    return Recordset(NewScriptedRecordset(factory.GetRecorder(),
                                          Rows({u"FItemID", u"FNumber", u"FName"}, rows)));
  }

  // Reads all rows and compares them with `rows` from `first` on.
  static void ExpectRows(const Recordset& recordset, const std::vector<std::vector<Value>>& rows,
                         std::size_t first = 0) {
    RowReader reader(recordset, {u"FName", u"FNumber"}, NullCells::AsEmptyText);
    std::u16string scratch;
    for (std::size_t row = first; row < rows.size(); ++row) {
      ASSERT_TRUE(reader.Next()) << row;
      ASSERT_EQ(Quoted(CellText(reader.Field(0), scratch)), Quoted(ToText(rows[row][2]))) << row;
      ASSERT_EQ(Quoted(CellText(reader.Field(1), scratch)), Quoted(ToText(rows[row][1]))) << row;
    }
    EXPECT_FALSE(reader.Next());
  }

  int Calls(const std::string& member) const {
    int calls = 0;
    const std::string text = log.Text();
    for (auto at = text.find("result." + member + "("); at != std::string::npos;
         at = text.find("result." + member + "(", at + 1)) {
      ++calls;
    }
    return calls;
  }

  CallLog log;
  RecordingFactory factory{log};
};

TEST_F(TextBlocksTest, CarriesManyRowsOfTextsAsOneTextABlock) {
  const auto rows = NumberedRows(kRows);
  ExpectRows(Answer(rows), rows);
  // The first block shows whether there are many.
  EXPECT_EQ(Calls("GetRows"), 1);
  EXPECT_EQ(Calls("GetString"), 2);
}

TEST_F(TextBlocksTest, BeginsAtTheCurrentRow) {
  const auto rows = NumberedRows(kRows);
  const Recordset recordset = Answer(rows);
  recordset.MoveNext();
  recordset.MoveNext();
  ExpectRows(recordset, rows, 2);
}

TEST_F(TextBlocksTest, ShowsNullCellsAsEmptyTexts) {
  auto rows = NumberedRows(kRows);
  rows[kRowsPerBlock + 5][1] = Null{};
  rows[kRows - 1][2] = Null{};
  ExpectRows(Answer(rows), rows);
  EXPECT_EQ(Calls("GetRows"), 1);
}

TEST_F(TextBlocksTest, LeavesTheRecordsetWhereBlocksOfCellsWouldLeaveIt) {
  for (const int walked : {1, kRowsPerBlock, kRowsPerBlock + 1, kRows}) {
    std::vector<Value> places;
    for (const NullCells nullCells : {NullCells::Kept, NullCells::AsEmptyText}) {
      const Recordset recordset = Answer(NumberedRows(kRows));
      RowReader reader(recordset, {u"FNumber"}, nullCells);
      for (int row = 0; row < walked; ++row) ASSERT_TRUE(reader.Next());
      places.push_back(recordset.Object()->Get(u"AbsolutePosition"));
    }
    EXPECT_EQ(places[0], places[1]) << walked;
  }
}

TEST_F(TextBlocksTest, IsNotUsedForReadersThatDistinguishNullFromEmpty) {
  const Recordset recordset = Answer(NumberedRows(kRows));
  RowReader reader(recordset, {u"FNumber"});
  while (reader.Next()) continue;
  EXPECT_EQ(Calls("GetString"), 0);
  EXPECT_EQ(Calls("GetRows"), 3);
}

TEST_F(TextBlocksTest, IsNotUsedForColumnsOfNumbers) {
  const Recordset recordset = Answer(NumberedRows(kRows));
  RowReader reader(recordset, {u"FNumber", u"FItemID"}, NullCells::AsEmptyText);
  int row = 0;
  for (; reader.Next(); ++row) {
    ASSERT_EQ(reader.Field(1).kind, CellView::Kind::Number);
    ASSERT_EQ(reader.Field(1).number, row);
  }
  EXPECT_EQ(row, kRows);
  EXPECT_EQ(Calls("GetString"), 0);
}

TEST_F(TextBlocksTest, QueriesNoColumnTypesForASingleBlock) {
  const auto rows = NumberedRows(kRowsPerBlock);
  ExpectRows(Answer(rows), rows);
  EXPECT_EQ(Calls("Fields") + Calls("AbsolutePosition") + Calls("GetString"), 0);
  EXPECT_EQ(Calls("GetRows"), 1);
}

// Whichever call fails, the reader falls back to reading cells or ends the walk.
TEST_F(TextBlocksTest, LosesAndRepeatsNoRowWhenACallFails) {
  FailEachCallInTurn([](int failingCall) {
    RecordingFactory disturbed{CallLog()};
    const Recordset recordset(NewScriptedRecordset(
        disturbed.GetRecorder(),
        Rows({u"FItemID", u"FNumber", u"FName"}, NumberedRows(kRowsPerBlock + 9))));
    RowReader reader(recordset, {u"FNumber"}, NullCells::AsEmptyText);
    disturbed.FailCall(failingCall);
    int row = 0;
    try {
      for (; reader.Next(); ++row) EXPECT_EQ(reader.Field(0).text, u"N" + NumberText(row));
      EXPECT_EQ(row, kRowsPerBlock + 9);
    } catch (const AutomationError& error) {
      EXPECT_EQ(error.Number(), kInjectedFailure);
    }
    return disturbed.CallCount();
  });
}

// A block, and two rows of the next.
constexpr int kRowsOfTwo = kRowsPerBlock + 2;

TEST_F(TextBlocksTest, ReturnsRowsUntilAllAreRead) {
  const Recordset recordset = Answer(NumberedRows(kRowsOfTwo));
  std::optional<TextBlocks> blocks = TextBlocks::Of(recordset, {u"FName", u"FNumber"});
  ASSERT_TRUE(blocks);
  const CellBlockPtr first = blocks->Read();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(first->ColumnCount(), 2u);
  EXPECT_EQ(first->RowCount(), static_cast<std::size_t>(kRowsPerBlock));
  EXPECT_EQ(first->CellValue(1, 3), Value(u"N3"));
  const CellBlockPtr second = blocks->Read();
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(second->RowCount(), 2u);
  EXPECT_EQ(second->CellValue(0, 1), Value(u"名4097"));
  EXPECT_EQ(blocks->Read(), nullptr);
  EXPECT_EQ(Calls("GetString"), 2);
}

TEST_F(TextBlocksTest, IsNotMadeForAFieldThatTheRecordsetDoesNotHave) {
  EXPECT_FALSE(TextBlocks::Of(Answer(NumberedRows(2)), {u"FName", u"FModel"}));
}

// A recordset with one faulty member.
class Misanswering : public AutomationObject {
 public:
  Misanswering(ObjectPtr recordset, std::u16string_view member, Value answer)
      : recordset_(std::move(recordset)),
        member_(recordset_->Find(member)),
        answer_(std::move(answer)) {}

  MemberId Find(std::u16string_view name) override { return recordset_->Find(name); }
  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override {
    Value value = recordset_->Invoke(member, access, arguments);
    return member == member_ && access == Access::Call ? answer_ : value;
  }

 private:
  ObjectPtr recordset_;
  MemberId member_;
  Value answer_;
};

TEST_F(TextBlocksTest, IsNotUsedForRecordsetsWithoutPositionOrCount) {
  for (const char16_t* const member : {u"AbsolutePosition", u"RecordCount"}) {
    const auto rows = NumberedRows(kRowsOfTwo);
    ExpectRows(Recordset(std::make_shared<Misanswering>(Answer(rows).Object(), member, -1)), rows);
  }
  EXPECT_EQ(Calls("GetString"), 0);
}

TEST_F(TextBlocksTest, ReadsTheCellsOfABlockWhoseTextIsIncomplete) {
  for (const char16_t* const text :
       {u"", u"4096\x1FN4096\x1F名4096", u"4096\x1FN4096\x1F名4096\x1E"}) {
    SCOPED_TRACE(Quoted(text));
    const auto rows = NumberedRows(kRowsOfTwo);
    ExpectRows(Recordset(std::make_shared<Misanswering>(Answer(rows).Object(), u"GetString", text)),
               rows);
  }
  EXPECT_EQ(Calls("GetString"), 3);
  EXPECT_EQ(Calls("GetRows"), 6);
}

// A recordset whose texts are empty and whose position can only be read.
class ReadOnlyPosition : public Misanswering {
 public:
  explicit ReadOnlyPosition(ObjectPtr recordset)
      : Misanswering(std::move(recordset), u"GetString", u"") {}

  Value Invoke(MemberId member, Access access, std::span<Value> arguments) override {
    if (access == Access::Put) throw AutomationError(ErrorNumber::MemberNotFound, u"只读");
    return Misanswering::Invoke(member, access, arguments);
  }
};

TEST_F(TextBlocksTest, ReadsFieldByFieldFromTheSameRowWhereThePositionIsReadOnly) {
  const auto rows = NumberedRows(kRows);
  ExpectRows(Recordset(std::make_shared<ReadOnlyPosition>(Answer(rows).Object())), rows);
  EXPECT_EQ(Calls("GetRows"), 1);
  EXPECT_EQ(Calls("MoveFirst"), 1);
}

struct TypeCase {
  const char* name;
  std::vector<std::int32_t> types;  // ADO DataTypeEnum
  bool beside;                      // whether text blocks are used beside such a column
  bool asked;                       // and whether text blocks are used for it
};
void PrintTo(const TypeCase& row, std::ostream* stream) { *stream << row.name; }

class TextBlocksType : public TextBlocksTest, public ::testing::WithParamInterface<TypeCase> {
 protected:
  bool MayRead(std::int32_t type, std::u16string_view asked) {
    ScriptedRows rows = Rows({u"F", u"FName"}, {{u"1", u"甲"}});
    rows.columns[0].type = type;
    const Recordset recordset(NewScriptedRecordset(factory.GetRecorder(), std::move(rows)));
    return TextBlocks::Of(recordset, {asked}).has_value();
  }
};

TEST_P(TextBlocksType, DecidesWhatMayBeReadAsTexts) {
  for (const std::int32_t type : GetParam().types) {
    EXPECT_EQ(MayRead(type, u"FName"), GetParam().beside) << type;
    EXPECT_EQ(MayRead(type, u"F"), GetParam().asked) << type;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Types, TextBlocksType,
    ::testing::Values(
        TypeCase{"Text", {8, 129, 130, 200, 201, 202, 203}, true, true},
        TypeCase{"Number", {2, 3, 4, 5, 6, 14, 16, 17, 18, 19, 20, 21, 131}, true, false},
        // Dates, truths, variants, binaries and the like.
        TypeCase{
            "Other", {1, 7, 9, 11, 12, 13, 15, 22, 64, 72, 128, 133, 135, 204, 205}, false, false}),
    CaseName<TypeCase>);

struct DelimiterCase {
  const char* name;
  const char16_t* cell;
};
void PrintTo(const DelimiterCase& row, std::ostream* stream) { *stream << row.name; }

class TextBlocksDelimiter : public TextBlocksTest,
                            public ::testing::WithParamInterface<DelimiterCase> {};

TEST_P(TextBlocksDelimiter, InACellMakesTheReaderReadItsBlockCellByCell) {
  for (const std::size_t at : {std::size_t{0}, std::size_t{kRowsPerBlock},
                               std::size_t{kRowsPerBlock * 2 + 3}, std::size_t{kRows - 1}}) {
    SCOPED_TRACE(at);
    auto rows = NumberedRows(kRows);
    rows[at][1] = GetParam().cell;
    ExpectRows(Answer(rows), rows);
  }
  // Once for each first block, and for the blocks from the delimiter's on.
  EXPECT_EQ(Calls("GetRows"), 4 + 2 + 1 + 1);
}

INSTANTIATE_TEST_SUITE_P(Cells, TextBlocksDelimiter,
                         ::testing::Values(DelimiterCase{"OfColumns", u"甲\x1F乙"},
                                           DelimiterCase{"OfRows", u"甲\x1E乙"},
                                           DelimiterCase{"LikeAWholeRow", u"甲\x1F乙\x1E7\x1F丙"},
                                           DelimiterCase{"OfRowsAtTheEnd", u"甲\x1E"},
                                           DelimiterCase{"OfColumnsAlone", u"\x1F"}),
                         CaseName<DelimiterCase>);

TEST_F(TextBlocksTest, KeepsOtherControlCharactersOfACell) {
  auto rows = NumberedRows(kRows);
  rows[kRowsPerBlock + 1][1] = u"甲\r\n\t乙";
  ExpectRows(Answer(rows), rows);
  EXPECT_EQ(Calls("GetRows"), 1);
}

}  // namespace
}  // namespace pricedown::testing
