#include "workbench/company/like_pattern.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/company/company_file.h"

namespace workbench {
namespace {

struct Match {
  const char* text;
  const char* pattern;
  bool expected;
};

constexpr Match kMatches[] = {
    {"", "", true},
    {"a", "", false},
    {"", "%", true},
    {"", "_", false},
    {"PriceDownPrepare", "pricedownprepare", true},
    {"abc", "ab", false},
    {"abc", "a%", true},
    {"abc", "%c", true},
    {"abc", "%b%", true},
    {"abc", "%d%", false},
    {"abc", "a_c", true},
    {"abc", "a_", false},
    {"aXbXc", "a%b%c", true},
    {"aab", "a%ab", true},
    {"mississippi", "%iss%ippi", true},
    {"mississippi", "%iss%ippo", false},
    {"a", "%%%", true},
    // Blanks at the end of the text do not matter, those of the pattern do.
    {"abc  ", "abc", true},
    {"abc  ", "%c", true},
    {"abc", "abc ", false},
    {"abc ", "abc_", true},
    {" abc", "abc", false},
    // Classes.
    {"b", "[abc]", true},
    {"B", "[a-c]", true},
    {"d", "[a-c]", false},
    {"d", "[^a-c]", true},
    {"b", "[^a-c]", false},
    {"-", "[a-]", true},
    {"100%", "%[%]", true},
    {"1000", "%[%]", false},
    {"a_b", "a[_]b", true},
    {"axb", "a[_]b", false},
    {"a[b", "a[[]b", true},
    {"a", "[a", false},
    {"[a", "[a", false},
    {"a", "[]", false},
    {"丁", "[一-丙]", true},
    {"", "[a]", false},
    // Beyond ASCII a character counts as one.
    {"钢板", "__", true},
    {"钢板", "_", false},
    {"钢板10", "%板1_", true},
    {"É", "é", true},
    {"ＡＢ", "ａ_", true}};

TEST(LikePattern, MatchesAsTheServer) {
  for (const Match& match : kMatches) {
    EXPECT_EQ(LikePattern(match.pattern).Matches(match.text), match.expected)
        << "'" << match.text << "' like '" << match.pattern << "'";
  }
}

TEST(Like, FiltersRowsOfAStatement) {
  testing::OpenCompany company;
  for (const char* row : {"1,'Émile'", "2,'钢板100%'", "3,'钢板1000'", "4,'émile  '"}) {
    company.Execute(std::string("insert into t_user(FUserID,FName) values(") + row + ")");
  }
  EXPECT_EQ(company.Rows("select FUserID from t_user where FName like 'éMILE'"), "1\n4\n");
  EXPECT_EQ(company.Rows("select FUserID from t_user where FName like '%[%]'"), "2\n");
  EXPECT_EQ(company.Rows("select FUserID from t_user where FName not like '%板%'"), "1\n4\n");
  EXPECT_EQ(company.Rows("select FUserID from t_user where FUserID like '[23]'"), "2\n3\n");
  EXPECT_EQ(company.Rows("select FUserID from t_user where FDescription like '%'"), "");
  EXPECT_EQ(company.Rows("select FUserID from t_user where FName like FName and FUserID=3"), "3\n");
}

}  // namespace
}  // namespace workbench
