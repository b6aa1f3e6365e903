// Imports are all or nothing: after any error every table is unchanged.
#include <gtest/gtest.h>

#include "tests/sample/content_digest.h"
#include "tests/sample/test_company.h"
#include "workbench/company/schema.h"
#include "workbench/sample/csv_import.h"

namespace workbench::testing {
namespace {

class ImportingAtomically : public ::testing::Test {
 protected:
  std::uint64_t Digest() const { return ContentDigest(company_.get()); }

  static CsvFile Items(const std::string& lines) {
    return {"items.csv", "code,name,category\n" + lines};
  }
  static CsvFile Accounts(const std::string& lines) {
    return {"accounts.csv", "code,name\n" + lines};
  }

  Database company_ = TinyCompany();
};

TEST_F(ImportingAtomically, GoodFilesChangeTheTables) {
  const auto before = Digest();
  const auto result =
      testing::Import(company_, Items("90.1,甲,1\n90.2,乙,2\n"), Accounts("7001,丙\n"));
  EXPECT_EQ(result.items, 2);
  EXPECT_EQ(result.accounts, 1);
  EXPECT_NE(Digest(), before);
}

TEST_F(ImportingAtomically, OneBadLineAmongManyUndoesAll) {
  const auto before = Digest();
  std::string lines;
  for (int i = 0; i < 2000; ++i) lines += "90." + std::to_string(i) + ",物料,1\n";
  const auto result = testing::Import(company_, Items(lines + ",缺代码,1\n"), std::nullopt);
  EXPECT_EQ(result.problems.size(), 1U);
  EXPECT_EQ(result.items, 0);
  EXPECT_EQ(Digest(), before);
}

TEST_F(ImportingAtomically, ABadItemUndoesGoodAccounts) {
  const auto before = Digest();
  const auto result =
      testing::Import(company_, Items("90.1,甲,10\n"), Accounts("1001.01,人民币\n"));
  EXPECT_EQ(result.problems.size(), 1U);
  EXPECT_EQ(result.accounts, 0);
  EXPECT_EQ(Digest(), before);
}

TEST_F(ImportingAtomically, ABadAccountUndoesGoodItems) {
  const auto before = Digest();
  const auto result = testing::Import(company_, Items("90.1,甲,1\n"), Accounts("8001.1,乙\n"));
  EXPECT_EQ(result.problems.size(), 1U);
  EXPECT_EQ(result.items, 0);
  EXPECT_EQ(Digest(), before);
}

TEST_F(ImportingAtomically, ProblemsOfItemsAreListedBeforeThoseOfAccounts) {
  const auto result = testing::Import(company_, Items(",甲,1\n"), Accounts(",乙\n"));
  ASSERT_EQ(result.problems.size(), 2U);
  EXPECT_EQ(result.problems[0].file, "items.csv");
  EXPECT_EQ(result.problems[1].file, "accounts.csv");
}

TEST_F(ImportingAtomically, AFailingDatabaseUndoesAll) {
  company_.Execute(
      "CREATE TRIGGER full BEFORE INSERT ON t_ICItem WHEN NEW.FNumber='90.3' "
      "BEGIN SELECT RAISE(FAIL,'disk trouble'); END");
  const auto before = Digest();
  EXPECT_THROW(
      testing::Import(company_, Items("90.1,甲,1\n90.2,乙,1\n90.3,丙,1\n"), Accounts("7001,丁\n")),
      DatabaseError);
  EXPECT_EQ(Digest(), before);
  EXPECT_NE(sqlite3_get_autocommit(company_.get()), 0) << "no transaction is left open";
}

TEST_F(ImportingAtomically, ARefusedImportCanBeRepeatedWhenCorrected) {
  EXPECT_EQ(testing::Import(company_, Items("90.1,甲,x\n"), std::nullopt).items, 0);
  EXPECT_EQ(testing::Import(company_, Items("90.1,甲,1\n"), std::nullopt).items, 1);
}

TEST(ImportCsv, RefusesADatabaseThatIsNotACompany) {
  const Database other(":memory:", Database::Mode::Create);
  EXPECT_THROW(testing::Import(other, CsvFile{"a.csv", "code,name\n1,a\n"}, std::nullopt),
               SchemaError);
}

}  // namespace
}  // namespace workbench::testing
