#include "workbench/company/dialect.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/company/fixed_table_schema.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

TranslatedText Translate(std::string_view text) {
  testing::FixedTableSchema schema;
  return TranslateText(Utf16FromUtf8(text), schema);
}

// The statements in the order in which they run, one per line, parameters as ?.
std::string Translated(std::string_view text) {
  const TranslatedText translated = Translate(text);
  std::string result;
  for (const StatementRun& run : translated.runs) result += translated.shapes[run.shape].sql + "\n";
  return result;
}

struct Translation {
  const char* name;
  const char* text;
  const char* expected;
};

void PrintTo(const Translation& translation, std::ostream* stream) { *stream << translation.name; }

class Dialect : public ::testing::TestWithParam<Translation> {};

TEST_P(Dialect, TranslatesToSqlite) { EXPECT_EQ(Translated(GetParam().text), GetParam().expected); }

// What the library sends, with values filled in.
INSTANTIATE_TEST_SUITE_P(
    Catalogue, Dialect,
    ::testing::Values(
        Translation{"ProfileValue",
                    "Select FValue From t_systemprofile where Fkey like 'PriceDownPrepare'",
                    R"(SELECT "FValue" AS "FValue" FROM "t_systemprofile" )"
                    R"(WHERE server_like("Fkey",'PriceDownPrepare'))"
                    "\n"},
        Translation{"UserSetting",
                    "Select FValue From t_UserSetting Where FUserID=16393 And FCategory='ZEP_APFC' "
                    "And FKey ='O''Brien'",
                    R"(SELECT "FValue" AS "FValue" FROM "t_UserSetting" WHERE "FUserID"=16393 )"
                    R"(AND "FCategory"='ZEP_APFC' AND "FKey"='O''Brien')"
                    "\n"},
        Translation{"ClassTree",
                    "Select t1.FitemClassNumber,t1.FitemClassName \r\n"
                    " FROM icPriceDownClass t1 order by t1.FitemClassNumber asc",
                    R"(SELECT "t1"."FitemClassNumber" AS "FitemClassNumber", )"
                    R"("t1"."FitemClassName" AS "FitemClassName" )"
                    R"(FROM "icPriceDownClass" AS "t1" ORDER BY "t1"."FitemClassNumber")"
                    "\n"},
        Translation{
            "ItemsOfClass",
            "SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as FShortNumber,"
            "t1.FName,isnull(t1.FModel,'') as FModel,t2.Fitemid,t2.FItemClassNumber,"
            "t2.FItemClassName,t2.FAPAccID,t2.FAPNumber,t2.FARAccID,t2.FARNumber,"
            "t2.FPencentPrepare FROM t_ICItem t1,icPriceDownClass t2 Where t1.Fitemid=t2.Fitemid "
            "and t1.FErpClsID not in(6,8)  and t2.FItemClassNumber='01' Order by t1.FNumber asc",
            R"(SELECT ifnull("t1"."FNumber",'') COLLATE CHINESE_CI_PAD AS "FNumber", )"
            R"(ifnull("t1"."FShortNumber",'') COLLATE CHINESE_CI_PAD AS "FShortNumber", )"
            R"("t1"."FName" AS "FName", )"
            R"(ifnull("t1"."FModel",'') COLLATE CHINESE_CI_PAD AS "FModel", )"
            R"("t2"."Fitemid" AS "Fitemid", "t2"."FItemClassNumber" AS "FItemClassNumber", )"
            R"("t2"."FItemClassName" AS "FItemClassName", "t2"."FAPAccID" AS "FAPAccID", )"
            R"("t2"."FAPNumber" AS "FAPNumber", "t2"."FARAccID" AS "FARAccID", )"
            R"("t2"."FARNumber" AS "FARNumber", "t2"."FPencentPrepare" AS "FPencentPrepare" )"
            R"(FROM "t_ICItem" AS "t1", "icPriceDownClass" AS "t2" )"
            R"(WHERE "t1"."Fitemid"="t2"."Fitemid" AND "t1"."FErpClsID" NOT IN (6,8) )"
            R"(AND "t2"."FItemClassNumber"='01' ORDER BY "t1"."FNumber")"
            "\n"},
        Translation{
            "AllItems",
            "SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as FShortNumber,"
            "t1.FName,isnull(t1.FModel,'') as FModel FROM t_ICItem t1 Where t1.FErpClsID not "
            "in(6,8) order by t1.FNumber asc",
            R"(SELECT ifnull("t1"."FNumber",'') COLLATE CHINESE_CI_PAD AS "FNumber", )"
            R"(ifnull("t1"."FShortNumber",'') COLLATE CHINESE_CI_PAD AS "FShortNumber", )"
            R"("t1"."FName" AS "FName", )"
            R"(ifnull("t1"."FModel",'') COLLATE CHINESE_CI_PAD AS "FModel" )"
            R"(FROM "t_ICItem" AS "t1" WHERE "t1"."FErpClsID" NOT IN (6,8) )"
            R"(ORDER BY "t1"."FNumber")"
            "\n"},
        Translation{"VoucherOfPeriod",
                    "select top 1 FVoucherID from t_voucher where FYear='2008'and FPeriod='3'and "
                    "FTranType=820 and FInternalInd='Industry'\r\n",
                    R"(SELECT "FVoucherID" AS "FVoucherID" FROM "t_voucher" WHERE "FYear"=2008 )"
                    R"(AND "FPeriod"=3 AND "FTranType"=820 AND "FInternalInd"='Industry' LIMIT 1)"
                    "\n"},
        Translation{"HistoryOfItem",
                    "select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
                    "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
                    "where ((a.FYear='2008' and a.FPeriod<'3') \r\n"
                    "or (a.FYear<'2008')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and "
                    "b.FNumber='01.01'\r\n",
                    R"(SELECT "a"."FItemID" AS "FItemID" FROM "ICPriceDownPrepare" AS "a" )"
                    R"(INNER JOIN "t_ICItem" AS "b" ON "a"."FItemID"="b"."FItemID" )"
                    R"(WHERE (("a"."FYear"=2008 AND "a"."FPeriod"<3) OR ("a"."FYear"<2008)) )"
                    R"(AND ("a"."FHaveAdd"<>0 OR "a"."FCurrentAdd"<>0) )"
                    R"(AND "b"."FNumber"='01.01' LIMIT 1)"
                    "\n"},
        Translation{"HistoryOfClass",
                    "select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
                    "inner join ICPriceDownClass b on a.FItemID=b.FItemID \r\n"
                    "where ((a.FYear='2008' and a.FPeriod<'3') \r\n"
                    "or (a.FYear<'2008')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and "
                    "b.FItemClassNumber='01'\r\n",
                    R"(SELECT "a"."FItemID" AS "FItemID" FROM "ICPriceDownPrepare" AS "a" )"
                    R"(INNER JOIN "ICPriceDownClass" AS "b" ON "a"."FItemID"="b"."FItemID" )"
                    R"(WHERE (("a"."FYear"=2008 AND "a"."FPeriod"<3) OR ("a"."FYear"<2008)) )"
                    R"(AND ("a"."FHaveAdd"<>0 OR "a"."FCurrentAdd"<>0) )"
                    R"(AND "b"."FItemClassNumber"='01' LIMIT 1)"
                    "\n"},
        Translation{"CurrentPeriodOfItem",
                    "select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
                    "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
                    "where a.FYear='2008' and a.FPeriod='3'\r\n"
                    " and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FNumber='01.01'\r\n",
                    R"(SELECT "a"."FItemID" AS "FItemID" FROM "ICPriceDownPrepare" AS "a" )"
                    R"(INNER JOIN "t_ICItem" AS "b" ON "a"."FItemID"="b"."FItemID" )"
                    R"(WHERE "a"."FYear"=2008 AND "a"."FPeriod"=3 )"
                    R"(AND ("a"."FHaveAdd"<>0 OR "a"."FCurrentAdd"<>0) )"
                    R"(AND "b"."FNumber"='01.01' LIMIT 1)"
                    "\n"},
        Translation{"DeleteOfItemWithTwoBlanks",
                    "delete  a from ICPriceDownPrepare a \r\n"
                    "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
                    "where (a.FYear='2008' and a.FPeriod='3') \r\n"
                    "and b.FNumber='01.01'\r\n",
                    R"(DELETE FROM "ICPriceDownPrepare" WHERE rowid IN (SELECT "a".rowid )"
                    R"(FROM "ICPriceDownPrepare" AS "a" INNER JOIN "t_ICItem" AS "b" )"
                    R"(ON "a"."FItemID"="b"."FItemID" )"
                    R"(WHERE ("a"."FYear"=2008 AND "a"."FPeriod"=3) AND "b"."FNumber"='01.01'))"
                    "\n"},
        Translation{"DeleteOfClassWithOneBlank",
                    "DELETE A FROM ICPriceDownPrepare a \r\n"
                    "INNER JOIN ICPriceDownClass b ON a.FItemID=b.FItemID \r\n"
                    "where (a.FYear='2008' and a.FPeriod='3') \r\n"
                    "and b.FItemClassNumber='01'\r\n",
                    R"(DELETE FROM "ICPriceDownPrepare" WHERE rowid IN (SELECT "a".rowid )"
                    R"(FROM "ICPriceDownPrepare" AS "a" INNER JOIN "ICPriceDownClass" AS "b" )"
                    R"(ON "a"."FItemID"="b"."FItemID" )"
                    R"(WHERE ("a"."FYear"=2008 AND "a"."FPeriod"=3) )"
                    R"(AND "b"."FItemClassNumber"='01'))"
                    "\n"},
        Translation{"DeleteClass", "delete from icPriceDownClass where FItemClassNumber='01'",
                    R"(DELETE FROM "icPriceDownClass" WHERE "FItemClassNumber"='01')"
                    "\n"},
        Translation{"AccountNumbers", "select FNumber from t_account",
                    R"(SELECT "FNumber" AS "FNumber" FROM "t_account")"
                    "\n"},
        Translation{"ClassNumbers", "select FItemClassNumber from icPriceDownClass",
                    R"(SELECT "FItemClassNumber" AS "FItemClassNumber" FROM "icPriceDownClass")"
                    "\n"},
        Translation{"OtherClassNumbers",
                    "select FItemClassNumber from icPriceDownClass where FItemClassNumber<>'01'",
                    R"(SELECT "FItemClassNumber" AS "FItemClassNumber" FROM "icPriceDownClass" )"
                    R"(WHERE "FItemClassNumber"<>'01')"
                    "\n"},
        Translation{"AccountId", "SELECT FAccountID FROM t_account WHERE FNumber='1231.1'",
                    R"(SELECT "FAccountID" AS "FAccountID" FROM "t_account" )"
                    R"(WHERE "FNumber"='1231.1')"
                    "\n"},
        Translation{"SaveClass",
                    "delete from icPriceDownClass where  FItemClassNumber='01' INSERT INTO "
                    "icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,"
                    "FARAccID,FARNumber,FPencentPrepare)VALUES\r\n( 12,'01','原料',\r\n1234,'1231',"
                    "1235,'1232',12.5)\r\n INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,"
                    "FItemClassName,FAPAccID,FAPNumber,FARAccID,FARNumber,FPencentPrepare)VALUES"
                    "\r\n( 15,'01','原料',\r\n1234,'1231',1235,'1232',12.5)\r\n",
                    R"(DELETE FROM "icPriceDownClass" WHERE "FItemClassNumber"='01')"
                    "\n"
                    R"(INSERT INTO "icPriceDownClass"("FItemID","FItemClassNumber",)"
                    R"("FItemClassName","FAPAccID","FAPNumber","FARAccID","FARNumber",)"
                    R"("FPencentPrepare") VALUES(?,?,?,?,?,?,?,?))"
                    "\n"
                    R"(INSERT INTO "icPriceDownClass"("FItemID","FItemClassNumber",)"
                    R"("FItemClassName","FAPAccID","FAPNumber","FARAccID","FARNumber",)"
                    R"("FPencentPrepare") VALUES(?,?,?,?,?,?,?,?))"
                    "\n"},
        Translation{"ItemsOfOtherClasses",
                    "SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>'01'",
                    R"(SELECT "FItemID" AS "FItemID" FROM "icPriceDownClass" )"
                    R"(WHERE "FItemClassNumber"<>'01')"
                    "\n"},
        Translation{"ItemPicker",
                    "select top 200 x2.FItemID,x2.FNumber,x2.FName,x2.FModel from t_ICItem x2 "
                    "where (x2.FNumber like '01%' or x2.FName like '%钢%') and "
                    "(x2.FItemid not in(12,15,40)) order by x2.FNumber",
                    R"(SELECT "x2"."FItemID" AS "FItemID", "x2"."FNumber" AS "FNumber", )"
                    R"("x2"."FName" AS "FName", "x2"."FModel" AS "FModel" )"
                    R"(FROM "t_ICItem" AS "x2" WHERE (server_like("x2"."FNumber",'01%') )"
                    R"(OR server_like("x2"."FName",'%钢%')) )"
                    R"(AND ("x2"."FItemid" NOT IN (12,15,40)) ORDER BY "x2"."FNumber" LIMIT 200)"
                    "\n"}),
    [](const auto& tested) { return tested.param.name; });

