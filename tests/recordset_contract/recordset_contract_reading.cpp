// The contract of recordsets: filters and blocks of rows.
#include <gmock/gmock.h>

#include "platform/cell_block.h"
#include "platform/convert.h"
#include "platform/row_reader.h"
#include "tests/recordset_contract/recordset_contract.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

using ::testing::ElementsAre;

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
  EXPECT_EQ(FailureNumberOf([&] { recordset.Delete(); }), kNoCurrentRecord);
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

TEST_P(RecordsetContract, RefusesAnInvalidFilter) {
  const Recordset recordset = WithRows(2);
  EXPECT_NE(FailureNumberOf([&] { recordset.SetFilter(u"FNumber='A'01'"); }), 0);
  EXPECT_NE(FailureNumberOf([&] { recordset.SetFilter(u"FModel='A01'"); }), 0);
}

TEST_P(RecordsetContract, ReturnsRowsAsABlockFromTheCurrentRowOn) {
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

TEST_P(RecordsetContract, EndsABlockAtTheRequestedNumberOfRows) {
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
  EXPECT_EQ(FailureNumberOf([&] { recordset.Object()->Call(u"GetRows"); }), kNoCurrentRecord);
}

TEST_P(RecordsetContract, ReturnsRowsAsOneTextFromTheCurrentRowOn) {
  const Recordset recordset = WithRows(3);
  recordset.SetField(u"FNumber", Null{});
  recordset.Update();
  recordset.MoveFirst();
  recordset.MoveNext();
  const Value answer = recordset.Object()->Call(u"GetString", {2, 10, u"|", u"/", u"nothing"});
  EXPECT_EQ(Utf8(answer.Text()), "2|A02|2.5/3|nothing|3.5/");
  EXPECT_TRUE(recordset.AtEnd());
}

TEST_P(RecordsetContract, EndsATextAtTheRequestedNumberOfRows) {
  const Recordset recordset = WithRows(3);
  recordset.MoveFirst();
  EXPECT_EQ(Utf8(recordset.Object()->Call(u"GetString", {2, 1}).Text()), "1\tA01\t1.5\r");
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A02");
}

TEST_P(RecordsetContract, RefusesATextOfRowsInAnotherFormat) {
  const Recordset recordset = WithRows(1);
  recordset.MoveFirst();
  EXPECT_NE(FailureNumberOf([&] { recordset.Object()->Call(u"GetString", {3}); }), 0);
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A01") << "it stays where it was";
}

TEST_P(RecordsetContract, HasNoTextOfRowsAtItsEnd) {
  const Recordset recordset = WithRows(0);
  EXPECT_EQ(FailureNumberOf([&] { recordset.Object()->Call(u"GetString"); }), kNoCurrentRecord);
}

TEST_P(RecordsetContract, ReportsThePositionOfItsCurrentRowAndMovesToAPosition) {
  const Recordset recordset = WithRows(3);
  const auto place = [&] { return recordset.Object()->Get(u"AbsolutePosition"); };
  EXPECT_EQ(place(), Value(3));
  recordset.Object()->Put(u"AbsolutePosition", 2);
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A02");
  EXPECT_EQ(place(), Value(2));
  recordset.MoveNext();
  recordset.MoveNext();
  EXPECT_EQ(place(), Value(-3));
  EXPECT_EQ(WithRows(0).Object()->Get(u"AbsolutePosition"), Value(-1));
  EXPECT_NE(FailureNumberOf([&] { recordset.Object()->Put(u"AbsolutePosition", 0); }), 0);
}

TEST_P(RecordsetContract, CountsPositionsAmongTheVisibleRows) {
  const Recordset recordset = WithRows(3);
  recordset.MoveFirst();
  recordset.Delete();
  recordset.Update();
  recordset.Object()->Put(u"AbsolutePosition", 2);
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A03");
  recordset.SetFilter(u"FNumber='A03'");
  EXPECT_EQ(recordset.Object()->Get(u"AbsolutePosition"), Value(1));
}

TEST_P(RecordsetContract, ReadsTheFilteredRowsByBlocks) {
  const Recordset recordset = WithRows(3);
  recordset.SetFilter(u"FNumber='A03'");
  RowReader reader(recordset, {u"FItemID"});
  ASSERT_TRUE(reader.Next());
  EXPECT_EQ(reader.Field(0).number, 3);
  EXPECT_FALSE(reader.Next());
}

TEST_P(RecordsetContract, IsKeptAliveByItsFields) {
  Recordset recordset = WithRows(1);
  const ObjectPtr fields = RequireObject(recordset.Object()->Get(u"Fields"), u"Fields");
  recordset.Release();
  const ObjectPtr field = RequireObject(fields->Call(u"", {u"FNumber"}), u"FNumber");
  EXPECT_EQ(Utf8(ToText(field->Get(u"Value"))), "A01");
}

}  // namespace pricedown::testing
