// The contract of recordsets, test by test.
// Only what the library relies on is asked; implementations may do more.
#include "tests/support/recordset_contract.h"

#include <gmock/gmock.h>

#include <limits>
#include <ostream>
#include <utility>

#include "platform/cell_block.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "platform/row_reader.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

// The number of the AutomationError that `action` throws; 0 when it throws none.
template <typename Action>
std::int32_t FailureOf(Action action) {
  try {
    action();
  } catch (const AutomationError& error) {
    return error.Number();
  }
  return 0;
}

constexpr auto kNoCurrentRecord = static_cast<std::int32_t>(ErrorNumber::NoCurrentRecord);
constexpr auto kItemNotFound = static_cast<std::int32_t>(ErrorNumber::ItemNotFound);
constexpr auto kObjectClosed = static_cast<std::int32_t>(ErrorNumber::ObjectClosed);

FieldDefinition NullableField(std::u16string name, std::int32_t type, std::int32_t size = 0) {
  return {std::move(name), type, size, ado::kFieldIsNullable};
}

std::string TextOf(const Recordset& recordset, std::u16string_view field) {
  return Utf8(ToText(recordset.Field(field)));
}

}  // namespace

RecordsetSource::RecordsetSource(std::string name, FactoryMaker makeFactory)
    : name_(std::move(name)), makeFactory_(std::move(makeFactory)) {}

void PrintTo(const RecordsetSource& source, std::ostream* stream) { *stream << source.Name(); }

RecordsetContract::RecordsetContract() : factory_(GetParam().MakeFactory()) {}

Recordset RecordsetContract::Closed() {
  Recordset recordset = Recordset::Create(*factory_);
  recordset.AppendField(NullableField(u"FItemID", ado::kInteger));
  recordset.AppendField(NullableField(u"FNumber", ado::kVarWChar, 80));
  recordset.AppendField(NullableField(u"FPencentPrepare", ado::kDouble));
  return recordset;
}

Recordset RecordsetContract::WithRows(int count) {
  Recordset recordset = Closed();
  recordset.Open();
  for (int number = 1; number <= count; ++number) {
    recordset.AddNew();
    recordset.SetField(u"FItemID", number);
    recordset.SetField(u"FNumber", u"A0" + NumberText(number));
    recordset.SetField(u"FPencentPrepare", number + 0.5);
    recordset.Update();
  }
  return recordset;
}

std::vector<std::int32_t> RecordsetContract::ItemIds(const Recordset& recordset) {
  std::vector<std::int32_t> ids;
  if (recordset.RecordCount() == 0) return ids;
  for (recordset.MoveFirst(); !recordset.AtEnd(); recordset.MoveNext()) {
    ids.push_back(ToInt32(recordset.Field(u"FItemID")));
  }
  return ids;
}

TEST_P(RecordsetContract, DeclaresItsFieldsInTheOrderOfAppending) {
  Recordset recordset = Recordset::Create(*factory_);
  recordset.AppendField(NullableField(u"FItemID", ado::kInteger));
  recordset.AppendField(NullableField(u"FModel", ado::kVarWChar, 255));
  recordset.AppendField({u"FQty", ado::kNumeric, 19, ado::kFieldIsNullable, 18, 4});

  const std::vector<FieldDefinition> fields = recordset.Fields();

  ASSERT_EQ(fields.size(), 3u);
  EXPECT_EQ(Utf8(fields[0].name), "FItemID");
  EXPECT_EQ(fields[0].type, ado::kInteger);
  EXPECT_EQ(Utf8(fields[1].name), "FModel");
  EXPECT_EQ(fields[1].type, ado::kVarWChar);
  EXPECT_EQ(fields[1].definedSize, 255);
  EXPECT_EQ(fields[1].attributes & ado::kFieldIsNullable, ado::kFieldIsNullable);
  EXPECT_EQ(fields[2].type, ado::kNumeric);
  EXPECT_EQ(fields[2].precision, 18);
  EXPECT_EQ(fields[2].scale, 4);
}

TEST_P(RecordsetContract, RefusesAFieldOfANameThatItHas) {
  const Recordset recordset = Closed();
  EXPECT_NE(FailureOf([&] { recordset.AppendField(NullableField(u"fitemid", ado::kInteger)); }), 0);
}

