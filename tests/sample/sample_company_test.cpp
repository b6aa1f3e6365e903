// What the sample company guarantees for every seed: size, shape and repeatability.
#include "workbench/sample/sample_company.h"

#include <gtest/gtest.h>

#include "tests/sample/content_digest.h"
#include "tests/sample/test_company.h"
#include "workbench/company/schema.h"

namespace workbench::testing {
namespace {

TEST(SampleCompany, SameSeedMakesTheSameContent) {
  EXPECT_EQ(ContentDigest(SampleCompany(7).get()), ContentDigest(SampleCompany(7).get()));
}

TEST(SampleCompany, AnotherSeedMakesOtherContent) {
  EXPECT_NE(ContentDigest(SampleCompany(7).get()), ContentDigest(SampleCompany(8).get()));
}

// The digest was computed on x86_64 Linux; this test also runs on Windows builds. It changes
// whenever the generator is changed on purpose.
TEST(SampleCompany, ContentIsTheSameOnEveryPlatform) {
  EXPECT_EQ(ContentDigest(SampleCompany(1).get()), 2130999072787170003U);
}

TEST(SampleCompany, DigestSeesASingleChangedValue) {
  Database company = SampleCompany(1);
  const auto before = ContentDigest(company.get());
  company.Execute("UPDATE t_ICItem SET FPlanPrice=FPlanPrice+0.01 WHERE FItemID=1600");
  EXPECT_NE(ContentDigest(company.get()), before);
}

TEST(SampleCompany, RefusesADatabaseThatIsNotEmptyAndLeavesItAlone) {
  Database company = SampleCompany(1);
  const auto before = ContentDigest(company.get());
  SqliteConnection connection(company.get());
  EXPECT_THROW(FillSampleCompany(connection, 2), SchemaError);
  EXPECT_EQ(ContentDigest(company.get()), before);
}

class SampleCompanyOfSeed : public ::testing::TestWithParam<std::uint64_t> {
 protected:
  const Database company_ = SampleCompany(GetParam());
};

INSTANTIATE_TEST_SUITE_P(Seeds, SampleCompanyOfSeed, ::testing::Values(0U, 1U, 2U, UINT64_MAX));

TEST_P(SampleCompanyOfSeed, HasItemsOfEveryCategory) {
  EXPECT_EQ(Count(company_, "SELECT count(*) FROM t_ICItem"), 3200);
  EXPECT_EQ(Rows(company_, "SELECT DISTINCT FErpClsID FROM t_ICItem ORDER BY 1"),
            (std::vector<std::string>{"1", "2", "3", "4", "5", "6", "7", "8", "9"}));
}

TEST_P(SampleCompanyOfSeed, ItemCodesAreHierarchicalAndUnique) {
  EXPECT_EQ(Count(company_,
                  "SELECT count(*) FROM t_ICItem "
                  "WHERE FNumber GLOB '[0-9][0-9].[0-9][0-9].[0-9][0-9][0-9][0-9]'"),
            3200);
  EXPECT_EQ(Count(company_, "SELECT count(DISTINCT FNumber) FROM t_ICItem"), 3200);
}

TEST_P(SampleCompanyOfSeed, TemplatesOfNamesAndModelsAreFilledIn) {
  EXPECT_EQ(Rows(company_,
                 "SELECT FNumber,FName,FModel FROM t_ICItem WHERE FName='' OR FName IS NULL OR "
                 "FName GLOB '*[[{|}]*' OR FModel GLOB '*[[{|}]*' OR FName GLOB '*]*'"),
            std::vector<std::string>());
  // Chinese names: none is pure ASCII.
  EXPECT_EQ(Count(company_,
                  "SELECT count(*) FROM t_ICItem WHERE length(CAST(FName AS BLOB))"
                  "=length(FName)"),
            0);
}

TEST_P(SampleCompanyOfSeed, TextsFitTheProductsRecordLayout) {
  EXPECT_EQ(Count(company_,
                  "SELECT count(*) FROM t_ICItem WHERE length(FNumber)>80 OR "
                  "length(FShortNumber)>80 OR length(FName)>80 OR length(FModel)>255"),
            0);
  EXPECT_EQ(Count(company_,
                  "SELECT count(*) FROM icPriceDownClass WHERE length(FItemClassNumber)>40 OR "
                  "length(FItemClassName)>40 OR FItemClassNumber='' OR FItemClassName=''"),
            0);
}

TEST_P(SampleCompanyOfSeed, PricesAreWholeHundredthsAboveZero) {
  EXPECT_GT(Count(company_, "SELECT count(*) FROM t_ICItem WHERE FPlanPrice IS NOT NULL"), 2800);
  EXPECT_EQ(Count(company_,
                  "SELECT count(*) FROM t_ICItem WHERE FPlanPrice<=0 OR FSalePrice<=0 OR "
                  "CAST(printf('%.2f',FPlanPrice) AS REAL)<>FPlanPrice"),
            0);
}

TEST_P(SampleCompanyOfSeed, HasTwentyFiveClassesWithMembers) {
  EXPECT_EQ(Count(company_,
                  "SELECT count(DISTINCT FItemClassNumber COLLATE BINARY) FROM icPriceDownClass"),
            25);
  EXPECT_EQ(Count(company_,
                  "SELECT count(*) FROM icPriceDownClass WHERE FItemID NOT IN"
                  "(SELECT FItemID FROM t_ICItem)"),
            0);
}

TEST_P(SampleCompanyOfSeed, ClassHeadersAgreeButForTheClassWithTwoNames) {
  EXPECT_EQ(Rows(company_,
                 "SELECT FItemClassNumber FROM icPriceDownClass "
                 "GROUP BY FItemClassNumber COLLATE BINARY "
                 "HAVING count(DISTINCT FItemClassName)>1"),
            (std::vector<std::string>{"16"}));
  EXPECT_EQ(Count(company_,
                  "SELECT count(*) FROM(SELECT 1 FROM icPriceDownClass "
                  "GROUP BY FItemClassNumber COLLATE BINARY HAVING count(DISTINCT FAPAccID)>1 OR "
                  "count(DISTINCT FARAccID)>1 OR count(DISTINCT FAPNumber COLLATE BINARY)>1 OR "
                  "count(DISTINCT FARNumber COLLATE BINARY)>1 OR "
                  "count(DISTINCT FPencentPrepare)>1)"),
            0);
}

TEST_P(SampleCompanyOfSeed, ItemsHaveOneClassButForTheSharedTwo) {
  EXPECT_EQ(Count(company_,
                  "SELECT count(*) FROM(SELECT FItemID FROM icPriceDownClass GROUP BY FItemID "
                  "HAVING count(*)>1)"),
            2);
  EXPECT_EQ(Rows(company_,
                 "SELECT DISTINCT FItemClassNumber FROM icPriceDownClass WHERE FItemID IN"
                 "(SELECT FItemID FROM icPriceDownClass GROUP BY FItemID HAVING count(*)>1)"
                 "ORDER BY 1"),
            (std::vector<std::string>{"03", "09", "18"}));
}

TEST_P(SampleCompanyOfSeed, OnlyTwoClassesHaveMembersThatAreNeverListed) {
  EXPECT_EQ(Rows(company_,
                 "SELECT DISTINCT FItemClassNumber FROM icPriceDownClass c JOIN t_ICItem i "
                 "ON i.FItemID=c.FItemID WHERE i.FErpClsID IN(6,8) ORDER BY 1"),
            (std::vector<std::string>{"20", "21"}));
}

TEST_P(SampleCompanyOfSeed, SomeItemsHaveNoClass) {
  const auto classless = Count(company_,
                               "SELECT count(*) FROM t_ICItem WHERE FItemID NOT IN"
                               "(SELECT FItemID FROM icPriceDownClass)");
  EXPECT_GT(classless, 400);
  EXPECT_LT(classless, 1200);
}

TEST_P(SampleCompanyOfSeed, ClassAccountsAreThoseOfTheChart) {
  EXPECT_EQ(Count(company_,
                  "SELECT count(*) FROM icPriceDownClass c WHERE "
                  "FAPNumber<>ifnull((SELECT FNumber FROM t_account WHERE FAccountID=c.FAPAccID),"
                  "'') OR "
                  "FARNumber<>ifnull((SELECT FNumber FROM t_account WHERE FAccountID=c.FARAccID),"
                  "'')"),
            0);
}

TEST_P(SampleCompanyOfSeed, PercentagesKeepFourDecimals) {
  EXPECT_EQ(Rows(company_,
                 "SELECT FItemClassNumber,FPencentPrepare FROM icPriceDownClass "
                 "WHERE FItemClassNumber IN('09','10','11','12','15','22') "
                 "GROUP BY FItemClassNumber ORDER BY 1"),
            (std::vector<std::string>{"09|12.5", "10|7.0625", "11|9.1234", "12|0.0", "15|33.3333",
                                      "22|100.0"}));
}

}  // namespace
}  // namespace workbench::testing