// Comparing text with numbers.
INSTANTIATE_TEST_SUITE_P(
    Types, Dialect,
    ::testing::Values(
        Translation{"LiteralOnTheLeft", "delete from t_voucher where '2008'=FYear",
                    "DELETE FROM \"t_voucher\" WHERE 2008=\"FYear\"\n"},
        Translation{"ExpressionOfANumber", "delete from t_voucher where isnull(FYear,0)='2008'",
                    "DELETE FROM \"t_voucher\" WHERE ifnull(\"FYear\",0)=2008\n"},
        Translation{"Parentheses", "delete from t_voucher where (FYear)=('2008')",
                    "DELETE FROM \"t_voucher\" WHERE (\"FYear\")=2008\n"},
        Translation{"ReplacementOfANumber", "delete from t_voucher where isnull(FYear,'')=0",
                    "DELETE FROM \"t_voucher\" WHERE ifnull(\"FYear\",0)=0\n"},
        Translation{"ReplacementOfAText", "delete from t_account where isnull(FNumber,0)='0'",
                    "DELETE FROM \"t_account\" WHERE ifnull(\"FNumber\",'0') "
                    "COLLATE CHINESE_CI_PAD='0'\n"},
        Translation{"BlanksAndSign", "delete from t_voucher where FYear=' -5 '",
                    "DELETE FROM \"t_voucher\" WHERE \"FYear\"=-5\n"},
        Translation{"EmptyTextIsZero", "delete from t_voucher where FYear=''",
                    "DELETE FROM \"t_voucher\" WHERE \"FYear\"=0\n"},
        Translation{"NotANumber", "delete from t_voucher where FYear='20O8'",
                    "DELETE FROM \"t_voucher\" WHERE \"FYear\"=server_number('20O8','int')\n"},
        Translation{"FractionForAWholeNumber", "delete from t_voucher where FYear='2008.5'",
                    "DELETE FROM \"t_voucher\" WHERE \"FYear\"=server_number('2008.5','int')\n"},
        Translation{"FractionForADecimal",
                    "delete from icPriceDownClass where FPencentPrepare='12.5'",
                    "DELETE FROM \"icPriceDownClass\" WHERE \"FPencentPrepare\"=12.5\n"},
        Translation{"EmptyTextForADecimal", "delete from icPriceDownClass where FPencentPrepare=''",
                    "DELETE FROM \"icPriceDownClass\" WHERE \"FPencentPrepare\"="
                    "server_number('','numeric')\n"},
        Translation{"TextColumnAndNumber", "delete from t_account where FNumber=1231",
                    "DELETE FROM \"t_account\" WHERE server_number(\"FNumber\",'int')=1231\n"},
        Translation{"TextColumnAndNumberColumn", "delete from t_account where FNumber=FAccountID",
                    "DELETE FROM \"t_account\" WHERE server_number(\"FNumber\",'int')="
                    "\"FAccountID\"\n"},
        Translation{"ListOfTexts", "delete from t_voucher where FYear in('2008',2009,'')",
                    "DELETE FROM \"t_voucher\" WHERE \"FYear\" IN (2008,2009,0)\n"},
        Translation{"ListOfNumbersForAText", "delete from t_account where FNumber in(1,'2')",
                    "DELETE FROM \"t_account\" WHERE server_number(\"FNumber\",'int') IN (1,2)\n"},
        Translation{"Between", "delete from t_voucher where FYear not between '2008' and 2010",
                    "DELETE FROM \"t_voucher\" WHERE NOT (\"FYear\">=2008 AND \"FYear\"<=2010)\n"},
        Translation{"TwoLiterals", "delete from t_voucher where '1'=1 and 'a'='A'",
                    "DELETE FROM \"t_voucher\" WHERE 1=1 AND 'a' COLLATE CHINESE_CI_PAD='A'\n"},
        Translation{"Update", "update t_voucher set FYear='2008',FInternalInd=5,FPeriod=1.9",
                    "UPDATE \"t_voucher\" SET \"FYear\"=2008,\"FInternalInd\"='5',"
                    "\"FPeriod\"=CAST(1.9 AS INTEGER)\n"}),
    [](const auto& tested) { return tested.param.name; });