TEST_P(RecordsetContract, RefusesFieldsOnceItIsOpen) {
  const Recordset recordset = WithRows(0);
  EXPECT_NE(FailureOf([&] { recordset.AppendField(NullableField(u"FName", ado::kInteger)); }), 0);
  EXPECT_EQ(recordset.Fields().size(), 3u);
}

TEST_P(RecordsetContract, FailsAsClosedBeforeItIsOpenedAndAfterItIsClosed) {
  const Recordset recordset = Closed();
  EXPECT_EQ(FailureOf([&] { recordset.RecordCount(); }), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { recordset.AtEnd(); }), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { recordset.MoveFirst(); }), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { recordset.AddNew(); }), kObjectClosed);
  EXPECT_EQ(FailureOf([&] { recordset.Close(); }), kObjectClosed);
  recordset.Open();
  recordset.AddNew();
  recordset.Update();
  recordset.Close();
  EXPECT_EQ(FailureOf([&] { recordset.RecordCount(); }), kObjectClosed);
}

TEST_P(RecordsetContract, OpensEmpty) {
  const Recordset recordset = WithRows(0);
  EXPECT_EQ(recordset.RecordCount(), 0);
  EXPECT_TRUE(recordset.AtEnd());
  EXPECT_TRUE(ToBoolean(recordset.Object()->Get(u"BOF")));
}

TEST_P(RecordsetContract, HasNoCurrentRecordWhenItIsEmpty) {
  const Recordset recordset = WithRows(0);
  EXPECT_EQ(FailureOf([&] { recordset.MoveFirst(); }), kNoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { recordset.MoveNext(); }), kNoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { recordset.Field(u"FItemID"); }), kNoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { recordset.SetField(u"FItemID", 1); }), kNoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { recordset.Delete(); }), kNoCurrentRecord);
}

TEST_P(RecordsetContract, KeepsAddedRowsInTheirOrder) {
  const Recordset recordset = WithRows(3);
  EXPECT_EQ(recordset.RecordCount(), 3);
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 2, 3));
}

TEST_P(RecordsetContract, HasTheAddedRowAsItsCurrentOne) {
  const Recordset recordset = WithRows(3);
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A03");
  recordset.MoveFirst();
  recordset.AddNew();
  recordset.SetField(u"FNumber", u"A04");
  recordset.Update();
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A04");
}

TEST_P(RecordsetContract, HasNoCurrentRecordBehindTheLastRow) {
  const Recordset recordset = WithRows(1);
  recordset.MoveFirst();
  EXPECT_FALSE(recordset.AtEnd());
  recordset.MoveNext();
  EXPECT_TRUE(recordset.AtEnd());
  EXPECT_EQ(FailureOf([&] { recordset.Field(u"FItemID"); }), kNoCurrentRecord);
  EXPECT_EQ(FailureOf([&] { recordset.MoveNext(); }), kNoCurrentRecord);
}

TEST_P(RecordsetContract, FindsFieldsWithoutRegardToCase) {
  const Recordset recordset = WithRows(1);
  EXPECT_EQ(TextOf(recordset, u"FNUMBER"), "A01");
  recordset.SetField(u"fnumber", u"B");
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "B");
}

TEST_P(RecordsetContract, SaysWhichFieldItDoesNotHave) {
  const Recordset recordset = WithRows(1);
  EXPECT_EQ(FailureOf([&] { recordset.Field(u"FModel"); }), kItemNotFound);
  EXPECT_EQ(FailureOf([&] { recordset.SetField(u"FModel", 1); }), kItemNotFound);
}

TEST_P(RecordsetContract, AnswersAFieldByTheDefaultMembers) {
  const Recordset recordset = WithRows(1);
  const ObjectPtr field = RequireObject(recordset.Object()->Call(u"", {u"FNumber"}), u"FNumber");
  EXPECT_EQ(Utf8(ToText(field->Get(u""))), "A01");
}

TEST_P(RecordsetContract, GivesValuesTheTypeOfTheirField) {
  const Recordset recordset = WithRows(1);
  recordset.SetField(u"FItemID", u"42");
  recordset.SetField(u"FNumber", 1231.1);
  recordset.SetField(u"FPencentPrepare", u" 12.5 ");
  recordset.Update();
  EXPECT_EQ(recordset.Field(u"FItemID"), Value(42));
  EXPECT_EQ(recordset.Field(u"FNumber"), Value(u"1231.1"));
  EXPECT_EQ(recordset.Field(u"FPencentPrepare"), Value(12.5));
}

