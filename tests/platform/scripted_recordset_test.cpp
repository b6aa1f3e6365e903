// Tests of scripted recordsets and statements beyond the contract of all recordsets.
#include "tests/support/scripted_recordset.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "tests/support/failure.h"

namespace pricedown::testing {
namespace {

class ScriptedStatements : public ::testing::Test {
 protected:
  Value Execute(std::u16string_view statement) {
    return factory.Create(u"ZEPConnection.AppConnection")->Call(u"Execute", {statement});
  }

  CallLog log;
  RecordingFactory factory{log};
};

TEST_F(ScriptedStatements, AnswerRowsForAWholeStatementText) {
  AnswerStatement(factory, u"select FNumber\r\nfrom t_account",
                  Rows({u"FNumber"}, {{u"1231"}, {u"1231.10"}}));
  {
    const Recordset accounts(RequireObject(Execute(u"select FNumber\r\nfrom t_account"), u"rows"));
    EXPECT_EQ(accounts.RecordCount(), 2);
    EXPECT_EQ(accounts.Field(u"fnumber"), Value(u"1231"));
  }
  EXPECT_EQ(log.Text(), Lines(R"(
      create ZEPConnection.AppConnection
      ZEPConnection.AppConnection.Execute("select FNumber\r\nfrom t_account")
      release ZEPConnection.AppConnection
      release result
      )"));
}

TEST_F(ScriptedStatements, AnswerTheSameRowsAgainOnANewRecordset) {
  AnswerStatement(factory, u"select", Rows({u"FID"}, {{1}, {2}}));
  const Recordset first(RequireObject(Execute(u"select"), u"rows"));
  first.MoveNext();
  const Recordset second(RequireObject(Execute(u"select"), u"rows"));
  EXPECT_EQ(second.Field(u"FID"), Value(1));
}

TEST_F(ScriptedStatements, AnswerInTurn) {
  AnswerStatement(factory, u"select", Rows({u"FID"}, {}));
  AnswerStatement(factory, u"select", Rows({u"FID"}, {{1}}));
  EXPECT_EQ(Recordset(RequireObject(Execute(u"select"), u"rows")).RecordCount(), 0);
  EXPECT_EQ(Recordset(RequireObject(Execute(u"select"), u"rows")).RecordCount(), 1);
  EXPECT_EQ(Recordset(RequireObject(Execute(u"select"), u"rows")).RecordCount(), 1);
}

TEST_F(ScriptedStatements, MayAnswerNothingOrFail) {
  AnswerNothing(factory, u"delete");
  FailStatement(factory, u"insert", -2147217900, u"语法错误");
  EXPECT_EQ(Execute(u"delete"), Value(nullptr));
  EXPECT_EQ(FailureOf([&] { Execute(u"insert"); }), "80040E14 语法错误");
}

TEST_F(ScriptedStatements, FailTheTestForAnyOtherText) {
  AnswerNothing(factory, u"delete from icPriceDownClass");
  EXPECT_NONFATAL_FAILURE(
      EXPECT_NE(FailureOf([&] { Execute(u"delete from icPriceDownClass "); }), ""),
      R"(not scripted: ZEPConnection.AppConnection.Execute("delete from icPriceDownClass "))");
}

TEST(ScriptedRecordset, DeclaresColumnsByTheirFirstValues) {
  RecordingFactory factory{CallLog()};
  const Recordset recordset(NewScriptedRecordset(
      factory.GetRecorder(),
      Rows({u"A", u"B", u"C", u"D"}, {{Null{}, 1.5, u"x", Null{}}, {1, 2.5, u"y", Null{}}})));
  const std::vector<FieldDefinition> fields = recordset.Fields();
  ASSERT_EQ(fields.size(), 4u);
  EXPECT_EQ(fields[0].type, ado::kInteger);
  EXPECT_EQ(fields[1].type, ado::kDouble);
  EXPECT_EQ(fields[2].type, ado::kVarWChar);
  EXPECT_EQ(fields[2].definedSize, 255);
  EXPECT_EQ(fields[3].type, ado::kVarWChar);
}

TEST(ScriptedRecordset, HasNoGetRowsWhenTheTestSaysSo) {
  RecordingFactory factory{CallLog()};
  const ObjectPtr recordset =
      NewScriptedRecordset(factory.GetRecorder(), Rows({u"A"}, {{1}}).WithoutGetRows());
  EXPECT_EQ(FailureOf([&] { recordset->Call(u"getrows"); }).substr(0, 8), "80020006");
}

TEST(ScriptedRecordset, LogsItsCallsWhenAsked) {
  CallLog log;
  RecordingFactory factory{log};
  factory.LogRecordsetCalls();
  AllowRecordsets(factory);
  {
    const Recordset recordset = Recordset::Create(factory);
    recordset.AppendField({u"FName", ado::kVarWChar, 80});
    recordset.Open();
    recordset.AddNew();
    recordset.SetField(u"fname", u"甲");
    recordset.SetFilter(u"FName='甲'");
  }
  EXPECT_EQ(log.Text(), Lines(R"(
      create ADODB.Recordset
      put ADODB.Recordset.CursorLocation = 3
      ADODB.Recordset.Fields()
      ADODB.Recordset.Fields.Append("FName", 202, 80, 0)
      ADODB.Recordset.Open()
      ADODB.Recordset.AddNew()
      ADODB.Recordset.Fields()
      ADODB.Recordset.Fields.Item("fname")
      put ADODB.Recordset.Fields("FName").Value = "甲"
      put ADODB.Recordset.Filter = "FName='甲'"
      release ADODB.Recordset
      )"));
}

}  // namespace
}  // namespace pricedown::testing
