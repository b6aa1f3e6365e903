// The contract of recordsets: fields, rows, positions, changes.
#include <gmock/gmock.h>

#include "platform/convert.h"
#include "tests/recordset_contract/recordset_contract.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

using ::testing::ElementsAre;

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

TEST_P(RecordsetContract, RefusesADuplicateFieldName) {
  const Recordset recordset = Closed();
  EXPECT_NE(
      FailureNumberOf([&] { recordset.AppendField(NullableField(u"fitemid", ado::kInteger)); }), 0);
}

TEST_P(RecordsetContract, RefusesFieldsOnceItIsOpen) {
  const Recordset recordset = WithRows(0);
  EXPECT_NE(FailureNumberOf([&] { recordset.AppendField(NullableField(u"FName", ado::kInteger)); }),
            0);
  EXPECT_EQ(recordset.Fields().size(), 3u);
}

TEST_P(RecordsetContract, FailsAsClosedBeforeItIsOpenedAndAfterItIsClosed) {
  const Recordset recordset = Closed();
  EXPECT_EQ(FailureNumberOf([&] { recordset.RecordCount(); }), kObjectClosed);
  EXPECT_EQ(FailureNumberOf([&] { recordset.AtEnd(); }), kObjectClosed);
  EXPECT_EQ(FailureNumberOf([&] { recordset.MoveFirst(); }), kObjectClosed);
  EXPECT_EQ(FailureNumberOf([&] { recordset.AddNew(); }), kObjectClosed);
  EXPECT_EQ(FailureNumberOf([&] { recordset.Close(); }), kObjectClosed);
  recordset.Open();
  recordset.AddNew();
  recordset.Update();
  recordset.Close();
  EXPECT_EQ(FailureNumberOf([&] { recordset.RecordCount(); }), kObjectClosed);
}

TEST_P(RecordsetContract, OpensEmpty) {
  const Recordset recordset = WithRows(0);
  EXPECT_EQ(recordset.RecordCount(), 0);
  EXPECT_TRUE(recordset.AtEnd());
  EXPECT_TRUE(ToBoolean(recordset.Object()->Get(u"BOF")));
}

TEST_P(RecordsetContract, HasNoCurrentRecordWhenItIsEmpty) {
  const Recordset recordset = WithRows(0);
  EXPECT_EQ(FailureNumberOf([&] { recordset.MoveFirst(); }), kNoCurrentRecord);
  EXPECT_EQ(FailureNumberOf([&] { recordset.MoveNext(); }), kNoCurrentRecord);
  EXPECT_EQ(FailureNumberOf([&] { recordset.Field(u"FItemID"); }), kNoCurrentRecord);
  EXPECT_EQ(FailureNumberOf([&] { recordset.SetField(u"FItemID", 1); }), kNoCurrentRecord);
  EXPECT_EQ(FailureNumberOf([&] { recordset.Delete(); }), kNoCurrentRecord);
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

TEST_P(RecordsetContract, HasNoCurrentRecordAfterTheLastRow) {
  const Recordset recordset = WithRows(1);
  recordset.MoveFirst();
  EXPECT_FALSE(recordset.AtEnd());
  recordset.MoveNext();
  EXPECT_TRUE(recordset.AtEnd());
  EXPECT_EQ(FailureNumberOf([&] { recordset.Field(u"FItemID"); }), kNoCurrentRecord);
  EXPECT_EQ(FailureNumberOf([&] { recordset.MoveNext(); }), kNoCurrentRecord);
}

TEST_P(RecordsetContract, FindsFieldsWithoutRegardToCase) {
  const Recordset recordset = WithRows(1);
  EXPECT_EQ(TextOf(recordset, u"FNUMBER"), "A01");
  recordset.SetField(u"fnumber", u"B");
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "B");
}

TEST_P(RecordsetContract, ReportsAMissingFieldByName) {
  const Recordset recordset = WithRows(1);
  EXPECT_EQ(FailureNumberOf([&] { recordset.Field(u"FModel"); }), kItemNotFound);
  EXPECT_EQ(FailureNumberOf([&] { recordset.SetField(u"FModel", 1); }), kItemNotFound);
}

TEST_P(RecordsetContract, ReturnsAFieldThroughTheDefaultMembers) {
  const Recordset recordset = WithRows(1);
  const ObjectPtr field = RequireObject(recordset.Object()->Call(u"", {u"FNumber"}), u"FNumber");
  EXPECT_EQ(Utf8(ToText(field->Get(u""))), "A01");
}