TEST_P(RecordsetContract, RefusesAValueThatItsFieldCannotHold) {
  const Recordset recordset = WithRows(1);
  EXPECT_NE(FailureOf([&] { recordset.SetField(u"FItemID", u"abc"); }), 0);
  EXPECT_NE(FailureOf([&] { recordset.SetField(u"FNumber", std::u16string(81, u'x')); }), 0);
  EXPECT_EQ(recordset.Field(u"FItemID"), Value(1));
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A01");
}

TEST_P(RecordsetContract, CountsTheLengthOfTextInUtf16Units) {
  const Recordset recordset = WithRows(1);
  std::u16string text(78, u'物');
  text += u"\U00020000";  // two units
  recordset.SetField(u"FNumber", text);
  EXPECT_EQ(recordset.Field(u"FNumber"), Value(text));
}

TEST_P(RecordsetContract, HoldsNothingInFieldsThatWereNotSetOrSetToNull) {
  const Recordset recordset = WithRows(0);
  recordset.AddNew();
  recordset.SetField(u"FItemID", 7);
  recordset.SetField(u"FPencentPrepare", 1.0);
  recordset.SetField(u"FPencentPrepare", Null{});
  recordset.Update();
  EXPECT_TRUE(recordset.Field(u"FNumber").IsNothing());
  EXPECT_EQ(recordset.Field(u"FPencentPrepare"), Value(Null{}));
}

TEST_P(RecordsetContract, KeepsAnEmptyTextApartFromNull) {
  const Recordset recordset = WithRows(1);
  recordset.SetField(u"FNumber", u"");
  EXPECT_EQ(recordset.Field(u"FNumber"), Value(u""));
}

TEST_P(RecordsetContract, KeepsChangesOfTheCurrentRowWhenItMovesOn) {
  const Recordset recordset = WithRows(2);
  recordset.MoveFirst();
  recordset.SetField(u"FNumber", u"B01");
  recordset.MoveNext();
  recordset.AddNew();
  recordset.SetField(u"FItemID", 3);
  recordset.MoveFirst();
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "B01");
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 2, 3));
}

TEST_P(RecordsetContract, KeepsABatchOfRows) {
  const Recordset recordset = WithRows(0);
  for (int number = 1; number <= 3; ++number) {
    recordset.AddNew();
    recordset.SetField(u"FItemID", number);
  }
  recordset.UpdateBatch();
  EXPECT_EQ(recordset.RecordCount(), 3);
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 2, 3));
}

TEST_P(RecordsetContract, CountsADeletedRowNoMore) {
  const Recordset recordset = WithRows(3);
  recordset.MoveFirst();
  recordset.MoveNext();
  recordset.Delete();
  recordset.Update();
  EXPECT_EQ(recordset.RecordCount(), 2);
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 3));
  recordset.UpdateBatch();
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 3));
}

TEST_P(RecordsetContract, MovesFromADeletedRowToTheOneBehindIt) {
  const Recordset recordset = WithRows(3);
  recordset.MoveFirst();
  recordset.Delete();
  recordset.MoveNext();
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A02");
}

TEST_P(RecordsetContract, IsEmptiedByDeletingRowAfterRow) {
  const Recordset recordset = WithRows(3);
  for (recordset.MoveFirst(); !recordset.AtEnd(); recordset.MoveNext()) recordset.Delete();
  EXPECT_EQ(recordset.RecordCount(), 0);
  EXPECT_TRUE(recordset.AtEnd());
  recordset.AddNew();
  recordset.SetField(u"FItemID", 9);
  recordset.Update();
  EXPECT_THAT(ItemIds(recordset), ElementsAre(9));
}

TEST_P(RecordsetContract, ShowsOnlyTheRowsThatPassTheFilter) {
  const Recordset recordset = WithRows(3);
  recordset.SetFilter(u"fNumber='A02'");
  EXPECT_EQ(recordset.RecordCount(), 1);
  EXPECT_FALSE(recordset.AtEnd());
  EXPECT_EQ(recordset.Field(u"FItemID"), Value(2));
  EXPECT_THAT(ItemIds(recordset), ElementsAre(2));
}

TEST_P(RecordsetContract, IsAtItsEndWhenNoRowPassesTheFilter) {
  const Recordset recordset = WithRows(3);
  recordset.SetFilter(u"FNumber='A0'");
  EXPECT_EQ(recordset.RecordCount(), 0);
  EXPECT_TRUE(recordset.AtEnd());
  EXPECT_EQ(FailureOf([&] { recordset.Delete(); }), kNoCurrentRecord);
}

