// The in-memory recordset beyond the shared contract: filters, query results, GetRows.
#include "workbench/suite/recordset.h"

#include <gtest/gtest.h>

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/recordset.h"
#include "platform/row_reader.h"
#include "tests/recordset_contract/recordset_contract.h"
#include "tests/suite/suite_fixture.h"
#include "tests/support/memory_block.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

INSTANTIATE_TEST_SUITE_P(Workbench, RecordsetContract,
                         ::testing::Values(RecordsetSource("Workbench", [] {
                           return std::make_shared<workbench::SuiteFactory>(
                               std::make_shared<workbench::SuiteState>());
                         })));

}  // namespace pricedown::testing

namespace workbench {
namespace {

using pricedown::AutomationError;
using pricedown::ErrorNumber;
using pricedown::Value;
using pricedown::testing::Readable;

std::int32_t Number(ErrorNumber number) { return static_cast<std::int32_t>(number); }

template <typename Action>
std::int32_t ErrorOf(Action action) {
  try {
    action();
  } catch (const AutomationError& error) {
    return error.Number();
  }
  return 0;
}

class MemberRows : public SuiteFixture {
 protected:
  // FNumber A1, A2, ... with FItemID 1, 2, ...
  pricedown::Recordset Members(int count) {
    auto rows = pricedown::Recordset::Create(factory_);
    rows.AppendField({u"FItemID", pricedown::ado::kInteger});
    rows.AppendField({u"FNumber", pricedown::ado::kVarWChar, 10});
    rows.Open();
    for (int i = 1; i <= count; ++i) {
      rows.AddNew();
      rows.SetField(u"FItemID", std::int32_t{i});
      rows.SetField(u"FNumber", u"A" + pricedown::NumberText(std::int32_t{i}));
      rows.Update();
    }
    if (count > 0) rows.MoveFirst();
    return rows;
  }
};

// As fields arrive that a client passes with every row.
TEST_F(MemberRows, AreAddedWithFieldsInARowOfABlock) {
  const auto fields = std::make_shared<pricedown::testing::MemoryBlock>(
      2, std::vector<std::vector<Value>>{{1, 0}, {u"fnumber", u"FItemID"}});
  const pricedown::Recordset rows = Members(0);
  for (const std::size_t row : {0U, 1U}) {
    rows.AddNew(pricedown::BlockRow{fields, row}, std::vector<Value>{u"A7", 7});
    EXPECT_EQ(Readable(rows.Field(u"FNumber")), "\"A7\"");
    EXPECT_EQ(rows.Field(u"FItemID"), Value(7));
  }
  EXPECT_EQ(rows.RecordCount(), 2);
}

TEST_F(MemberRows, FilterLeavesTheMatchingRowCurrent) {
  const auto rows = Members(3);
  rows.SetFilter(u"fNumber='a2'");
  EXPECT_EQ(1, rows.RecordCount());
  EXPECT_EQ("2", Readable(rows.Field(u"FItemID")));
  rows.SetFilter(u"");
  EXPECT_EQ(3, rows.RecordCount());
  EXPECT_EQ("1", Readable(rows.Field(u"FItemID")));
}

TEST_F(MemberRows, FilterWithoutAMatchIsAtTheEnd) {
  const auto rows = Members(2);
  rows.SetFilter(u"FNumber='Z'");
  EXPECT_EQ(0, rows.RecordCount());
  EXPECT_TRUE(rows.AtEnd());
  EXPECT_EQ(Number(ErrorNumber::NoCurrentRecord), ErrorOf([&] { rows.Delete(); }));
}

TEST_F(MemberRows, FilterAcceptsADoubledQuoteAndRefusesASingleOne) {
  const auto rows = Members(1);
  rows.SetField(u"FNumber", u"it's");
  rows.SetFilter(u"FNumber='it''s'");
  EXPECT_EQ(1, rows.RecordCount());
  EXPECT_NE(0, ErrorOf([&] { rows.SetFilter(u"FNumber='it's'"); }));
  EXPECT_EQ(Number(ErrorNumber::ItemNotFound), ErrorOf([&] { rows.SetFilter(u"FOther='1'"); }));
}

TEST_F(MemberRows, DeletingUnderAFilterRemovesOnlyThatRow) {
  const auto rows = Members(4);
  for (const char16_t* number : {u"A3", u"A1"}) {
    rows.SetFilter(pricedown::Concatenate({u"fNumber='", number, u"'"}));
    rows.Delete();
    rows.Update();
  }
  rows.SetFilter(u"");
  EXPECT_EQ(2, rows.RecordCount());
  EXPECT_EQ("\"A2\"", Readable(rows.Field(u"FNumber")));
  rows.MoveNext();
  EXPECT_EQ("\"A4\"", Readable(rows.Field(u"FNumber")));
}

TEST_F(MemberRows, FilterSeesValuesWrittenAfterItsIndexWasBuilt) {
  const auto rows = Members(2);
  rows.SetFilter(u"FNumber='A2'");
  rows.SetFilter(u"");
  rows.SetField(u"FNumber", u"B9");
  rows.SetFilter(u"FNumber='B9'");
  EXPECT_EQ("1", Readable(rows.Field(u"FItemID")));
  rows.SetFilter(u"FNumber='A1'");
  EXPECT_EQ(0, rows.RecordCount());
}

TEST_F(MemberRows, RefusesATextLongerThanItsField) {
  const auto rows = Members(1);
  EXPECT_NE(0, ErrorOf([&] { rows.SetField(u"FNumber", u"12345678901"); }));
  EXPECT_NE(0, ErrorOf([&] { rows.SetField(u"FItemID", u"no number"); }));
  EXPECT_EQ("\"A1\"", Readable(rows.Field(u"FNumber")));
}

TEST_F(MemberRows, CancelledNewRowLeavesNoRow) {
  const auto rows = Members(1);
  rows.AddNew();
  rows.Object()->Call(u"CancelUpdate");
  EXPECT_EQ(1, rows.RecordCount());
}

TEST_F(MemberRows, RowOfABlockReadsAsEmptyOnceItIsDeleted) {
  const auto rows = Members(2);
  const pricedown::CellBlockPtr block = rows.GetRows(2, {u"FItemID", u"FNumber"});
  rows.MoveFirst();
  rows.Delete();
  EXPECT_EQ(pricedown::CellView::Kind::Null, block->Cell(1, 0).kind);
  EXPECT_EQ("Empty", Readable(block->CellValue(0, 0)));
  EXPECT_EQ("\"A2\"", Readable(block->CellValue(1, 1)));
}

// A block of one row with those numbers in fields of doubles.
pricedown::BlockRow Numbers(pricedown::ObjectFactory& factory, double first, double second) {
  auto rows = pricedown::Recordset::Create(factory);
  rows.AppendField({u"FFirst", pricedown::ado::kDouble});
  rows.AppendField({u"FSecond", pricedown::ado::kDouble});
  rows.Open();
  rows.AddNew();
  rows.SetField(u"FFirst", first);
  rows.SetField(u"FSecond", second);
  rows.Update();
  rows.MoveFirst();
  return {rows.GetRows(1, {u"FFirst", u"FSecond"}), 0};
}

TEST_F(MemberRows, AddedRowOfABlockIsConvertedToItsFields) {
  const auto rows = Members(0);
  rows.AddNew(std::vector<Value>{u"FItemID", u"FNumber"}, Numbers(factory_, 2.5, 7.25));
  rows.MoveFirst();
  EXPECT_EQ("2", Readable(rows.Field(u"FItemID")));
  EXPECT_EQ("\"7.25\"", Readable(rows.Field(u"FNumber")));
}

TEST_F(MemberRows, AddedRowOfABlockThatDoesNotFitLeavesNoRow) {
  const auto rows = Members(1);
  EXPECT_EQ(static_cast<std::int32_t>(0x80040E21), ErrorOf([&] {
              rows.AddNew(std::vector<Value>{u"FItemID", u"FNumber"}, Numbers(factory_, 3e9, 1));
            }));
  EXPECT_EQ(1, rows.RecordCount());
}

TEST_F(MemberRows, AddedRowsGoIntoTheFieldsOfTheirOwnList) {
  const auto rows = Members(0);
  const Value straight(std::vector<Value>{u"FItemID", u"FNumber"});
  const Value crossed(std::vector<Value>{u"FNumber", u"FItemID"});
  for (const Value& fields : {straight, straight, crossed}) {
    rows.AddNew(fields, std::vector<Value>{std::int32_t{3}, std::int32_t{4}});
  }
  std::string ids;
  for (rows.MoveFirst(); !rows.AtEnd(); rows.MoveNext()) {
    ids += Readable(rows.Field(u"FItemID")) + " ";
  }
  EXPECT_EQ("3 3 4 ", ids);
}

TEST_F(MemberRows, MovesBackwardsAndToTheLastRow) {
  const auto rows = Members(3);
  rows.Object()->Call(u"MoveLast");
  EXPECT_EQ("3", Readable(rows.Field(u"FItemID")));
  rows.Object()->Call(u"MovePrevious");
  rows.Object()->Call(u"MovePrevious");
  EXPECT_EQ("1", Readable(rows.Field(u"FItemID")));
  rows.Object()->Call(u"MovePrevious");
  EXPECT_EQ("True", Readable(rows.Object()->Get(u"BOF")));
  EXPECT_EQ(Number(ErrorNumber::NoCurrentRecord),
            ErrorOf([&] { rows.Object()->Call(u"MovePrevious"); }));
}

class QueryRows : public SuiteFixture {
 protected:
  pricedown::Recordset Execute(std::u16string_view statement) {
    const Value answer = Create(u"ZEPConnection.AppConnection")->Call(u"Execute", {statement});
    return pricedown::Recordset(answer.Object());
  }
};

TEST_F(QueryRows, QueryResultStartsOnItsFirstRowWithAnExactCount) {
  Execute(
      u"INSERT INTO t_account(FAccountID,FNumber,FLevel,FParentID,FDetail,FDC)"
      u"VALUES(7,'1231.10',1,0,1,1)"
      u" INSERT INTO t_account(FAccountID,FNumber,FLevel,FParentID,FDetail,FDC)"
      u"VALUES(9,'1471',1,0,1,1)");
  const auto rows = Execute(u"select FAccountID,FNumber,FName from t_account order by FNumber");
  EXPECT_EQ(2, rows.RecordCount());
  EXPECT_EQ("7", Readable(rows.Field(u"faccountid")));
  EXPECT_EQ("Null", Readable(rows.Field(u"FName")));
  rows.MoveNext();
  EXPECT_EQ("\"1471\"", Readable(rows.Field(u"FNumber")));
  rows.MoveNext();
  EXPECT_TRUE(rows.AtEnd());
}

TEST_F(QueryRows, ResultOfAStatementWithoutRowsIsClosed) {
  const auto rows = Execute(u"delete from icPriceDownClass where FItemClassNumber='x'");
  EXPECT_EQ("0", Readable(rows.Object()->Get(u"State")));
  EXPECT_EQ(Number(ErrorNumber::ObjectClosed), ErrorOf([&] { rows.RecordCount(); }));
}

TEST_F(QueryRows, QueryResultIsReadOnly) {
  suite_->SetProfile(u"IC", u"CurrentYear", u"2008");
  const auto rows = Execute(u"select FValue from t_systemprofile");
  EXPECT_NE(0, ErrorOf([&] { rows.SetField(u"FValue", u"2009"); }));
  EXPECT_NE(0, ErrorOf([&] { rows.Delete(); }));
  EXPECT_EQ("\"2008\"", Readable(rows.Field(u"FValue")));
}

TEST_F(QueryRows, ResultOutlivesItsConnectionAndTheCompany) {
  suite_->SetProfile(u"IC", u"CurrentYear", u"2008");
  const auto rows = Execute(u"select FValue from t_systemprofile");
  suite_->company.reset();
  EXPECT_EQ("\"2008\"", Readable(rows.Field(u"FValue")));
}

TEST_F(QueryRows, ManyRowsOfTextsAreReadAsTextsInOrder) {
  std::u16string text;
  for (std::int32_t i = 0; i < 9000; ++i) {
    text +=
        pricedown::Concatenate({u" INSERT INTO icPriceDownClass(FItemID,FItemClassNumber)"
                                u"VALUES(1,'K",
                                pricedown::NumberText(100000 + i), u"')"});
  }
  Execute(text);
  const auto rows = Execute(
      u"Select t1.FitemClassNumber,t1.FitemClassName \r\n"
      u" FROM icPriceDownClass t1 order by t1.FitemClassNumber asc");
  ASSERT_TRUE(pricedown::TextBlocks::Of(rows, {u"FItemClassNumber", u"FItemClassName"}));
  pricedown::RowReader reader(rows, {u"FItemClassNumber", u"FItemClassName"},
                              pricedown::NullCells::AsEmptyText);
  std::int32_t expected = 100000;
  for (; reader.Next(); ++expected) {
    ASSERT_EQ(u"K" + pricedown::NumberText(expected), reader.Field(0).text);
    ASSERT_EQ(u"", reader.Field(1).text);
  }
  EXPECT_EQ(109000, expected);
  EXPECT_TRUE(rows.AtEnd());
}

TEST_F(QueryRows, RowReaderReadsEveryRowInOrderAcrossItsBlocks) {
  std::u16string text;
  for (std::int32_t i = 0; i < 9000; ++i) {
    text +=
        pricedown::Concatenate({u" INSERT INTO icPriceDownClass(FItemID,FItemClassNumber)"
                                u"VALUES(",
                                pricedown::NumberText(i), u",'K')"});
  }
  Execute(text);
  const auto rows = Execute(u"select FItemID,FItemClassNumber from icPriceDownClass");
  pricedown::RowReader reader(rows, {u"FItemID"});
  double expected = 0;
  while (reader.Next()) EXPECT_EQ(expected++, reader.Field(0).number);
  EXPECT_EQ(9000, expected);
  EXPECT_TRUE(rows.AtEnd());
}

}  // namespace
}  // namespace workbench
