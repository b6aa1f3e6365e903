// The chart of accounts as a hierarchy.
#include "workbench/sample/standard_accounts.h"

#include <gtest/gtest.h>

#include <set>

namespace workbench::testing {
namespace {

const AccountRow& AccountOf(const std::vector<AccountRow>& accounts, std::string_view number) {
  const int id = FindAccountId(accounts, number);
  EXPECT_NE(id, 0) << number;
  return accounts.at(static_cast<std::size_t>(id - 1));
}

TEST(StandardAccounts, HoldTheWholeChartInNumberOrder) {
  const auto accounts = MakeAccounts();
  int firstLevel = 0;
  for (std::size_t i = 0; i < accounts.size(); ++i) {
    EXPECT_EQ(accounts[i].id, static_cast<int>(i) + 1);
    if (i > 0) {
      EXPECT_LT(accounts[i - 1].number, accounts[i].number);
    }
    if (accounts[i].level == 1) {
      ++firstLevel;
      EXPECT_EQ(accounts[i].number.size(), 4U) << accounts[i].number;
    }
  }
  EXPECT_EQ(firstLevel, 156);
  EXPECT_EQ(accounts.front().name, "库存现金");
  EXPECT_EQ(accounts.back().name, "以前年度损益调整");
}

TEST(StandardAccounts, NamesAreDistinctOnEachLevelOfAParent) {
  std::set<std::pair<int, std::string>> seen;
  for (const AccountRow& account : MakeAccounts()) {
    EXPECT_TRUE(seen.emplace(account.parentId, account.name).second) << account.number;
  }
}

TEST(StandardAccounts, SubAccountsKnowTheirParents) {
  const auto accounts = MakeAccounts();
  const AccountRow& top = AccountOf(accounts, "1471");
  const AccountRow& middle = AccountOf(accounts, "1471.01");
  const AccountRow& leaf = AccountOf(accounts, "1471.01.02");
  EXPECT_EQ(top.parentId, 0);
  EXPECT_EQ(middle.parentId, top.id);
  EXPECT_EQ(leaf.parentId, middle.id);
  EXPECT_EQ(leaf.level, 3);
  EXPECT_FALSE(top.isDetail);
  EXPECT_FALSE(middle.isDetail);
  EXPECT_TRUE(leaf.isDetail);
  EXPECT_EQ(AccountOf(accounts, "1231.10").parentId, AccountOf(accounts, "1231").id);
}

TEST(StandardAccounts, EveryNumberWithADotHasAParent) {
  for (const AccountRow& account : MakeAccounts()) {
    EXPECT_EQ(account.parentId != 0, account.number.find('.') != std::string::npos)
        << account.number;
  }
}

TEST(StandardAccounts, ReservesStandInCreditAndLossesInDebit) {
  const auto accounts = MakeAccounts();
  EXPECT_FALSE(AccountOf(accounts, "1471.01").isDebit);
  EXPECT_TRUE(AccountOf(accounts, "6701.01").isDebit);
}

TEST(StandardAccounts, AnUnknownNumberHasNoId) {
  const auto accounts = MakeAccounts();
  EXPECT_EQ(FindAccountId(accounts, "1471.2"), 0);
  EXPECT_EQ(FindAccountId(accounts, ""), 0);
}

}  // namespace
}  // namespace workbench::testing
