// Every statement that the library sends, executed on a company, and its result.
#include <gtest/gtest.h>

#include <string>

#include "tests/company/company_file.h"

namespace workbench {
namespace {

using testing::ColumnsOf;
using testing::RowsOf;

class StatementCatalogue : public ::testing::Test {
 protected:
  StatementCatalogue() {
    company_.Execute(
        "insert into t_systemprofile(FCategory,FKey,FValue) values('IC','CurrentYear','2008')"
        "insert into t_systemprofile(FCategory,FKey,FValue) values('IC','PriceDownPrepare','1')"
        "insert into t_systemprofile(FCategory,FKey,FValue) values('IC','PriceDownPrepareX','2')"
        "insert into t_UserSetting(FUserID,FCategory,FKey,FValue) values(1,'ZEP_APFC','O''Key',7)"
        "insert into t_UserSetting(FUserID,FCategory,FKey,FValue) values(2,'ZEP_APFC','O''Key',8)"
        "insert into t_account(FAccountID,FNumber,FLevel,FParentID,FDetail,FDC)"
        " values(1231,'1231.01',2,0,1,1)"
        "insert into t_account(FAccountID,FNumber,FLevel,FParentID,FDetail,FDC)"
        " values(1232,'1232',1,0,1,1)");
    company_.Execute(
        "insert into t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID)"
        " values(11,'01.02','02','钢板','10mm',1)"
        "insert into t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID)"
        " values(12,'01.01',null,'圆钢',null,2)"
        "insert into t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID)"
        " values(13,'01.03','03','虚拟件','',6)"
        "insert into t_ICItem(FItemID,FNumber,FShortNumber,FName,FModel,FErpClsID)"
        " values(14,'02.01','01','铜线','2mm',7)");
    for (const char* row : {"11,'02','金属',1231,'1231.01',1232,'1232',12.5",
                            "12,'02','金属(旧)',1231,'1231.01',1232,'1232',12.5",
                            "13,'02','金属',1231,'1231.01',1232,'1232',12.5",
                            "14,'01',' 线材 ',1231,'1231.01',1232,'1232',0"}) {
      company_.Execute(
          "insert into icPriceDownClass(FItemID,FItemClassNumber,FItemClassName,FAPAccID,"
          "FAPNumber,FARAccID,FARNumber,FPencentPrepare)values(" +
          std::string(row) + ")");
    }
    for (const char* row : {"11,2008,2,0,0", "11,2008,3,5,0", "12,2007,12,0,1.5", "12,2008,3,0,0",
                            "14,2008,3,0,2", "14,2008,4,9,9"}) {
      company_.Execute(
          "insert into ICPriceDownPrepare(FItemID,FYear,FPeriod,FHaveAdd,FCurrentAdd)values(" +
          std::string(row) + ")");
    }
    company_.Execute(
        "insert into t_voucher(FVoucherID,FYear,FPeriod,FTranType,FInternalInd)"
        " values(5,2008,2,820,'Industry')"
        "insert into t_voucher(FVoucherID,FYear,FPeriod,FTranType,FInternalInd)"
        " values(6,2008,3,21,'Industry')");
  }

  std::string PrepareRows() {
    return company_.Rows("select FItemID,FYear,FPeriod from ICPriceDownPrepare");
  }

