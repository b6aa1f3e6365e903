// Accounts from CSV: hierarchy, directions and the message for each bad line.
#include <gtest/gtest.h>

#include "tests/sample/test_company.h"
#include "workbench/sample/csv_import.h"

namespace workbench::testing {
namespace {

using Texts = std::vector<std::string>;

class ImportingAccounts : public ::testing::Test {
 protected:
  ImportResult Import(const std::string& text) {
    return testing::Import(company_, std::nullopt, CsvFile{"科目.csv", text});
  }

  Texts Problems(const std::string& text) {
    Texts problems;
    for (const ImportProblem& problem : Import(text).problems) problems.push_back(ToText(problem));
    return problems;
  }

  // number|name|level|number of the parent|detail|direction of the accounts added.
  Texts Added() {
    return Rows(company_,
                "SELECT a.FNumber,a.FName,a.FLevel,ifnull(p.FNumber,'-'),a.FDetail,a.FDC "
                "FROM t_account a LEFT JOIN t_account p ON p.FAccountID=a.FParentID "
                "WHERE a.FAccountID>185 ORDER BY a.FAccountID");
  }

  std::int64_t IsDetail(const std::string& number) {
    return Count(company_, "SELECT FDetail FROM t_account WHERE FNumber='" + number + "'");
  }

  Database company_ = TinyCompany();
};

TEST_F(ImportingAccounts, AddsThemUnderTheirParents) {
  ASSERT_EQ(IsDetail("1001"), 1);
  const ImportResult result =
      Import("科目代码,科目名称,余额方向\n1001.01,人民币,\n1471.50,自定义准备,\n7001,其他,贷\n");
  EXPECT_TRUE(result.problems.empty());
  EXPECT_EQ(result.accounts, 3);
  EXPECT_EQ(Added(), (Texts{"1001.01|人民币|2|1001|1|1", "1471.50|自定义准备|2|1471|1|-1",
                            "7001|其他|1|-|1|-1"}));
  EXPECT_EQ(IsDetail("1001"), 0) << "a parent is no detail account";
}

TEST_F(ImportingAccounts, AcceptsAParentListedAfterItsSubAccounts) {
  EXPECT_EQ(Import("code,name,direction\n7001.1.1,丙,\n7001.1,乙,\n7001,甲,贷\n").accounts, 3);
  EXPECT_EQ(Added(),
            (Texts{"7001.1.1|丙|3|7001.1|1|-1", "7001.1|乙|2|7001|0|-1", "7001|甲|1|-|0|-1"}));
}

TEST_F(ImportingAccounts, ALineMayDifferFromItsParentsDirection) {
  EXPECT_EQ(Import("code,name,direction\n1471.50,抵减,借\n").accounts, 1);
  EXPECT_EQ(Added(), (Texts{"1471.50|抵减|2|1471|1|1"}));
}

TEST_F(ImportingAccounts, KeepsNumbersAsTexts) {
  EXPECT_EQ(Import("code,name\n7001,甲\n7001.1,乙\n7001.10,丙\n").accounts, 3);
  EXPECT_EQ(Count(company_, "SELECT count(*) FROM t_account WHERE FNumber IN('7001.1','7001.10')"),
            2);
}

struct BadAccount {
  const char* name;
  std::string line;
  std::string reason;
};

void PrintTo(const BadAccount& each, std::ostream* out) { *out << each.name; }

class BadAccountLine : public ImportingAccounts,
                       public ::testing::WithParamInterface<BadAccount> {};

TEST_P(BadAccountLine, IsReportedWithFileAndLine) {
  EXPECT_EQ(Problems("科目代码,科目名称,余额方向\n7001,甲,\n" + GetParam().line + "\n"),
            (Texts{"科目.csv:3: " + GetParam().reason}));
  EXPECT_EQ(Added(), Texts());
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BadAccountLine,
    ::testing::Values(
        BadAccount{"MissingCode", ",乙,", "科目代码不能为空"},
        BadAccount{"MissingName", "7002,,", "科目名称不能为空"},
        BadAccount{"CodeTwiceInTheFile", "7001,乙,", "科目代码与第 2 行重复:7001"},
        BadAccount{"CodeOfTheCompany", "1471.01,乙,", "科目代码已在公司中存在:1471.01"},
        BadAccount{"ApostropheInCode", "7'2,乙,", "科目代码不能含有单引号:\"7'2\""},
        BadAccount{"UnknownParent", "8001.01,乙,", "上级科目不存在:8001"},
        BadAccount{"EmptyLastLevel", "7001.,乙,", "科目代码的级次不完整:7001."},
        BadAccount{"EmptyMiddleLevel", "7001..1,乙,", "科目代码的级次不完整:7001..1"},
        BadAccount{"UnknownDirection", "7002,乙,左", "余额方向必须是\"借\"或\"贷\":左"}),
    [](const auto& each) { return each.param.name; });

TEST_F(ImportingAccounts, ProblemsOfBothPassesAreListedInLineOrder) {
  EXPECT_EQ(Problems("code,name\n8001.1,甲\n,乙\n8002.1,丙\n"),
            (Texts{"科目.csv:2: 上级科目不存在:8001", "科目.csv:3: 科目代码不能为空",
                   "科目.csv:4: 上级科目不存在:8002"}));
}

}  // namespace
}  // namespace workbench::testing
