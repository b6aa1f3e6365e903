// Rows and searches of the pickers on a real company.
// Expected values come from other statements, or from rows that the test adds.
#include "workbench/pickers/candidate_list.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/pickers/picker_company.h"
#include "workbench/company/database_error.h"

namespace workbench::testing {
namespace {

CompanyFilePlan Large(int items) {
  CompanyFilePlan plan;
  plan.large = LargeCompanyPlan{1, items, 20};
  return plan;
}

std::vector<std::int32_t> IdsOf(Connection& company, std::u16string_view statement) {
  const ResultSet result = company.Execute(statement);
  std::vector<std::int32_t> ids;
  for (std::size_t row = 0; row < result.RowCount(); ++row) {
    ids.push_back(static_cast<std::int32_t>(result.At(row, 0).Integer()));
  }
  return ids;
}

std::vector<std::int32_t> Found(const CandidateList& list) {
  return {list.Shown().begin(), list.Shown().end()};
}

class CandidateListOnItems : public ::testing::Test {
 protected:
  CandidateListOnItems() {
    company_.AddItem(900001, u"99.02", u"耐磨衬板100%", u"Q_5");
    company_.AddItem(900002, u"99.01", u"耐磨衬板", u"M8x40");
    company_.AddItem(900003, u"99.03", u"O''Ring 密封圈", u"");
  }

