#include <gtest/gtest.h>

#include <string>

#include "tests/company/fixed_table_schema.h"
#include "workbench/company/database_error.h"
#include "workbench/company/dialect.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

struct Refusal {
  const char* name;
  const char* text;
  const char* message;
  int number;
};

void PrintTo(const Refusal& refusal, std::ostream* stream) { *stream << refusal.name; }

class DialectRefusal : public ::testing::TestWithParam<Refusal> {};

TEST_P(DialectRefusal, NamesThePlace) {
  testing::FixedTableSchema schema;
  try {
    TranslateText(Utf16FromUtf8(GetParam().text), schema);
    FAIL() << "not refused: " << GetParam().text;
  } catch (const DatabaseError& error) {
    EXPECT_STREQ(error.what(), GetParam().message);
    EXPECT_EQ(error.NativeNumber(), GetParam().number);
    EXPECT_EQ(Utf8FromUtf16(error.Message()), GetParam().message);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Texts, DialectRefusal,
    ::testing::Values(
        Refusal{"ApostropheInAName",
                "delete from icPriceDownClass where  FItemClassNumber='01' INSERT INTO "
                "icPriceDownClass(FItemID,FItemClassNumber,FItemClassName)VALUES\r\n"
                "( 1,'01','O'Brien')\r\n",
                "第 2 行第 13 列：'Brien' 附近有语法错误。", 102},
        Refusal{"ApostropheAtTheEnd", "delete from icPriceDownClass where FItemClassNumber='01''",
                "第 1 行第 53 列：字符串 '01''' 后的引号不完整。", 105},
        Refusal{"UnclosedQuoteInTheThirdLine",
                "select FNumber\r\nfrom t_account\nwhere FNumber='x\r\n",
                "第 3 行第 15 列：字符串 'x\r\n' 后的引号不完整。", 105},
        Refusal{"OldMacLineBreaks", "select FNumber\rfrom t_account\rwhere ?",
                "第 3 行第 7 列：'?' 附近有语法错误。", 102},
        Refusal{"ColumnsCountUtf16Units", "select '钢\xF0\xA0\x80\x80' ?",
                "第 1 行第 14 列：'?' 附近有语法错误。", 102},
        Refusal{"UnclosedBracket", "select [FNumber from t_account",
                "第 1 行第 8 列：'[FNumber from t_account' 附近有语法错误。", 102},
        Refusal{"EmptyBrackets", "select [] from t_account",
                "第 1 行第 8 列：'[] from t_account' 附近有语法错误。", 102},
        Refusal{"LongTextIsShortened",
                "select [0123456789012345678901234567890123456789012345678901234567890123",
                "第 1 行第 8 列：'[012345678901234567890123456789012345678…' 附近有语法错误。",
                102},
        Refusal{"JunkWord", "hello", "第 1 行第 1 列：此数据库不支持 'hello'。", 40514},
        Refusal{"JunkBehindAStatement", "select FNumber from t_account where FNumber='a' junk",
                "第 1 行第 49 列：'junk' 附近有语法错误。", 102},
        Refusal{"FullWidthComma", "select FNumber，FName from t_ICItem",
                "第 1 行第 15 列：'，' 附近有语法错误。", 102},
        Refusal{"CommentToTheLineEnd", "select FNumber from t_account -- all",
                "第 1 行第 31 列：'--' 附近有语法错误。", 102},
        Refusal{"Comment", "select FNumber /* all */ from t_account",
                "第 1 行第 16 列：'/*' 附近有语法错误。", 102},
        Refusal{"DoubleQuotes", "select \"FNumber\" from t_account",
                "第 1 行第 8 列：'\"' 附近有语法错误。", 102},
        Refusal{"Variable", "select FNumber from t_account where FNumber=@p",
                "第 1 行第 45 列：'@' 附近有语法错误。", 102},
        Refusal{"NumberRunsIntoAWord", "select 12ab from t_account",
                "第 1 行第 8 列：'12a' 附近有语法错误。", 102},
        Refusal{"NumberOutOfRange", "select 1e999",
                "第 1 行第 8 列：数值 '1e999' 超出了计算机的表示范围。", 168},
        Refusal{"EndsTooEarly", "select FNumber from ", "第 1 行第 21 列：语句不完整。", 102},
        Refusal{"UnclosedParenthesis", "delete from t_account where (FNumber='a'",
                "第 1 行第 41 列：语句不完整。", 102},
        Refusal{"ParenthesisTooMany", "delete from t_account where FNumber='a')",
                "第 1 行第 40 列：')' 附近有语法错误。", 102}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Statements, DialectRefusal,
    ::testing::Values(
        Refusal{"Create", "CREATE TABLE x(a int)", "第 1 行第 1 列：此数据库不支持 'CREATE'。",
                40514},
        Refusal{"Drop", "drop table t_ICItem", "第 1 行第 1 列：此数据库不支持 'drop'。", 40514},
        Refusal{"Pragma", "PRAGMA journal_mode", "第 1 行第 1 列：此数据库不支持 'PRAGMA'。",
                40514},
        Refusal{"Attach", "attach database 'x' as y", "第 1 行第 1 列：此数据库不支持 'attach'。",
                40514},
        Refusal{"Begin", "begin transaction", "第 1 行第 1 列：此数据库不支持 'begin'。", 40514},
        Refusal{"Execute", "exec sp_who", "第 1 行第 1 列：此数据库不支持 'exec'。", 40514},
        Refusal{"WithQuery", "with x as (select 1) select * from x",
                "第 1 行第 1 列：此数据库不支持 'with'。", 40514},
        Refusal{"StarWithoutTables", "select *", "第 1 行第 8 列：必须指定要从中选择的表。", 263},
        Refusal{"DropBehindAStatement", "delete from t_voucher where FYear=1 drop table t_ICItem",
                "第 1 行第 37 列：关键字 'drop' 附近有语法错误。", 156},
        Refusal{"DropBehindATable", "select FNumber from t_account drop table t_ICItem",
                "第 1 行第 31 列：关键字 'drop' 附近有语法错误。", 156},
        Refusal{"JoinedDeleteWithoutTarget",
                "delete from ICPriceDownPrepare a \r\ninner join t_ICItem b on "
                "a.FItemID=b.FItemID \r\nwhere b.FNumber='01.01'\r\n",
                "第 1 行第 32 列：'a' 附近有语法错误。", 102},
        Refusal{"JoinedDeleteOfAnotherTable",
                "delete c from ICPriceDownPrepare a inner join t_ICItem b on a.FItemID=b.FItemID",
                "第 1 行第 8 列：对象名 'c' 无效。", 208},
        Refusal{"JoinedUpdate", "update t_ICItem set FName='x' from t_ICItem",
                "第 1 行第 31 列：关键字 'from' 附近有语法错误。", 156},
        Refusal{"InsertWithoutColumns", "insert into t_account values(1)",
                "第 1 行第 23 列：关键字 'values' 附近有语法错误。", 156},
        Refusal{"InsertOfTwoRows", "insert into t_account(FNumber) values('a'),('b')",
                "第 1 行第 43 列：',' 附近有语法错误。", 102},
        Refusal{"InsertOfAnExpression", "insert into t_account(FNumber) values(isnull('a','b'))",
                "第 1 行第 39 列：此数据库不支持 'VALUES'。", 40514},
        Refusal{"InsertOfADefault", "insert into t_account(FNumber) values(default)",
                "第 1 行第 39 列：关键字 'default' 附近有语法错误。", 156},
        Refusal{"TooManyValues", "insert into t_account(FNumber) values('a','b')",
                "第 1 行第 43 列：INSERT 语句中列的数目小于 VALUES 子句中值的数目。", 110},
        Refusal{"TooFewValues", "insert into t_account(FAccountID,FNumber) values(1)",
                "第 1 行第 50 列：INSERT 语句中列的数目大于 VALUES 子句中值的数目。", 109},
        Refusal{"ColumnTwice", "insert into t_account(FNumber,fnumber) values('a','b')",
                "第 1 行第 31 列：列名 'fnumber' 出现多次。", 264},
        Refusal{"InsertedQueryOfAnotherType",
                "insert into t_account(FAccountID) select FNumber from t_ICItem",
                "第 1 行第 35 列：值的类型与列的类型不兼容。", 206},
        Refusal{"InsertedQueryOfAnotherWidth",
                "insert into t_account(FNumber) select FNumber,FName from t_ICItem",
                "第 1 行第 32 列：INSERT 语句的选择列表中列的数目与目标列的数目不同。", 205},
        Refusal{"InsertedStar", "insert into t_account(FNumber) select * from t_ICItem",
                "第 1 行第 32 列：此数据库不支持 'INSERT … SELECT *'。", 40514},
        Refusal{"UpdateWithAFractionAsText", "update t_voucher set FInternalInd=FYear+1",
                "第 1 行第 40 列：此数据库不支持 '+'。", 40514}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Queries, DialectRefusal,
    ::testing::Values(
        Refusal{"GroupBy", "select FNumber from t_account group by FNumber",
                "第 1 行第 31 列：此数据库不支持 'group'。", 40514},
        Refusal{"TopPercent", "select top 5 percent FNumber from t_account",
                "第 1 行第 14 列：此数据库不支持 'percent'。", 40514},
        Refusal{"TopWithTies", "select top 5 with ties FNumber from t_account",
                "第 1 行第 14 列：此数据库不支持 'with'。", 40514},
        Refusal{"TopFraction", "select top 1.5 FNumber from t_account",
                "第 1 行第 12 列：'1.5' 附近有语法错误。", 102},
        Refusal{"TopInUnion",
                "select FNumber from t_account union select top 1 FNumber from t_ICItem",
                "第 1 行第 48 列：此数据库不支持 'TOP … union'。", 40514},
        Refusal{"UnionWithIntersect", "select 1 union select 2 intersect select 3",
                "第 1 行第 25 列：此数据库不支持 'intersect'。", 40514},
        Refusal{
            "UnionOfDifferentWidths", "select 1,2 union select 1",
            "第 1 行第 12 列：使用 UNION、INTERSECT 或 EXCEPT 合并的查询必须有相同数目的表达式。",
            205},
        Refusal{"UnionOrderedByAColumn",
                "select FNumber from t_account union select FNumber from t_ICItem order by FName",
                "第 1 行第 75 列：如果语句中包含 UNION、INTERSECT 或 EXCEPT 运算符，则 ORDER BY "
                "项必须出现在选择列表中。",
                108},
        Refusal{"OrderPosition", "select FNumber from t_account order by 2",
                "第 1 行第 40 列：ORDER BY 位置号 2 超出了选择列表项数的范围。", 108},
        Refusal{"RightJoin", "select 1 from t_account a right join t_ICItem b on 1=1",
                "第 1 行第 27 列：此数据库不支持 'right'。", 40514},
        Refusal{"DerivedTable", "select 1 from (select 1 as a) x",
                "第 1 行第 15 列：'(' 附近有语法错误。", 102},
        Refusal{"LockHint", "select FNumber from t_account with (nolock)",
                "第 1 行第 31 列：关键字 'with' 附近有语法错误。", 156},
        Refusal{"OwnerName", "select FNumber from dbo.t_account",
                "第 1 行第 21 列：对象名 'dbo' 无效。", 208},
        Refusal{"AggregateBesideAColumn", "select count(*),FNumber from t_account",
                "第 1 行第 17 列：选择列表中的列无效，因为该列没有包含在聚合函数中。", 8120},
        Refusal{"AggregateInACondition", "select FNumber from t_account where count(*)=1",
                "第 1 行第 37 列：此数据库不支持 'count'。", 40514},
        Refusal{"NestedAggregate", "select max(min(FNumber)) from t_account",
                "第 1 行第 12 列：此数据库不支持 'min'。", 40514},
        Refusal{"MaximumOfTwo", "select max(1,2) from t_account",
                "第 1 行第 13 列：',' 附近有语法错误。", 102},
        Refusal{"UnknownFunction", "select upper(FNumber) from t_account",
                "第 1 行第 8 列：此数据库不支持 'upper'。", 40514},
        Refusal{"ScalarSubquery", "select (select 1) from t_account",
                "第 1 行第 9 列：此数据库不支持 'select'。", 40514},
        Refusal{"Case", "select case when 1=1 then 1 end from t_account",
                "第 1 行第 8 列：关键字 'case' 附近有语法错误。", 156}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Expressions, DialectRefusal,
    ::testing::Values(
        Refusal{"NumbersAdded", "select FYear+1 from t_voucher",
                "第 1 行第 13 列：此数据库不支持 '+'。", 40514},
        Refusal{"TextAndNumberAdded", "select FNumber+1 from t_account",
                "第 1 行第 15 列：此数据库不支持 '+'。", 40514},
        Refusal{"Subtraction", "select FYear-1 from t_voucher",
                "第 1 行第 13 列：此数据库不支持 '-'。", 40514},
        Refusal{"Multiplication", "select FYear*2 from t_voucher",
                "第 1 行第 13 列：此数据库不支持 '*'。", 40514},
        Refusal{"SignedColumn", "select -FYear from t_voucher",
                "第 1 行第 9 列：'FYear' 附近有语法错误。", 102},
        Refusal{"LikeEscape", "delete from t_account where FNumber like 'a!%' escape '!'",
                "第 1 行第 48 列：此数据库不支持 'escape'。", 40514},
        Refusal{"ValueAsCondition", "delete from t_account where FNumber",
                "第 1 行第 29 列：在应使用条件的上下文中指定了非布尔类型的表达式。", 4145},
        Refusal{"ValueBesideAnd", "delete from t_account where FNumber='a' and 1",
                "第 1 行第 45 列：在应使用条件的上下文中指定了非布尔类型的表达式。", 4145},
        Refusal{"NotOfAValue", "delete from t_account where not FNumber",
                "第 1 行第 33 列：在应使用条件的上下文中指定了非布尔类型的表达式。", 4145},
        Refusal{"ConditionAsValue", "select (1=1) from t_account",
                "第 1 行第 14 列：关键字 'from' 附近有语法错误。", 156},
        Refusal{"ComparedTwice", "delete from t_voucher where FYear=1=1",
                "第 1 行第 36 列：'=' 附近有语法错误。", 102},
        Refusal{"MixedList", "delete from t_account where FNumber in('a',1)",
                "第 1 行第 44 列：IN 列表中的文本和数字不能混用。", 206},
        Refusal{"EmptyList", "delete from t_account where FNumber in()",
                "第 1 行第 40 列：')' 附近有语法错误。", 102},
        Refusal{"SubqueryOfTwoColumns",
                "delete from t_account where FNumber in(select FNumber,FName from t_ICItem)",
                "第 1 行第 40 列：此数据库不支持 'IN (SELECT …)'。", 40514},
        Refusal{"IsSomethingElse", "delete from t_account where FNumber is 1",
                "第 1 行第 40 列：'1' 附近有语法错误。", 102}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Names, DialectRefusal,
    ::testing::Values(
        Refusal{"Table", "select FNumber from t_acount",
                "第 1 行第 21 列：对象名 't_acount' 无效。", 208},
        Refusal{"Column", "select FNumber,FNamee from t_ICItem",
                "第 1 行第 16 列：列名 'FNamee' 无效。", 207},
        Refusal{"ColumnWithoutTable", "select FNumber", "第 1 行第 8 列：列名 'FNumber' 无效。",
                207},
        Refusal{"QualifiedColumn", "select a.FName from t_account a",
                "第 1 行第 10 列：列名 'FName' 无效。", 207},
        Refusal{"UnknownQualifier", "select b.FNumber from t_account a",
                "第 1 行第 8 列：无法绑定由多个部分组成的标识符 'b.FNumber'。", 4104},
        Refusal{"TableNameBehindItsAlias", "select t_account.FNumber from t_account a",
                "第 1 行第 8 列：无法绑定由多个部分组成的标识符 't_account.FNumber'。", 4104},
        Refusal{"StarOfAnUnknownTable", "select b.* from t_account a",
                "第 1 行第 8 列：列前缀 'b' 与查询中所用的表名或别名不匹配。", 4104},
        Refusal{"AmbiguousColumn", "select FNumber from t_account,t_ICItem",
                "第 1 行第 8 列：列名 'FNumber' 不明确。", 209},
        Refusal{"SameTableTwice", "select 1 from t_account,T_Account",
                "第 1 行第 25 列：FROM 子句中的名称 'T_Account' 重复，请使用不同的别名。", 1013},
        Refusal{"SameAliasTwice", "select 1 from t_account a,t_ICItem A",
                "第 1 行第 36 列：FROM 子句中的名称 'A' 重复，请使用不同的别名。", 1013},
        Refusal{"JoinBeforeItsTable",
                "select 1 from t_account a inner join t_ICItem b on a.FNumber=c.FItemID inner join "
                "icPriceDownClass c on 1=1",
                "第 1 行第 62 列：无法绑定由多个部分组成的标识符 'c.FItemID'。", 4104},
        Refusal{"KeywordAsAlias", "select FNumber as from from t_account",
                "第 1 行第 24 列：关键字 'from' 附近有语法错误。", 156},
        Refusal{"InsertedColumn", "insert into t_account(FName) values('a')",
                "第 1 行第 23 列：列名 'FName' 无效。", 207},
        Refusal{"UpdatedColumn", "update t_account set FName='a'",
                "第 1 行第 22 列：列名 'FName' 无效。", 207},
        Refusal{"OrderColumn", "select FNumber from t_account order by FName",
                "第 1 行第 40 列：列名 'FName' 无效。", 207}),
    [](const auto& tested) { return tested.param.name; });

TEST(DialectNesting, IsRefusedBeforeTheStackEnds) {
  testing::FixedTableSchema schema;
  const auto refusalOf = [&schema](const std::string& text) {
    try {
      TranslateText(Utf16FromUtf8(text), schema);
    } catch (const DatabaseError& error) {
      return error.NativeNumber();
    }
    return 0;
  };
  const auto repeated = [](std::string_view piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece;
    return text;
  };
  const std::string head = "delete from t_account where ";
  EXPECT_EQ(refusalOf(head + repeated("(", 50) + "1=1" + repeated(")", 50)), 0);
  EXPECT_EQ(refusalOf(head + repeated("(", 100000)), 191);
  EXPECT_EQ(refusalOf(head + repeated("not ", 100000) + "1=1"), 191);
  EXPECT_EQ(refusalOf("select " + repeated("isnull(", 100000)), 191);
  EXPECT_EQ(refusalOf(head + repeated("exists(select 1 from t_account where ", 100000)), 191);
}

TEST(DialectText, HoldsNoZeroCharacter) {
  testing::FixedTableSchema schema;
  using namespace std::literals;
  for (const std::u16string_view text : {u"select FNumber\0 from t_account"sv, u"select 'a\0b'"sv,
                                         u"select [a\0b] from t_account"sv}) {
    EXPECT_THROW(TranslateText(text, schema), DatabaseError);
  }
}

}  // namespace
}  // namespace workbench