// Everything else in the dialect.
INSTANTIATE_TEST_SUITE_P(
    Forms, Dialect,
    ::testing::Values(
        Translation{"Nothing", " \r\n\t", ""}, Translation{"Semicolons", ";;", ""},
        Translation{"BracketedNames", "select [a]].b].[FNumber] as [x y] from [t_account] [a]].b]",
                    "SELECT \"a].b\".\"FNumber\" AS \"x y\" FROM \"t_account\" AS \"a].b\"\n"},
        Translation{"NationalText", "select FNumber from t_account where FNumber=N'钢''板'",
                    "SELECT \"FNumber\" AS \"FNumber\" FROM \"t_account\" WHERE "
                    "\"FNumber\"='钢''板'\n"},
        Translation{"ColumnNamedN", "select n.FNumber from t_account n",
                    "SELECT \"n\".\"FNumber\" AS \"FNumber\" FROM \"t_account\" AS \"n\"\n"},
        Translation{"TopInParentheses", "SELECT DISTINCT TOP (5) FNumber FROM t_account",
                    "SELECT DISTINCT \"FNumber\" AS \"FNumber\" FROM \"t_account\" LIMIT 5\n"},
        Translation{"Stars", "select t1.*,* from t_account as t1",
                    "SELECT \"t1\".*, * FROM \"t_account\" AS \"t1\"\n"},
        Translation{"Aggregates",
                    "select count(*),max(FNumber) as m,min(FAccountID) n from t_account",
                    "SELECT count(*) AS \"\", max(\"FNumber\") COLLATE CHINESE_CI_PAD AS \"m\", "
                    "min(\"FAccountID\") AS \"n\" FROM \"t_account\"\n"},
        Translation{"JoinedTexts", "select FNumber+' '+FKey+'x' as x from t_account,t_UserSetting",
                    "SELECT (\"FNumber\" || ' ' || \"FKey\" || 'x') COLLATE CHINESE_CI_PAD AS "
                    "\"x\" FROM \"t_account\", \"t_UserSetting\"\n"},
        Translation{"LeftAndCrossJoin",
                    "select a.FName from t_ICItem a left outer join icPriceDownClass b on "
                    "a.FItemID=b.FItemID cross join t_account c where b.FItemID is null",
                    "SELECT \"a\".\"FName\" AS \"FName\" FROM \"t_ICItem\" AS \"a\" LEFT JOIN "
                    "\"icPriceDownClass\" AS \"b\" ON \"a\".\"FItemID\"=\"b\".\"FItemID\" "
                    "CROSS JOIN \"t_account\" AS \"c\" WHERE \"b\".\"FItemID\" IS NULL\n"},
        Translation{"Negations",
                    "select FNumber from t_account where not FNumber='a' and not(FNumber "
                    "is not null or FNumber not like '[a]')",
                    "SELECT \"FNumber\" AS \"FNumber\" FROM \"t_account\" WHERE NOT "
                    "\"FNumber\"='a' AND NOT (\"FNumber\" IS NOT NULL OR NOT "
                    "server_like(\"FNumber\",'[a]'))\n"},
        Translation{"Subqueries",
                    "select FNumber from t_ICItem a where FItemID in(select FItemID from "
                    "icPriceDownClass) and not exists(select 1 from ICPriceDownPrepare where "
                    "ICPriceDownPrepare.FItemID=a.FItemID)",
                    "SELECT \"FNumber\" AS \"FNumber\" FROM \"t_ICItem\" AS \"a\" WHERE "
                    "\"FItemID\" IN (SELECT \"FItemID\" AS \"FItemID\" FROM "
                    "\"icPriceDownClass\") AND NOT EXISTS (SELECT 1 AS \"\" FROM "
                    "\"ICPriceDownPrepare\" WHERE \"ICPriceDownPrepare\".\"FItemID\"="
                    "\"a\".\"FItemID\")\n"},
        Translation{"Union",
                    "select FNumber from t_account union all select FNumber from t_ICItem union "
                    "select 'x' order by fnumber desc, 1",
                    "SELECT \"FNumber\" AS \"FNumber\" FROM \"t_account\" UNION ALL SELECT "
                    "\"FNumber\" AS \"FNumber\" FROM \"t_ICItem\" UNION SELECT 'x' "
                    "COLLATE CHINESE_CI_PAD AS \"\" "
                    "ORDER BY \"fnumber\" DESC,1\n"},
        Translation{"InsertedQuery",
                    "insert into t_account(FAccountID,FNumber) select FItemID,FNumber from "
                    "t_ICItem where FItemID>5",
                    "INSERT INTO \"t_account\"(\"FAccountID\",\"FNumber\") SELECT \"FItemID\" AS "
                    "\"FItemID\", \"FNumber\" AS \"FNumber\" FROM \"t_ICItem\" WHERE "
                    "\"FItemID\">5\n"},
        Translation{"WithoutFromOrInto", "delete t_account insert t_account(FNumber)values(1)",
                    "DELETE FROM \"t_account\"\n"
                    "INSERT INTO \"t_account\"(\"FNumber\") VALUES(?)\n"},
        Translation{"StatementsWithoutSeparators",
                    "select FNumber from t_account union select FNumber from t_ICItem select "
                    "count(*) from t_voucher update t_voucher set FYear=1 where FYear in(select "
                    "FYear from ICPriceDownPrepare)delete from t_voucher where FYear=1 insert into "
                    "t_account(FNumber)select FNumber from t_ICItem;select FNumber from t_account",
                    "SELECT \"FNumber\" AS \"FNumber\" FROM \"t_account\" UNION SELECT "
                    "\"FNumber\" AS \"FNumber\" FROM \"t_ICItem\"\n"
                    "SELECT count(*) AS \"\" FROM \"t_voucher\"\n"
                    "UPDATE \"t_voucher\" SET \"FYear\"=1 WHERE \"FYear\" IN (SELECT \"FYear\" AS "
                    "\"FYear\" FROM \"ICPriceDownPrepare\")\n"
                    "DELETE FROM \"t_voucher\" WHERE \"FYear\"=1\n"
                    "INSERT INTO \"t_account\"(\"FNumber\") SELECT \"FNumber\" AS \"FNumber\" "
                    "FROM \"t_ICItem\"\n"
                    "SELECT \"FNumber\" AS \"FNumber\" FROM \"t_account\"\n"}),
    [](const auto& tested) { return tested.param.name; });

