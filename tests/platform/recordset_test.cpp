// Tests of the calls that the recordset wrapper makes.
#include "platform/recordset.h"

#include <gtest/gtest.h>

#include "tests/support/failure.h"
#include "tests/support/memory_block.h"
#include "tests/support/scripted_recordset.h"

namespace pricedown::testing {
namespace {

class RecordsetTest : public ::testing::Test {
 protected:
  Recordset NewRecordset() { return Recordset(factory.NewObject(u"RS")); }

  CallLog log;
  RecordingFactory factory{log};
};

TEST_F(RecordsetTest, IsCreatedOnTheClientSide) {
  factory.Object(u"ADODB.Recordset").AllowPut(u"CursorLocation");
  Recordset recordset = Recordset::Create(factory);
  EXPECT_TRUE(recordset);
  recordset.Release();
  EXPECT_FALSE(recordset);
  EXPECT_EQ(log.Text(), Lines(R"(
      create ADODB.Recordset
      put ADODB.Recordset.CursorLocation = 3
      release ADODB.Recordset
      )"));
}

TEST_F(RecordsetTest, CallsTheMembersOfTheSameNames) {
  factory.Object(u"RS")
      .On(u"RecordCount", 3)
      .On(u"EOF", false)
      .On(u"MoveFirst", Value())
      .On(u"MoveNext", Value())
      .On(u"Open", Value())
      .On(u"Close", Value())
      .On(u"AddNew", Value())
      .On(u"Update", Value())
      .On(u"CancelUpdate", Value())
      .On(u"UpdateBatch", Value())
      .On(u"Delete", Value())
      .AllowPut(u"Filter");
  const Recordset recordset = NewRecordset();
  recordset.Open();
  EXPECT_EQ(recordset.RecordCount(), 3);
  EXPECT_FALSE(recordset.AtEnd());
  recordset.MoveFirst();
  recordset.MoveNext();
  recordset.AddNew();
  recordset.Update();
  recordset.CancelUpdate();
  recordset.UpdateBatch();
  recordset.Delete();
  recordset.SetFilter(u"fNumber='01'");
  recordset.Close();
  EXPECT_EQ(log.Text(), Lines(R"(
      RS.Open()
      RS.RecordCount()
      RS.EOF()
      RS.MoveFirst()
      RS.MoveNext()
      RS.AddNew()
      RS.Update()
      RS.CancelUpdate()
      RS.UpdateBatch()
      RS.Delete()
      put RS.Filter = "fNumber='01'"
      RS.Close()
      )"));
}

// Its methods return what no value can hold.
class Inconvertible : public AutomationObject {
 public:
  MemberId Find(std::u16string_view name) override {
    found.emplace_back(name);
    return static_cast<MemberId>(found.size());
  }
  Value Invoke(MemberId, Access, std::span<Value>) override {
    throw AutomationError(ErrorNumber::TypeMismatch, u"answer");
  }
  void Perform(MemberId member, std::span<Value> arguments) override {
    performed +=
        Utf8(found[static_cast<std::size_t>(member) - 1]) + std::to_string(arguments.size()) + " ";
  }

  std::vector<std::u16string> found;
  std::string performed;
};

TEST_F(RecordsetTest, IgnoresWhatItsMethodsReturn) {
  const auto object = std::make_shared<Inconvertible>();
  const Recordset recordset{object};
  recordset.Open();
  recordset.MoveFirst();
  recordset.AddNew();
  recordset.AddNew(Value(), Value());
  recordset.Update();
  recordset.MoveNext();
  recordset.CancelUpdate();
  recordset.Delete();
  recordset.UpdateBatch();
  recordset.Close();
  EXPECT_EQ(object->performed,
            "Open0 MoveFirst0 AddNew0 AddNew2 Update0 MoveNext0 CancelUpdate0 Delete0 "
            "UpdateBatch0 Close0 ");
}

TEST_F(RecordsetTest, ReachesAFieldsValueThroughTheFieldsCollection) {
  factory.Object(u"RS").On(u"Fields", factory.Answering(u"Fields"));
  factory.Object(u"Fields").On(u"", R"("FName")", factory.Answering(u"Field"));
  factory.Object(u"Field").On(u"Value", u"原料").AllowPut(u"Value");
  const Recordset recordset = NewRecordset();
  EXPECT_EQ(recordset.Field(u"FName"), Value(u"原料"));
  recordset.SetField(u"FName", Null{});
  EXPECT_EQ(log.Text(), Lines(R"(
      RS.Fields()
      Fields("FName")
      release Fields
      Field.Value()
      release Field
      RS.Fields()
      Fields("FName")
      release Fields
      put Field.Value = Null
      release Field
      )"));
}

TEST_F(RecordsetTest, AppendsAFieldWithTypeSizeAndAttributes) {
  factory.Object(u"RS").On(u"Fields", factory.Answering(u"Fields"));
  factory.Object(u"Fields").On(u"Append", Value());
  NewRecordset().AppendField({u"FModel", ado::kVarWChar, 255, ado::kFieldIsNullable});
  EXPECT_EQ(log.Text(), Lines(R"(
      RS.Fields()
      Fields.Append("FModel", 202, 255, 32)
      release Fields
      release RS
      )"));
}

TEST_F(RecordsetTest, SetsPrecisionAndScaleOfANumericField) {
  factory.Object(u"RS").On(u"Fields", factory.Answering(u"Fields"));
  factory.Object(u"Fields").On(u"Append", Value()).On(u"", factory.Answering(u"Field"));
  factory.Object(u"Field").AllowPut(u"Precision").AllowPut(u"NumericScale");
  NewRecordset().AppendField({u"FPencentPrepare", ado::kNumeric, 19, 0, 18, 4});
  EXPECT_EQ(log.Text(), Lines(R"(
      RS.Fields()
      Fields.Append("FPencentPrepare", 131, 19, 0)
      Fields("FPencentPrepare")
      put Field.Precision = 18
      put Field.NumericScale = 4
      release Field
      release Fields
      release RS
      )"));
}

TEST_F(RecordsetTest, ReadsDefinitionsByPosition) {
  factory.Object(u"RS").On(u"Fields", factory.Answering(u"Fields"));
  factory.Object(u"Fields")
      .On(u"Count", 2)
      .On(u"", "0", factory.Answering(u"Number"))
      .On(u"", "1", factory.Answering(u"Percent"));
  factory.Object(u"Number")
      .On(u"Name", u"FNumber")
      .On(u"Type", ado::kVarWChar)
      .On(u"DefinedSize", 80)
      .On(u"Attributes", ado::kFieldIsNullable);
  factory.Object(u"Percent")
      .On(u"Name", u"FPencentPrepare")
      .On(u"Type", ado::kNumeric)
      .On(u"DefinedSize", 19)
      .On(u"Attributes", 0)
      .On(u"Precision", 18)
      .On(u"NumericScale", 4);
  const std::vector<FieldDefinition> fields = NewRecordset().Fields();
  ASSERT_EQ(fields.size(), 2u);
  EXPECT_EQ(Utf8(fields[0].name), "FNumber");
  EXPECT_EQ(fields[0].type, ado::kVarWChar);
  EXPECT_EQ(fields[0].definedSize, 80);
  EXPECT_EQ(fields[0].attributes, ado::kFieldIsNullable);
  EXPECT_EQ(Utf8(fields[1].name), "FPencentPrepare");
  EXPECT_EQ(fields[1].precision, 18);
  EXPECT_EQ(fields[1].scale, 4);
}

TEST_F(RecordsetTest, CopiesDefinitionsToANewRecordset) {
  AllowRecordsets(factory);
  Recordset source = Recordset::Create(factory);
  source.AppendField({u"FItemID", ado::kInteger});
  source.AppendField({u"FModel", ado::kVarWChar, 255, ado::kFieldIsNullable});
  source.AppendField({u"FQty", ado::kNumeric, 19, 0, 18, 4});
  const Recordset copy = Recordset::Create(factory);
  for (const FieldDefinition& field : source.Fields()) copy.AppendField(field);
  const std::vector<FieldDefinition> fields = copy.Fields();
  ASSERT_EQ(fields.size(), 3u);
  EXPECT_EQ(Utf8(fields[1].name), "FModel");
  EXPECT_EQ(fields[1].definedSize, 255);
  EXPECT_EQ(fields[2].scale, 4);
}

TEST_F(RecordsetTest, LosesOnlyThePropertiesAndFieldsThatFail) {
  factory.Object(u"RS").On(u"Fields", factory.Answering(u"Fields"));
  factory.Object(u"Fields")
      .On(u"Count", 3)
      .On(u"", "0", factory.Answering(u"Nameless"))
      .On(u"", "1", factory.Answering(u"Sizeless"))
      .On(u"", "2", factory.Answering(u"Scaleless"));
  factory.Object(u"Nameless").On(u"Name", Reply::Failing(kInjectedFailure, u""));
  factory.Object(u"Sizeless")
      .On(u"Name", u"FNumber")
      .On(u"Type", ado::kVarWChar)
      .On(u"DefinedSize", Reply::Failing(kInjectedFailure, u""))
      .On(u"Attributes", ado::kFieldIsNullable);
  factory.Object(u"Scaleless")
      .On(u"Name", u"FQty")
      .On(u"Type", ado::kNumeric)
      .On(u"DefinedSize", 19)
      .On(u"Attributes", 0)
      .On(u"Precision", 18)
      .On(u"NumericScale", Reply::Failing(kInjectedFailure, u""));
  const std::vector<FieldDefinition> fields = NewRecordset().Fields();
  ASSERT_EQ(fields.size(), 2u);
  EXPECT_EQ(Utf8(fields[0].name), "FNumber");
  EXPECT_EQ(fields[0].definedSize, 0);
  EXPECT_EQ(fields[0].attributes, ado::kFieldIsNullable);
  EXPECT_EQ(fields[1].precision, 18);
  EXPECT_EQ(fields[1].scale, 0);
}

TEST_F(RecordsetTest, AppendsAFieldWhosePrecisionIsRefused) {
  factory.Object(u"RS").On(u"Fields", factory.Answering(u"Fields"));
  factory.Object(u"Fields").On(u"Append", Value()).On(u"", factory.Answering(u"Field"));
  factory.Object(u"Field").AllowPut(u"Precision").AllowPut(u"NumericScale");
  factory.FailCall(4);
  NewRecordset().AppendField({u"FQty", ado::kNumeric, 19, 0, 18, 4});
  EXPECT_EQ(log.Count("put Field.Precision = 18 fails"), 1u);
  EXPECT_EQ(log.Count("put Field.NumericScale = 4"), 1u);
}

TEST_F(RecordsetTest, AddsAWholeRow) {
  factory.Object(u"RS").On(u"AddNew", Value());
  NewRecordset().AddNew(std::vector<Value>{u"FItemID", u"FName"}, std::vector<Value>{1, u"螺钉"});
  EXPECT_EQ(log.Count(R"(RS.AddNew(["FItemID", "FName"], [1, "螺钉"]))"), 1u);
}

TEST_F(RecordsetTest, RefusesBlocksThatLackAField) {
  factory.Object(u"RS").On(u"GetRows", Value(CellBlockPtr(std::make_shared<MemoryBlock>(
                                           1, std::vector<std::vector<Value>>{{u"01"}}))));
  const Recordset recordset = NewRecordset();
  EXPECT_EQ(recordset.GetRows(5, {u"FNumber"})->RowCount(), 1u);
  EXPECT_EQ(FailureOf([&] {
              recordset.GetRows(5, {u"FNumber", u"FName"});
            }),
            "80020005 GetRows 没有返回所要求的列");
}

TEST_F(RecordsetTest, FailsWithoutAnObject) {
  const Recordset nothing;
  const std::string failure = "800A005B 未设置对象: 记录集";
  EXPECT_FALSE(nothing);
  EXPECT_EQ(FailureOf([&] { nothing.RecordCount(); }), failure);
  EXPECT_EQ(FailureOf([&] { nothing.AtEnd(); }), failure);
  EXPECT_EQ(FailureOf([&] { nothing.MoveFirst(); }), failure);
  EXPECT_EQ(FailureOf([&] { nothing.Field(u"FName"); }), failure);
  EXPECT_EQ(FailureOf([&] { nothing.SetField(u"FName", 1); }), failure);
  EXPECT_EQ(FailureOf([&] { nothing.Fields(); }), failure);
  EXPECT_EQ(FailureOf([&] { nothing.AppendField({}); }), failure);
  EXPECT_EQ(FailureOf([&] { nothing.SetFilter(u""); }), failure);
}

TEST_F(RecordsetTest, NamesTheFieldThatReturnsNoObject) {
  factory.Object(u"RS").On(u"Fields", factory.Answering(u"Fields"));
  factory.Object(u"Fields").On(u"", Value());
  EXPECT_EQ(FailureOf([&] { NewRecordset().Field(u"FName"); }), "800A005B 未设置对象: FName");
  EXPECT_EQ(factory.LiveObjects(), 0);
}

}  // namespace
}  // namespace pricedown::testing