TEST_P(RecordsetContract, FiltersByTextsThatLookLikeNumbersAsTexts) {
  const Recordset recordset = WithRows(2);
  recordset.SetField(u"FNumber", u"01.10");
  recordset.Update();
  recordset.SetFilter(u"FNumber='01.1'");
  EXPECT_EQ(recordset.RecordCount(), 0);
  recordset.SetFilter(u"FNumber='01.10'");
  EXPECT_EQ(recordset.RecordCount(), 1);
}

TEST_P(RecordsetContract, DeletesTheFilteredRowAndShowsTheOthersAfterwards) {
  const Recordset recordset = WithRows(3);
  recordset.SetFilter(u"FNumber='A02'");
  recordset.Delete();
  recordset.Update();
  recordset.SetFilter(u"FNumber='A03'");
  EXPECT_EQ(recordset.Field(u"FItemID"), Value(3));
  recordset.SetFilter(u"");
  EXPECT_EQ(recordset.RecordCount(), 2);
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 3));
}

TEST_P(RecordsetContract, RefusesAFilterThatIsNone) {
  const Recordset recordset = WithRows(2);
  EXPECT_NE(FailureOf([&] { recordset.SetFilter(u"FNumber='A'01'"); }), 0);
  EXPECT_NE(FailureOf([&] { recordset.SetFilter(u"FModel='A01'"); }), 0);
}

TEST_P(RecordsetContract, AnswersRowsAsABlockFromTheCurrentRowOn) {
  const Recordset recordset = WithRows(3);
  recordset.MoveFirst();
  recordset.MoveNext();
  const Value fields(std::vector<Value>{u"FNumber", u"FItemID"});
  const Value answer = recordset.Object()->Call(u"GetRows", {10, Missing{}, fields});

  const CellBlockPtr& block = answer.Block();
  ASSERT_NE(block, nullptr);
  ASSERT_EQ(block->ColumnCount(), 2u);
  ASSERT_EQ(block->RowCount(), 2u);
  EXPECT_EQ(Utf8(block->Cell(0, 0).text), "A02");
  EXPECT_EQ(block->Cell(1, 0).number, 2);
  EXPECT_EQ(Utf8(block->Cell(0, 1).text), "A03");
  EXPECT_EQ(block->CellValue(1, 1), Value(3));
  EXPECT_TRUE(recordset.AtEnd());
}

TEST_P(RecordsetContract, StopsABlockAtTheAskedNumberOfRows) {
  const Recordset recordset = WithRows(3);
  recordset.MoveFirst();
  const Value answer = recordset.Object()->Call(u"GetRows", {2});
  EXPECT_EQ(answer.Block()->ColumnCount(), 3u);
  EXPECT_EQ(answer.Block()->RowCount(), 2u);
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A03");
}

TEST_P(RecordsetContract, ShowsNullCellsOfABlockAsNull) {
  const Recordset recordset = WithRows(1);
  recordset.SetField(u"FNumber", Null{});
  recordset.Update();
  recordset.MoveFirst();
  const Value answer = recordset.Object()->Call(u"GetRows");
  EXPECT_EQ(answer.Block()->Cell(1, 0).kind, CellView::Kind::Null);
}

TEST_P(RecordsetContract, HasNoBlockAtItsEnd) {
  const Recordset recordset = WithRows(0);
  EXPECT_EQ(FailureOf([&] { recordset.Object()->Call(u"GetRows"); }), kNoCurrentRecord);
}

TEST_P(RecordsetContract, ReadsTheFilteredRowsByBlocks) {
  const Recordset recordset = WithRows(3);
  recordset.SetFilter(u"FNumber='A03'");
  RowReader reader(recordset, {u"FItemID"});
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(reader.Field(0).number, 3);
  EXPECT_FALSE(reader.Next());
}

TEST_P(RecordsetContract, OutlivesTheReferenceOfItsMakerThroughItsFields) {
  Recordset recordset = WithRows(1);
  const ObjectPtr fields = RequireObject(recordset.Object()->Get(u"Fields"), u"Fields");
  recordset.Release();
  const ObjectPtr field = RequireObject(fields->Call(u"", {u"FNumber"}), u"FNumber");
  EXPECT_EQ(Utf8(ToText(field->Get(u"Value"))), "A01");
}

}  // namespace pricedown::testing