  testing::OpenCompany company_;
};

TEST_F(StatementCatalogue, ReadsTheProfileValueByLike) {
  const ResultSet result =
      company_.Execute("Select FValue From t_systemprofile where Fkey like 'PRICEDOWNprepare'");
  EXPECT_EQ(RowsOf(result), "'1'\n");
  EXPECT_EQ(ColumnsOf(result), "FValue:202(255)");
}

TEST_F(StatementCatalogue, ReadsTheUserSettingOfAKeyWithAnApostrophe) {
  EXPECT_EQ(company_.Rows("Select FValue From t_UserSetting Where FUserID=2 And "
                          "FCategory='ZEP_APFC' And FKey ='O''Key'"),
            "'8'\n");
}

TEST_F(StatementCatalogue, ReadsTheTreeInClassOrderRowByRow) {
  const ResultSet result = company_.Execute(
      "Select t1.FitemClassNumber,t1.FitemClassName \r\n"
      " FROM icPriceDownClass t1 order by t1.FitemClassNumber asc");
  EXPECT_EQ(RowsOf(result), "'01'|' 线材 '\n'02'|'金属'\n'02'|'金属'\n'02'|'金属(旧)'\n");
  EXPECT_EQ(ColumnsOf(result), "FitemClassNumber:202(80) FitemClassName:202(80)");
}

TEST_F(StatementCatalogue, ReadsTheItemsOfAClassWithoutItsHiddenOnes) {
  const std::string text =
      "SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as FShortNumber,t1.FName,"
      "isnull(t1.FModel,'') as FModel,t2.Fitemid,t2.FItemClassNumber,t2.FItemClassName,"
      "t2.FAPAccID,t2.FAPNumber,t2.FARAccID,t2.FARNumber,t2.FPencentPrepare FROM t_ICItem t1,"
      "icPriceDownClass t2 Where t1.Fitemid=t2.Fitemid and t1.FErpClsID not in(6,8)  and "
      "t2.FItemClassNumber=";
  const ResultSet result = company_.Execute(text + "'02' Order by t1.FNumber asc");
  EXPECT_EQ(RowsOf(result),
            "'01.01'|''|'圆钢'|''|12|'02'|'金属(旧)'|1231|'1231.01'|1232|'1232'|12.5\n"
            "'01.02'|'02'|'钢板'|'10mm'|11|'02'|'金属'|1231|'1231.01'|1232|'1232'|12.5\n");
  EXPECT_EQ(ColumnsOf(result),
            "FNumber:202(80) FShortNumber:202(80) FName:202(80) FModel:202(255) Fitemid:3(4) "
            "FItemClassNumber:202(80) FItemClassName:202(80) FAPAccID:3(4) FAPNumber:202(80) "
            "FARAccID:3(4) FARNumber:202(80) FPencentPrepare:5(8)");
  EXPECT_EQ(company_.Rows(text + "'0' Order by t1.FNumber asc"), "");
}

TEST_F(StatementCatalogue, ReadsAllItemsInCodeOrder) {
  EXPECT_EQ(
      company_.Rows("SELECT isnull(t1.FNumber,'') as FNumber,isnull(t1.FShortNumber,'') as "
                    "FShortNumber,t1.FName,isnull(t1.FModel,'') as FModel FROM t_ICItem t1 Where "
                    "t1.FErpClsID not in(6,8) order by t1.FNumber asc"),
      "'01.01'|''|'圆钢'|''\n'01.02'|'02'|'钢板'|'10mm'\n'02.01'|'01'|'铜线'|'2mm'\n");
}

TEST_F(StatementCatalogue, FindsTheVoucherOfItsPeriodOnly) {
  const auto voucherOf = [this](const std::string& period) {
    return company_.Rows("select top 1 FVoucherID from t_voucher where FYear='2008'and FPeriod='" +
                         period + "'and FTranType=820 and FInternalInd='Industry'\r\n");
  };
  EXPECT_EQ(voucherOf("2"), "5\n");
  EXPECT_EQ(voucherOf("3"), "");
}

TEST_F(StatementCatalogue, FindsHistoryOfAnItemBeforeThePeriodOnly) {
  const auto historyOf = [this](const std::string& year, const std::string& period,
                                const std::string& item) {
    return company_.Rows(
        "select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
        "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
        "where ((a.FYear='" +
        year + "' and a.FPeriod<'" + period +
        "') \r\n"
        "or (a.FYear<'" +
        year + "')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FNumber='" + item + "'\r\n");
  };
  EXPECT_EQ(historyOf("2008", "3", "01.01"), "12\n");  // of an earlier year
  EXPECT_EQ(historyOf("2008", "3", "01.02"), "");      // amounts of zero, and of the period itself
  EXPECT_EQ(historyOf("2008", "4", "01.02"), "11\n");
  EXPECT_EQ(historyOf("2008", "3", "02.01"), "");       // later periods
  EXPECT_EQ(historyOf("2008", "10", "02.01"), "14\n");  // 4 is before 10 as a number
}

TEST_F(StatementCatalogue, FindsHistoryOfAClass) {
  const auto historyOf = [this](const std::string& number) {
    return company_.Rows(
        "select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
        "inner join ICPriceDownClass b on a.FItemID=b.FItemID \r\n"
        "where ((a.FYear='2008' and a.FPeriod<'3') \r\n"
        "or (a.FYear<'2008')) and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FItemClassNumber='" +
        number + "'\r\n");
  };
  EXPECT_EQ(historyOf("02"), "12\n");
  EXPECT_EQ(historyOf("01"), "");
}

TEST_F(StatementCatalogue, FindsAmountsOfTheCurrentPeriod) {
  const auto amountsOf = [this](const std::string& item) {
    return company_.Rows(
        "select top 1 a.FItemID from ICPriceDownPrepare a \r\n"
        "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
        "where a.FYear='2008' and a.FPeriod='3'\r\n"
        " and (a.FHaveAdd<>0 or a.FCurrentAdd<>0) and b.FNumber='" +
        item + "'\r\n");
  };
  EXPECT_EQ(amountsOf("01.02"), "11\n");
  EXPECT_EQ(amountsOf("01.01"), "");
}

TEST_F(StatementCatalogue, DeletesTheCurrentPeriodOfAnItem) {
  const ResultSet result = company_.Execute(
      "delete  a from ICPriceDownPrepare a \r\n"
      "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
      "where (a.FYear='2008' and a.FPeriod='3') \r\n"
      "and b.FNumber='01.01'\r\n");
  EXPECT_EQ(result.ColumnCount(), 0U);
  EXPECT_EQ(result.RowCount(), 0U);
  EXPECT_EQ(PrepareRows(), "11|2008|2\n11|2008|3\n12|2007|12\n14|2008|3\n14|2008|4\n");
}

TEST_F(StatementCatalogue, DeletesTheCurrentPeriodOfAClass) {
  company_.Execute(
      "delete a from ICPriceDownPrepare a \r\n"
      "inner join ICPriceDownClass b on a.FItemID=b.FItemID \r\n"
      "where (a.FYear='2008' and a.FPeriod='3') \r\n"
      "and b.FItemClassNumber='02'\r\n");
  EXPECT_EQ(PrepareRows(), "11|2008|2\n12|2007|12\n14|2008|3\n14|2008|4\n");
}

TEST_F(StatementCatalogue, RefusesTheJoinedDeleteWithoutTargetAsTheServerDoes) {
  const std::string before = PrepareRows();
  EXPECT_EQ(company_.RefusalNumber("delete from ICPriceDownPrepare a \r\n"
                                   "inner join t_ICItem b on a.FItemID=b.FItemID \r\n"
                                   "where (a.FYear='2008' and a.FPeriod='3') \r\n"
                                   "and b.FNumber='01.01'\r\n"),
            102);
  EXPECT_EQ(PrepareRows(), before);
}

TEST_F(StatementCatalogue, DeletesAClass) {
  company_.Execute("delete from icPriceDownClass where FItemClassNumber='02'");
  EXPECT_EQ(company_.Rows("select FItemID from icPriceDownClass"), "14\n");
}

TEST_F(StatementCatalogue, ReadsAccountsAndClassNumbers) {
  EXPECT_EQ(company_.Rows("select FNumber from t_account"), "'1231.01'\n'1232'\n");
  EXPECT_EQ(company_.Rows("SELECT FAccountID FROM t_account WHERE FNumber='1231.01'"), "1231\n");
  EXPECT_EQ(company_.Rows("SELECT FAccountID FROM t_account WHERE FNumber='1231.1'"), "");
  EXPECT_EQ(company_.Rows("select FItemClassNumber from icPriceDownClass"),
            "'01'\n'02'\n'02'\n'02'\n");
  EXPECT_EQ(
      company_.Rows("select FItemClassNumber from icPriceDownClass where FItemClassNumber<>'02'"),
      "'01'\n");
  EXPECT_EQ(company_.Rows("SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>'01'"),
            "11\n12\n13\n");
  EXPECT_EQ(company_.Execute("SELECT  FItemID FROM  icPriceDownClass WHERE FItemClassNumber<>''")
                .RowCount(),
            4U);
}

TEST_F(StatementCatalogue, SavesAClassInOneText) {
  const ResultSet result = company_.Execute(
      "delete from icPriceDownClass where  FItemClassNumber='02' INSERT INTO icPriceDownClass("
      "FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,FARAccID,FARNumber,"
      "FPencentPrepare)VALUES\r\n( 11,'03','新 \"类\"',\r\n1231,'1231.01',1232,'1232',12.5)\r\n"
      " INSERT INTO icPriceDownClass("
      "FItemID,FItemClassNumber,FItemClassName,FAPAccID,FAPNumber,FARAccID,FARNumber,"
      "FPencentPrepare)VALUES\r\n( 12,'03','新 \"类\"',\r\n1231,'1231.01',1232,'1232',100)\r\n");
  EXPECT_EQ(result.ColumnCount(), 0U);
  EXPECT_EQ(company_.Rows("select * from icPriceDownClass order by FItemID"),
            "11|'03'|'新 \"类\"'|1231|'1231.01'|1232|'1232'|12.5\n"
            "12|'03'|'新 \"类\"'|1231|'1231.01'|1232|'1232'|100\n"
            "14|'01'|' 线材 '|1231|'1231.01'|1232|'1232'|0\n");
}

TEST_F(StatementCatalogue, OffersOnlyItemsOutsideOfTheListToThePicker) {
  EXPECT_EQ(company_.Rows("select top 10 x2.FItemID,x2.FNumber from t_ICItem x2 where "
                          "(x2.FNumber like '01%' or x2.FName like '%铜%') and "
                          "x2.FItemid not in(12,15,40) order by x2.FNumber"),
            "11|'01.02'\n13|'01.03'\n14|'02.01'\n");
}

}  // namespace
}  // namespace workbench