  PickerCompany company_;
};

TEST_F(CandidateListOnItems, ListsEveryItemInTheOrderOfCodes) {
  CandidateList list(company_, ItemTable(), u"");
  EXPECT_EQ(3203U, list.Total());
  EXPECT_EQ(IdsOf(company_, u"SELECT FItemID FROM t_ICItem ORDER BY FNumber,FItemID"), Found(list));
  EXPECT_FALSE(list.IsSearching());
}

TEST_F(CandidateListOnItems, DatabaseAppliesTheConditionOnAliasX2) {
  CandidateList list(company_, ItemTable(),
                     u"x2.FNumber like '99.%' and x2.FItemid not in(900002,5)");
  EXPECT_EQ("99.02 99.03", Codes(list));
}

TEST_F(CandidateListOnItems, SearchKeepsTheCondition) {
  CandidateList list(company_, ItemTable(), u"x2.FItemid not in(900002)");
  SearchAll(list, u"耐磨");
  EXPECT_EQ("99.02", Codes(list));
}

TEST_F(CandidateListOnItems, RefusedConditionReturnsTheDatabasesError) {
  try {
    CandidateList list(company_, ItemTable(), u"x2.FNoSuch=1");
    ADD_FAILURE() << "accepted";
  } catch (const DatabaseError& error) {
    const std::string message = Utf8FromUtf16(error.Message());
    EXPECT_NE(std::string::npos, message.find("列名 'FNoSuch' 无效")) << message;
  }
  EXPECT_THROW(CandidateList(company_, ItemTable(), u"1=1) DELETE FROM t_ICItem WHERE (1=1"),
               DatabaseError);
  EXPECT_EQ(3203U, CandidateList(company_, ItemTable(), u"").Total());
}

TEST_F(CandidateListOnItems, FindsByTheBeginningOfTheCode) {
  CandidateList list(company_, ItemTable(), u"");
  SearchAll(list, u"99.0");
  EXPECT_EQ("99.01 99.02 99.03", Codes(list));
  SearchAll(list, u"9.01");
  EXPECT_EQ(std::string::npos, Codes(list).find("99.01"));
}

TEST_F(CandidateListOnItems, FindsInsideNameAndSpecificationInEitherCase) {
  CandidateList list(company_, ItemTable(), u"x2.FItemID>900000");
  SearchAll(list, u"衬板");
  EXPECT_EQ("99.01 99.02", Codes(list));
  SearchAll(list, u"m8X");
  EXPECT_EQ("99.01", Codes(list));
  SearchAll(list, u"o'ring");
  EXPECT_EQ("99.03", Codes(list));
}

TEST_F(CandidateListOnItems, EveryWordMustBeFound) {
  CandidateList list(company_, ItemTable(), u"");
  SearchAll(list, u"M8 耐磨");
  EXPECT_EQ("99.01", Codes(list));
  SearchAll(list, u"M8 不存在");
  EXPECT_EQ(0U, list.Count());
}

TEST_F(CandidateListOnItems, WildcardsAreLiteral) {
  CandidateList list(company_, ItemTable(), u"x2.FItemID>900000");
  SearchAll(list, u"0%");
  EXPECT_EQ("99.02", Codes(list));
  SearchAll(list, u"q_");
  EXPECT_EQ("99.02", Codes(list));
  SearchAll(list, u"[0-9]");
  EXPECT_EQ("", Codes(list));
}

TEST_F(CandidateListOnItems, EmptySearchShowsEverythingAgain) {
  CandidateList list(company_, ItemTable(), u"x2.FItemID>900000");
  SearchAll(list, u"密封");
  ASSERT_EQ(1U, list.Count());
  list.Search(u"  ");
  EXPECT_FALSE(list.IsSearching());
  EXPECT_EQ("99.01 99.02 99.03", Codes(list));
}

TEST_F(CandidateListOnItems, RowThatIsGoneIsEmpty) {
  CandidateList list(company_, ItemTable(), u"x2.FItemID>900000");
  company_.Execute(u"DELETE FROM t_ICItem WHERE FItemID=900002");
  EXPECT_EQ(CandidateRow({u"", u"", u""}), list.Row(0));
  EXPECT_EQ(CandidateRow({u"99.02", u"耐磨衬板100%", u"Q_5"}), list.Row(1));
}

TEST_F(CandidateListOnItems, TextsAreReadPageByPageAndOnce) {
  CandidateList list(company_, ItemTable(), u"");
  company_.statements.clear();
  for (std::size_t row = 100; row < 128; ++row) list.Row(row);
  for (std::size_t row = 100; row < 128; ++row) list.Row(row);
  EXPECT_EQ(1U, company_.statements.size());
}

TEST_F(CandidateListOnItems, FailedStepCanBeRepeated) {
  CandidateList list(company_, ItemTable(), u"");
  list.Search(u"耐磨");
  list.Advance();
  company_.fails = true;
  EXPECT_THROW(list.Advance(), DatabaseError);
  company_.fails = false;
  while (list.IsSearching()) list.Advance();
  EXPECT_EQ("99.01 99.02", Codes(list));
}

TEST(CandidateListOnAccounts, FindsByCodeAndName) {
  PickerCompany company;
  CandidateList list(company, AccountTable(), u"");
  SearchAll(list, u"跌价准备");
  ASSERT_GE(list.Count(), 1U);
  for (std::size_t row = 0; row < list.Count(); ++row) {
    EXPECT_NE(std::u16string::npos, list.Row(row)[1].find(u"跌价准备"));
  }
  const std::string byName = Codes(list);
  SearchAll(list, list.Row(0)[0]);
  EXPECT_EQ(byName.substr(0, byName.find(' ')), Codes(list).substr(0, Codes(list).find(' ')));
}

TEST(CandidateListOnManyItems, SearchGrowsInTheOrderOfCodesUntilItIsComplete) {
  PickerCompany company(Large(20000));
  CandidateList list(company, ItemTable(), u"");
  list.Search(u"钢");
  std::vector<std::int32_t> before;
  int steps = 0;
  while (list.IsSearching()) {
    list.Advance();
    const std::vector<std::int32_t> now = Found(list);
    ASSERT_TRUE(std::equal(before.begin(), before.end(), now.begin()));
    before = now;
    ++steps;
  }
  EXPECT_GT(steps, 3);
  EXPECT_EQ(
      IdsOf(company,
            u"SELECT FItemID FROM t_ICItem WHERE FNumber LIKE '钢%' OR FShortNumber LIKE '钢%' "
            u"OR FName LIKE '%钢%' OR FModel LIKE '%钢%' ORDER BY FNumber,FItemID"),
      before);
}

TEST(CandidateListOnManyItems, ExtendingTheTextFindsTheSameAsANewSearch) {
  PickerCompany company(Large(20000));
  CandidateList typed(company, ItemTable(), u"");
  // The next key interrupts the search at different points.
  int stepsPerKey = 0;
  std::u16string text;
  for (const char16_t unit : std::u16string_view(u"钢 Q2 01.0")) {
    text += unit;
    typed.Search(text);
    for (int step = 0; step < stepsPerKey && typed.IsSearching(); ++step) typed.Advance();
    stepsPerKey = (stepsPerKey + 1) % 3;
  }
  while (typed.IsSearching()) typed.Advance();
  CandidateList fresh(company, ItemTable(), u"");
  SearchAll(fresh, text);
  ASSERT_GT(fresh.Count(), 0U);
  EXPECT_EQ(Found(fresh), Found(typed));
  SearchAll(typed, u"铜");
  SearchAll(fresh, u"铜");
  EXPECT_EQ(Found(fresh), Found(typed));
}

TEST(CandidateListOnManyItems, ExtendingTheTextSearchesOnlyTheRowsFound) {
  PickerCompany company(Large(20000));
  CandidateList list(company, ItemTable(), u"");
  SearchAll(list, u"钢");
  const std::size_t found = list.Count();
  company.statements.clear();
  SearchAll(list, u"钢 Q2");
  EXPECT_LE(company.statements.size(), found / 4096 + 2);
}

}  // namespace
}  // namespace workbench::testing