TEST(DialectValues, AreThoseThatTheColumnsStore) {
  const TranslatedText translated = Translate(
      "insert into icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,"
      "FPencentPrepare) values(+12,'a''b',N'钢板',' 5 ',01,-.5)"
      "insert into icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,"
      "FPencentPrepare) values(0,'','',null,1.50,1E-05)");
  const std::vector<SqlValue> expected = {
      std::int64_t{12}, std::string("a'b"),  std::string("钢板"),
      std::int64_t{5},  std::string("01"),   -0.5,
      std::int64_t{0},  std::string(),       std::string(),
      std::monostate(), std::string("1.50"), 1e-05};
  EXPECT_TRUE(translated.values == expected);
  ASSERT_EQ(translated.shapes.size(), 1U);
  ASSERT_EQ(translated.runs.size(), 2U);
  EXPECT_EQ(translated.runs[1].firstValue, 6U);
  EXPECT_EQ(translated.runs[1].valueCount, 6U);
}

TEST(DialectValues, ThatDoNotFitFailWhenTheStatementRuns) {
  const TranslatedText translated =
      Translate("insert into icPriceDownClass(FItemID,FItemClassNumber) values('x','y')");
  EXPECT_EQ(translated.shapes.at(0).sql,
            "INSERT INTO \"icPriceDownClass\"(\"FItemID\",\"FItemClassNumber\") "
            "VALUES(server_number('x','int'),?)");
  EXPECT_EQ(translated.values.size(), 1U);
}

TEST(DialectColumns, CarryTheTypesBehindThem) {
  const TranslatedText translated = Translate(
      "select isnull(FModel,'') as FModel,FItemID,'钢板',1.5,FName+'x' from t_ICItem "
      "select count(FModel),max(FModel) from t_ICItem "
      "select * from t_ICItem");
  ASSERT_EQ(translated.shapes.size(), 3U);
  const std::vector<std::string> plain = {"NVARCHAR(255)", "INTEGER", "VARCHAR(2)", "NUMERIC",
                                          "TEXT"};
  EXPECT_EQ(translated.shapes[0].columnTypes, plain);
  const std::vector<std::string> aggregates = {"INTEGER", "NVARCHAR(255)"};
  EXPECT_EQ(translated.shapes[1].columnTypes, aggregates);
  EXPECT_TRUE(translated.shapes[2].columnTypes.empty());
}

}  // namespace
}  // namespace workbench