TEST_P(RecordsetContract, ConvertsValuesToTheTypeOfTheirField) {
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
  EXPECT_NE(FailureNumberOf([&] { recordset.SetField(u"FItemID", u"abc"); }), 0);
  EXPECT_NE(FailureNumberOf([&] { recordset.SetField(u"FNumber", std::u16string(81, u'x')); }), 0);
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

TEST_P(RecordsetContract, DistinguishesAnEmptyTextFromNull) {
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

TEST_P(RecordsetContract, AddsAWholeRowOfValues) {
  const Recordset recordset = WithRows(1);
  recordset.AddNew(std::vector<Value>{u"fnumber", u"FItemID"}, std::vector<Value>{u"A02", u"2"});
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A02") << "is current";
  EXPECT_EQ(recordset.Field(u"FItemID"), Value(2));
  EXPECT_TRUE(recordset.Field(u"FPencentPrepare").IsNothing());
  recordset.AddNew(std::vector<Value>{2, 0}, std::vector<Value>{Null{}, 3});
  recordset.CancelUpdate();
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 2, 3)) << "it is updated";
}

TEST_P(RecordsetContract, AddsARowOfABlock) {
  const Recordset source = WithRows(2);
  source.MoveFirst();
  const CellBlockPtr block = source.GetRows(10, {u"FPencentPrepare", u"FNumber", u"FItemID"});
  const Recordset recordset = WithRows(0);
  for (std::size_t row = 0; row < 2; ++row) {
    recordset.AddNew(std::vector<Value>{2, 1, 0}, BlockRow{block, row});
  }
  EXPECT_EQ(recordset.Field(u"FPencentPrepare"), Value(2.5));
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A02");
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 2));
}

TEST_P(RecordsetContract, AddsRowsOfPreparedFields) {
  const Recordset recordset = WithRows(0);
  for (const std::vector<Value>& fields :
       {std::vector<Value>{1, 0}, std::vector<Value>{u"fnumber", u"FItemID"}}) {
    const Value prepared = recordset.Object()->Prepared(fields);
    recordset.AddNew(prepared, std::vector<Value>{u"A01", u"7"});
    recordset.AddNew(prepared, std::vector<Value>{u"A02", 8});
    EXPECT_EQ(TextOf(recordset, u"FNumber"), "A02");
  }
  EXPECT_THAT(ItemIds(recordset), ElementsAre(7, 8, 7, 8));
}

TEST_P(RecordsetContract, AddsNoRowWhenOneOfItsValuesDoesNotFit) {
  const Recordset recordset = WithRows(2);
  recordset.MoveFirst();
  const auto add = [&](std::vector<Value> fields, std::vector<Value> values) {
    return FailureNumberOf([&] { recordset.AddNew(std::move(fields), std::move(values)); });
  };
  EXPECT_NE(add({0, 1}, {3, std::u16string(81, u'x')}), 0);
  EXPECT_NE(add({u"FModel"}, {u"M4"}), 0);
  EXPECT_NE(add({0, 1}, {3}), 0);
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A01");
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 2));
}

TEST_P(RecordsetContract, DropsAnAddedRowThatIsCancelled) {
  const Recordset recordset = WithRows(3);
  recordset.MoveFirst();
  recordset.MoveNext();
  recordset.AddNew();
  recordset.SetField(u"FItemID", 4);
  recordset.CancelUpdate();
  EXPECT_EQ(recordset.RecordCount(), 3);
  EXPECT_EQ(TextOf(recordset, u"FNumber"), "A02");
  EXPECT_THAT(ItemIds(recordset), ElementsAre(1, 2, 3));
}

TEST_P(RecordsetContract, DropsTheFirstRowWhenItIsCancelled) {
  const Recordset recordset = WithRows(0);
  recordset.AddNew();
  recordset.CancelUpdate();
  EXPECT_EQ(recordset.RecordCount(), 0);
  EXPECT_TRUE(recordset.AtEnd());
}

TEST_P(RecordsetContract, KeepsAnAddedRowOnceItIsUpdatedOrLeft) {
  const Recordset recordset = WithRows(1);
  recordset.AddNew();
  recordset.SetField(u"FItemID", 2);
  recordset.Update();
  recordset.CancelUpdate();
  recordset.AddNew();
  recordset.SetField(u"FItemID", 3);
  recordset.MoveFirst();
  recordset.CancelUpdate();
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

TEST_P(RecordsetContract, DoesNotCountADeletedRow) {
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

TEST_P(RecordsetContract, MovesFromADeletedRowToTheNext) {
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

}  // namespace pricedown::testing
