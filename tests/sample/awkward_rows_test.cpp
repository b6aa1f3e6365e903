// Each edge case of the sample company, found by its defining property.
#include <gtest/gtest.h>

#include "tests/sample/test_company.h"
#include "workbench/sample/sample_users.h"

namespace workbench::testing {
namespace {

using Texts = std::vector<std::string>;

class AwkwardRows : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { company_ = new Database(SampleCompany(1)); }
  static void TearDownTestSuite() {
    delete company_;
    company_ = nullptr;
  }
  static std::int64_t CountOf(std::string_view sql) { return Count(*company_, sql); }
  static Texts RowsOf(std::string_view sql) { return Rows(*company_, sql); }

  static Database* company_;
};

Database* AwkwardRows::company_ = nullptr;

TEST_F(AwkwardRows, ClassWhoseRowsDifferInName) {
  EXPECT_EQ(RowsOf("SELECT DISTINCT FItemClassName FROM icPriceDownClass "
                   "WHERE FItemClassNumber='16' ORDER BY 1"),
            (Texts{"停产专用料", "停产专用料(待处理)"}));
}

TEST_F(AwkwardRows, ClassNameWithOuterBlanks) {
  EXPECT_EQ(RowsOf("SELECT DISTINCT FItemClassName FROM icPriceDownClass "
                   "WHERE FItemClassNumber='17'"),
            (Texts{"  呆滞材料 "}));
}

TEST_F(AwkwardRows, ItemInTwoClasses) {
  EXPECT_EQ(CountOf("SELECT count(*) FROM icPriceDownClass a JOIN icPriceDownClass b "
                    "ON a.FItemID=b.FItemID WHERE a.FItemClassNumber='03' AND "
                    "b.FItemClassNumber='18'"),
            1);
}

TEST_F(AwkwardRows, MembersWithoutShortCodeOrModel) {
  EXPECT_EQ(RowsOf("SELECT i.FNumber,i.FShortNumber IS NULL,i.FShortNumber='',i.FModel IS NULL,"
                   "i.FModel='' FROM t_ICItem i JOIN icPriceDownClass c ON c.FItemID=i.FItemID "
                   "WHERE c.FItemClassNumber='19' AND i.FNumber<='05.06.0005' ORDER BY 1"),
            (Texts{"05.06.0001|1|NULL|0|0", "05.06.0002|0|0|1|NULL", "05.06.0003|1|NULL|1|NULL",
                   "05.06.0004|0|1|0|0", "05.06.0005|0|0|0|1"}));
}

TEST_F(AwkwardRows, MembersThatAreNeverListed) {
  EXPECT_EQ(RowsOf("SELECT DISTINCT FErpClsID FROM t_ICItem WHERE FItemID IN(SELECT FItemID FROM "
                   "icPriceDownClass WHERE FItemClassNumber='20') ORDER BY 1"),
            (Texts{"1", "6", "8"}));
  EXPECT_EQ(RowsOf("SELECT DISTINCT FErpClsID FROM t_ICItem WHERE FItemID IN(SELECT FItemID FROM "
                   "icPriceDownClass WHERE FItemClassNumber='21') ORDER BY 1"),
            (Texts{"6", "8"}));
}

TEST_F(AwkwardRows, ClassNumbersThatDifferOnlyInLetterCase) {
  EXPECT_EQ(RowsOf("SELECT DISTINCT FItemClassNumber COLLATE BINARY FROM icPriceDownClass "
                   "WHERE FItemClassNumber='b7' ORDER BY 1"),
            (Texts{"B7", "b7"}));
}

TEST_F(AwkwardRows, NumberAndNameOfFortyCharacters) {
  EXPECT_EQ(CountOf("SELECT count(DISTINCT FItemClassNumber) FROM icPriceDownClass "
                    "WHERE length(FItemClassNumber)=40"),
            1);
  EXPECT_EQ(CountOf("SELECT count(DISTINCT FItemClassNumber) FROM icPriceDownClass "
                    "WHERE length(FItemClassName)=40"),
            1);
}

TEST_F(AwkwardRows, PercentagesAtTheEnds) {
  EXPECT_EQ(RowsOf("SELECT min(FPencentPrepare),max(FPencentPrepare) FROM icPriceDownClass"),
            (Texts{"0.0|100.0"}));
  EXPECT_EQ(CountOf("SELECT count(*)>0 FROM icPriceDownClass WHERE FPencentPrepare=0.0001"), 1);
}

TEST_F(AwkwardRows, AccountNumbersThatNumbersWouldConfuse) {
  EXPECT_EQ(RowsOf("SELECT FNumber FROM t_account WHERE FNumber LIKE '1231.%' ORDER BY 1"),
            (Texts{"1231.1", "1231.10"}));
  EXPECT_EQ(RowsOf("SELECT FNumber FROM t_account WHERE FNumber IN('1471.2','1471.20')"),
            (Texts{"1471.20"}));
  EXPECT_EQ(CountOf("SELECT max(length(FNumber)) FROM t_account"), 49);
  // Each of them is used by a class.
  EXPECT_EQ(RowsOf("SELECT DISTINCT FARNumber FROM icPriceDownClass WHERE FARNumber IN('1231.10',"
                   "'1471.20','1471.01.02') OR length(FARNumber)=49 ORDER BY 1"),
            (Texts{"1231.10", "1471.01.02", "1471.20",
                   "1471.99.0001.ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789"}));
}

// How many members of a class have non-zero amounts before, in and after 2008/3, and how many
// have none but zero ones.
std::string HistoryOf(const Database& company, const std::string& number) {
  const std::string sql =
      "SELECT count(CASE WHEN w<0 AND s THEN 1 END)>0,count(CASE WHEN w=0 AND s THEN 1 END)>0,"
      "count(CASE WHEN w>0 AND s THEN 1 END)>0,count(CASE WHEN NOT s THEN 1 END)>0 FROM("
      "SELECT p.FYear*12+p.FPeriod-2008*12-3 AS w,"
      "ifnull(p.FHaveAdd<>0,0) OR ifnull(p.FCurrentAdd<>0,0) AS s "
      "FROM ICPriceDownPrepare p JOIN icPriceDownClass c ON c.FItemID=p.FItemID "
      "WHERE c.FItemClassNumber='" +
      number + "')";
  return Rows(company, sql).at(0);
}

TEST_F(AwkwardRows, HistoryOfEachKind) {
  EXPECT_EQ(HistoryOf(*company_, "01"), "1|1|0|0") << "earlier and current amounts";
  EXPECT_EQ(HistoryOf(*company_, "02"), "1|0|0|0") << "the year before only";
  EXPECT_EQ(HistoryOf(*company_, "03"), "1|0|0|0") << "earlier in the same year";
  EXPECT_EQ(HistoryOf(*company_, "04"), "0|0|0|1") << "earlier rows, all zero or missing";
  EXPECT_EQ(HistoryOf(*company_, "05"), "0|1|0|0") << "current amounts only";
  EXPECT_EQ(HistoryOf(*company_, "06"), "0|0|1|0") << "later amounts only";
  EXPECT_EQ(HistoryOf(*company_, "08"), "0|0|0|1") << "current rows, all zero";
  EXPECT_EQ(HistoryOf(*company_, "10"), "0|0|0|0") << "none";
}

TEST_F(AwkwardRows, HistoryYearsOfClassesWithOneEarlierPeriod) {
  const auto yearsOf = [](const std::string& number) {
    return RowsOf(
        "SELECT DISTINCT p.FYear,p.FPeriod FROM ICPriceDownPrepare p JOIN icPriceDownClass c "
        "ON c.FItemID=p.FItemID WHERE c.FItemClassNumber='" +
        number + "'");
  };
  EXPECT_EQ(yearsOf("02"), (Texts{"2007|12"}));
  EXPECT_EQ(yearsOf("03"), (Texts{"2008|1"}));
}

TEST_F(AwkwardRows, HistoryOfItemsOfNoClass) {
  EXPECT_EQ(CountOf("SELECT count(DISTINCT FItemID) FROM ICPriceDownPrepare WHERE FItemID NOT IN"
                    "(SELECT FItemID FROM icPriceDownClass)"),
            2);
}

TEST_F(AwkwardRows, ProvisionVouchersOfEarlierPeriodsAndOnlyLookalikesOfTheCurrent) {
  EXPECT_EQ(RowsOf("SELECT FYear,FPeriod FROM t_voucher WHERE FTranType=820 AND "
                   "FInternalInd='Industry' ORDER BY FYear,FPeriod"),
            (Texts{"2007|10", "2007|11", "2007|12", "2008|1", "2008|2"}));
  EXPECT_EQ(RowsOf("SELECT FTranType,FInternalInd FROM t_voucher WHERE FYear=2008 AND FPeriod=3 "
                   "AND FTranType IS NOT NULL ORDER BY FVoucherID"),
            (Texts{"820|GL", "820|NULL", "810|Industry"}));
}

TEST_F(AwkwardRows, SystemProfileOfTheCurrentPeriod) {
  EXPECT_EQ(
      RowsOf("SELECT FKey,FValue FROM t_systemprofile WHERE FCategory='ic' AND FKey IN"
             "('CurrentYear','CurrentPeriod','UseShortNumber','PriceDownPrepare') "
             "ORDER BY FKey"),
      (Texts{"CurrentPeriod|3", "CurrentYear|2008", "PriceDownPrepare|1", "UseShortNumber|0"}));
  EXPECT_EQ(CountOf("SELECT count(*) FROM t_systemprofile WHERE FKey LIKE 'PriceDownPrepare'"), 1);
}

TEST_F(AwkwardRows, UserSettingWhoseKeyHasAnApostrophe) {
  EXPECT_EQ(RowsOf("SELECT FValue FROM t_UserSetting WHERE FUserID=1 AND FCategory='ZEP_APFC' "
                   "AND FKey='Auditor''s Font'"),
            (Texts{"11"}));
}

// The bits of a user on an object, by the way the suite's check reads them.
bool Grants(const Database& company, int user, int objectType, int objectNumber, int mask) {
  return Count(company, "SELECT count(*) FROM t_UserRight WHERE FUserID=" + std::to_string(user) +
                            " AND FObjectType=" + std::to_string(objectType) + " AND FObjectID=" +
                            std::to_string(objectNumber) + " AND (FAccessMask&" +
                            std::to_string(mask) + ")=" + std::to_string(mask)) == 1;
}

TEST_F(AwkwardRows, UsersLackExactlyTheRightsTheyAreNamedFor) {
  for (const int mask : {0x8000, 0x10000, 0x20000, 0x400000}) {
    EXPECT_TRUE(Grants(*company_, kAdministrator, 1002, 35, mask)) << std::hex << mask;
    EXPECT_EQ(Grants(*company_, kUserWithoutAdd, 1002, 35, mask), mask != 0x20000);
    EXPECT_EQ(Grants(*company_, kUserWithoutPrint, 1002, 35, mask), mask != 0x8000);
    EXPECT_FALSE(Grants(*company_, kUserWithoutRights, 1002, 35, mask));
  }
}

TEST_F(AwkwardRows, UsersOfEveryDataScope) {
  for (const int objectType : {10, 11}) {
    const auto scopeOf = [&](int user) {
      if (Grants(*company_, user, objectType, 151, 0x400000)) return 2;
      if (Grants(*company_, user, objectType, 151, 0x200000)) return 1;
      return Grants(*company_, user, objectType, 151, 0x100000) ? 0 : -1;
    };
    EXPECT_EQ(scopeOf(kAdministrator), 2);
    EXPECT_EQ(scopeOf(kUserOfScopeOne), 1);
    EXPECT_EQ(scopeOf(kUserOfScopeZero), 0);
    EXPECT_EQ(scopeOf(kUserWithoutRights), -1);
  }
}

}  // namespace
}  // namespace workbench::testing
