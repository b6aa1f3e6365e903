// The statement catalogue, text by text as the company's server receives it.
#include "store/statements.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "platform/text.h"

namespace pricedown::statements {
namespace {

struct Case {
  const char* name;
  std::u16string statement;
  std::string expected;
};

void PrintTo(const Case& given, std::ostream* out) { *out << given.name; }

class Statement : public ::testing::TestWithParam<Case> {};

TEST_P(Statement, IsSentToTheLetter) {
  EXPECT_EQ(ToUtf8(GetParam().statement), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(
    Catalogue, Statement,
    ::testing::Values(
        Case{"ProvisionMode", ProvisionMode(),
             "Select FValue From t_systemprofile where Fkey like 'PriceDownPrepare'"},
        Case{"UserSetting", UserSetting(16394, u"'RptFontSize'"),
             "Select FValue From t_UserSetting Where FUserID=16394 And FCategory='ZEP_APFC' And "
             "FKey ='RptFontSize'"},
        Case{"ClassTree", ClassTree(),
             "Select t1.FitemClassNumber,t1.FitemClassName \r\n"
             " FROM icPriceDownClass t1 order by t1.FitemClassNumber asc"},
        Case{"ItemsOfClass", ItemsOfClass(u"01"),
             "SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as "
             "FShortNumber,t1.FName,isnull(t1.FModel,'') as "
             "FModel,t2.Fitemid,t2.FItemClassNumber,t2.FItemClassName,t2.FAPAccID,t2.FAPNumber,t2."
             "FARAccID,t2.FARNumber,t2.FPencentPrepare FROM t_ICItem t1,icPriceDownClass t2 Where "
             "t1.Fitemid=t2.Fitemid and t1.FErpClsID not in(6,8)  and t2.FItemClassNumber='01' "
             "Order by t1.FNumber asc"},
        Case{"AllItems", AllItems(),
             "SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as "
             "FShortNumber,t1.FName,isnull(t1.FModel,'') as FModel FROM t_ICItem t1 Where "
             "t1.FErpClsID not in(6,8) order by t1.FNumber asc"},
        Case{"ProvisionVoucher", ProvisionVoucher(2008, 3),
             "select top 1 FVoucherID from t_voucher where FYear='2008'and FPeriod='3'and "
             "FTranType=820 and FInternalInd='Industry'\r\n"},
        Case{"ClassHistory", ClassHistory(2008, 3, u"01"),
             "select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
             "inner join ICPriceDownClass b on a.FItemID=b.FItemID \r\n"
             "where ((a.FYear='2008' and a.FPeriod<'3') \r\n"
             "or (a.FYear<'2008')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and "
             "b.FItemClassNumber='01'\r\n"},
        Case{"ItemHistory", ItemHistory(2008, 12, u"01.02.0003"),
             "select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
             "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
             "where ((a.FYear='2008' and a.FPeriod<'12') \r\n"
             "or (a.FYear<'2008')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and "
             "b.FNumber='01.02.0003'\r\n"},
        Case{"ItemCurrentAmounts", ItemCurrentAmounts(2008, 3, u"01.02.0003"),
             "select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
             "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
             "where a.FYear='2008' and a.FPeriod='3'\r\n"
             " and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FNumber='01.02.0003'\r\n"},
        Case{"DeleteClassProvision", DeleteClassProvision(2008, 3, u"01"),
             "delete a from ICPriceDownPrepare a \r\n"
             "inner join ICPriceDownClass b on a.FItemID=b.FItemID \r\n"
             "where (a.FYear='2008' and a.FPeriod='3') \r\n"
             "and b.FItemClassNumber='01'\r\n"},
        Case{"DeleteItemProvisionWithoutAlias",
             DeleteItemProvision(2008, 3, u"01.02.0003", DeleteForm::NoAlias),
             "delete from ICPriceDownPrepare a \r\n"
             "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
             "where (a.FYear='2008' and a.FPeriod='3') \r\n"
             "and b.FNumber='01.02.0003'\r\n"},
        Case{"DeleteItemProvisionWithTwoBlanks",
             DeleteItemProvision(2008, 3, u"01.02.0003", DeleteForm::TwoBlanks),
             "delete  a from ICPriceDownPrepare a \r\n"
             "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
             "where (a.FYear='2008' and a.FPeriod='3') \r\n"
             "and b.FNumber='01.02.0003'\r\n"},
        Case{"DeleteClass", DeleteClass(u"01"),
             "delete from icPriceDownClass where FItemClassNumber='01'"},
        Case{"AccountNumbers", AccountNumbers(), "select FNumber from t_account"},
        Case{"ClassNumbers", ClassNumbers(), "select FItemClassNumber from icPriceDownClass"},
        Case{"OtherClassNumbers", OtherClassNumbers(u"A1"),
             "select FItemClassNumber from icPriceDownClass where FItemClassNumber<>'A1'"},
        Case{"AccountId", AccountId(u"1231.1"),
             "SELECT FAccountID FROM t_account WHERE FNumber='1231.1'"},
        Case{"ItemsOfOtherClasses", ItemsOfOtherClasses(u"A1"),
             "SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>'A1'"},
        Case{"ItemsOfOtherClassesForANewClass", ItemsOfOtherClasses(u""),
             "SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>''"},
        Case{"SaveDelete", SaveDelete(u"A1"),
             "delete from icPriceDownClass where  FItemClassNumber='A1'"}),
    ::testing::PrintToStringParamName());

TEST(Save, IsOneTextOfADeleteAndAnInsertPerItem) {
  std::u16string text = SaveDelete(u"01");
  const std::u16string end =
      SaveInsertEnd({u"02", u"原材料", u"1051", u"5711", u"1023", u"1231.1", u"12.5"});
  AppendSaveInsert(text, u"101", end);
  AppendSaveInsert(text, u"102", end);
  EXPECT_EQ(ToUtf8(text),
            "delete from icPriceDownClass where  FItemClassNumber='01'"
            " INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,"
            "FAPNumber,FARAccID,FARNumber,FPencentPrepare)VALUES\r\n"
            "( 101,'02','原材料',\r\n"
            "1051,'5711',1023,'1231.1',12.5)\r\n"
            " INSERT INTO icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,"
            "FAPNumber,FARAccID,FARNumber,FPencentPrepare)VALUES\r\n"
            "( 102,'02','原材料',\r\n"
            "1051,'5711',1023,'1231.1',12.5)\r\n");
}

TEST(StatementValues, AreInsertedWithoutDoublingTheirQuotes) {
  EXPECT_EQ(ToUtf8(DeleteClass(u"o'1")),
            "delete from icPriceDownClass where FItemClassNumber='o'1'");
  EXPECT_EQ(ToUtf8(AccountId(u"12'31")), "SELECT FAccountID FROM t_account WHERE FNumber='12'31'");
}

TEST(StatementValues, KeepBlanksLetterCaseAndChinese) {
  EXPECT_EQ(ToUtf8(ItemsOfOtherClasses(u" 类别a ")),
            "SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>' 类别a '");
}

TEST(StatementValues, WriteYearsAndPeriodsAsWholeNumbersOfAnySize) {
  EXPECT_EQ(ToUtf8(ProvisionVoucher(std::numeric_limits<std::int32_t>::min(),
                                    std::numeric_limits<std::int32_t>::max())),
            "select top 1 FVoucherID from t_voucher where FYear='-2147483648'and "
            "FPeriod='2147483647'and FTranType=820 and FInternalInd='Industry'\r\n");
}

}  // namespace
}  // namespace pricedown::statements
