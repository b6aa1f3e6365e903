// Companies of chosen sizes: every item in one class, sizes as requested.
#include "workbench/sample/large_company.h"

#include <gtest/gtest.h>

#include "tests/sample/content_digest.h"
#include "tests/sample/test_company.h"

namespace workbench::testing {
namespace {

struct Size {
  int items;
  int classes;
  int smallest;  // members of the smallest class
  int largest;
};

class LargeCompanyOfSize : public ::testing::TestWithParam<Size> {};

INSTANTIATE_TEST_SUITE_P(Sizes, LargeCompanyOfSize,
                         ::testing::Values(Size{1, 1, 1, 1}, Size{5, 2, 2, 3}, Size{7, 7, 1, 1},
                                           Size{2001, 20, 100, 101}, Size{5000, 1, 5000, 5000}));

TEST_P(LargeCompanyOfSize, PutsEveryItemInOneClassOfEvenSize) {
  const Size size = GetParam();
  const Database company = LargeCompany({1, size.items, size.classes});
  EXPECT_EQ(Count(company, "SELECT count(*) FROM t_ICItem"), size.items);
  EXPECT_EQ(Count(company, "SELECT count(DISTINCT FNumber) FROM t_ICItem"), size.items);
  EXPECT_EQ(Count(company, "SELECT count(*) FROM icPriceDownClass"), size.items);
  EXPECT_EQ(Count(company,
                  "SELECT count(*) FROM t_ICItem WHERE FItemID IN"
                  "(SELECT FItemID FROM icPriceDownClass)"),
            size.items);
  const std::string members =
      "SELECT count(*) AS n FROM icPriceDownClass GROUP BY FItemClassNumber,FItemClassName,"
      "FAPAccID,FARAccID,FPencentPrepare";
  EXPECT_EQ(Count(company, "SELECT count(*) FROM(" + members + ")"), size.classes);
  EXPECT_EQ(Count(company, "SELECT min(n) FROM(" + members + ")"), size.smallest);
  EXPECT_EQ(Count(company, "SELECT max(n) FROM(" + members + ")"), size.largest);
}

TEST(LargeCompany, SamePlanMakesTheSameContent) {
  const LargeCompanyPlan plan{3, 3000, 70};
  EXPECT_EQ(ContentDigest(LargeCompany(plan).get()), ContentDigest(LargeCompany(plan).get()));
  LargeCompanyPlan other = plan;
  other.seed = 4;
  EXPECT_NE(ContentDigest(LargeCompany(plan).get()), ContentDigest(LargeCompany(other).get()));
}

// Computed on x86_64 Linux, like the sample company's.
TEST(LargeCompany, ContentIsTheSameOnEveryPlatform) {
  EXPECT_EQ(ContentDigest(LargeCompany({1, 3000, 70}).get()), 5804531317145998317U);
}

TEST(LargeCompany, HoldsHiddenCategoriesHistoryAndTheSampleCompanysFrame) {
  const Database company = LargeCompany({1, 5000, 50});
  const auto hidden = Count(company, "SELECT count(*) FROM t_ICItem WHERE FErpClsID IN(6,8)");
  EXPECT_GT(hidden, 50);
  EXPECT_LT(hidden, 200);
  EXPECT_EQ(Count(company, "SELECT count(*) FROM ICPriceDownPrepare"), 500);
  EXPECT_EQ(Count(company, "SELECT count(*) FROM t_account"), 185);
  EXPECT_EQ(Count(company, "SELECT count(*) FROM t_user"), 6);
  EXPECT_EQ(Count(company, "SELECT count(*) FROM t_UserRight"), 15);
}

TEST(LargeCompany, CodesStayHierarchicalBeyondOneGroup) {
  const Database company = LargeCompany({1, 21001, 3});
  EXPECT_EQ(Rows(company, "SELECT FNumber FROM t_ICItem WHERE FItemID IN(1,1000,1001,20001,21001)"),
            (std::vector<std::string>{"01.01.0001", "01.01.1000", "01.02.0001", "02.01.0001",
                                      "02.02.0001"}));
}

}  // namespace
}  // namespace workbench::testing
