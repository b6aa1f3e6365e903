#include "workbench/company/collation.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/company/company_file.h"
#include "workbench/company/case_folding.h"

namespace workbench {
namespace {

int Sign(int value) { return value < 0 ? -1 : value > 0 ? 1 : 0; }

struct Comparison {
  const char* name;
  std::string left;
  std::string right;
  int expected;
};

void PrintTo(const Comparison& comparison, std::ostream* stream) { *stream << comparison.name; }

class ServerComparison : public ::testing::TestWithParam<Comparison> {};

TEST_P(ServerComparison, OrdersBothWays) {
  const Comparison& comparison = GetParam();
  EXPECT_EQ(Sign(CompareServerText(comparison.left, comparison.right)), comparison.expected);
  EXPECT_EQ(Sign(CompareServerText(comparison.right, comparison.left)), -comparison.expected);
}

INSTANTIATE_TEST_SUITE_P(
    Collation, ServerComparison,
    ::testing::Values(Comparison{"Empty", "", "", 0},                                             //
                      Comparison{"EmptyAndBlanks", "", "   ", 0},                                 //
                      Comparison{"SameText", "01.02", "01.02", 0},                                //
                      Comparison{"CaseAndTrailingBlank", "a", "A ", 0},                           //
                      Comparison{"CaseInLongText", "abcdefghijklmnop", "ABCDEFGHIJKLMNOP  ", 0},  //
                      Comparison{"LeadingBlankCounts", " a", "a", -1},                            //
                      Comparison{"InnerBlankCounts", "a b", "ab", -1},                            //
                      Comparison{"PrefixFirst", "01", "01.01", -1},                               //
                      Comparison{"TabSortsBeforePadding", "a\t", "a", -1},                        //
                      Comparison{"DigitsBeforeLetters", "9", "A", -1},                            //
                      Comparison{"UnderscoreBeforeEitherCase", "_", "A", -1},                     //
                      Comparison{"CaseDoesNotOrder", "B", "a", 1},                                //
                      Comparison{"DifferenceBehindEightBytes", "12345678a", "12345678b", -1},     //
                      Comparison{"Chinese", "钢板", "钢板", 0},                                   //
                      Comparison{"ChineseTrailingBlank", "钢板", "钢板 ", 0},                     //
                      Comparison{"ChineseByCodePoint", "一", "丁", -1},                           //
                      Comparison{"ChineseSharedLeadByte", "原料", "原木", -1},                    //
                      Comparison{"AsciiBeforeChinese", "z", "一", -1},                            //
                      Comparison{"BeyondBasicPlaneLast", "\xEF\xBF\xBD", "\xF0\xA0\x80\x80", -1},
                      Comparison{"LatinCase", "É", "é", 0},                             //
                      Comparison{"GreekCase", "Ω", "ω", 0},                             //
                      Comparison{"CyrillicCase", "Ж", "ж", 0},                          //
                      Comparison{"FullWidthCase", "ＡＢ", "ａｂ", 0},                   //
                      Comparison{"FullWidthIsNotAscii", "Ａ", "A", 1},                  //
                      Comparison{"KelvinSignOfAnotherLength", "\xE2\x84\xAA", "k", 0},  //
                      Comparison{"CaseBehindChinese", "类A", "类a ", 0},                //
                      Comparison{"BrokenCharacter", "a\xE4\xB8", "a", 1}),
    [](const auto& tested) { return tested.param.name; });

TEST(Collation, IsATotalOrder) {
  const std::vector<std::string> texts = {"",
                                          " ",
                                          "a",
                                          "A",
                                          "a ",
                                          "a\t",
                                          "ab",
                                          "aB",
                                          "a b",
                                          "B",
                                          "b\x01",
                                          "é",
                                          "É ",
                                          "ea",
                                          "一",
                                          "一 ",
                                          "一a",
                                          "一A",
                                          "丁",
                                          "k",
                                          "\xE2\x84\xAA",
                                          "\xE4\xB8",
                                          "\xE4",
                                          "ａ",
                                          "Ａ",
                                          "\xF0\xA0\x80\x80",
                                          "_",
                                          "0",
                                          "00",
                                          "12345678",
                                          "12345678A",
                                          "12345678a "};
  for (const std::string& a : texts) {
    for (const std::string& b : texts) {
      EXPECT_EQ(Sign(CompareServerText(a, b)), -Sign(CompareServerText(b, a))) << a << "/" << b;
      for (const std::string& c : texts) {
        if (CompareServerText(a, b) <= 0 && CompareServerText(b, c) <= 0) {
          EXPECT_LE(CompareServerText(a, c), 0) << a << "/" << b << "/" << c;
        }
      }
    }
  }
}

TEST(CaseFolding, LeavesCharactersWithoutCaseAndIsStable) {
  EXPECT_EQ(FoldCase(U'一'), U'一');
  EXPECT_EQ(FoldCase(U'1'), U'1');
  EXPECT_EQ(FoldCase(U'ß'), U'ß');
  EXPECT_EQ(FoldCase(U'Ā'), U'ā');
  EXPECT_EQ(FoldCase(U'ā'), U'ā');
  for (char32_t point = 0; point < 0x20000; ++point) {
    ASSERT_EQ(FoldCase(FoldCase(point)), FoldCase(point)) << static_cast<unsigned>(point);
  }
}

// The sum of Python 3.11, whose Unicode is 14.0.0, over the characters' casefold().
TEST(CaseFolding, IsThatOfUnicode14) {
  std::uint32_t sum = 0;
  for (char32_t point = 0; point < 0x110000; ++point) sum = sum * 31 + FoldCase(point);
  EXPECT_EQ(sum, 3946023185U);
}

class CollatedCompany : public ::testing::Test {
 protected:
  testing::OpenCompany company_;
};

TEST_F(CollatedCompany, ComparesColumnsWithoutCaseAndTrailingBlanks) {
  company_.Execute(
      "insert into t_account(FAccountID,FNumber,FLevel,FParentID,FDetail,FDC) "
      "values(1,'Ab ',1,0,1,1)");
  EXPECT_EQ(company_.Rows("select FAccountID from t_account where FNumber='aB'"), "1\n");
  EXPECT_EQ(company_.Rows("select FAccountID from t_account where FNumber in('x','AB')"), "1\n");
  EXPECT_EQ(company_.Rows("select FAccountID from t_account where FNumber<>'ab  '"), "");
}

TEST_F(CollatedCompany, ComparesExpressionsAsColumns) {
  company_.Execute(
      "insert into t_account(FAccountID,FNumber,FLevel,FParentID,FDetail,FDC) "
      "values(1,'Ab ',1,0,1,1)");
  EXPECT_EQ(company_.Rows("select FAccountID from t_account where 'a'='A '"), "1\n");
  EXPECT_EQ(company_.Rows("select FAccountID from t_account where isnull(FName,'x')='X '"), "1\n");
  EXPECT_EQ(company_.Rows("select FAccountID from t_account where 'X '=isnull(FName,'x')"), "1\n");
  EXPECT_EQ(company_.Rows("select FAccountID from t_account where isnull(FName,'x') in('y','X')"),
            "1\n");
}

TEST_F(CollatedCompany, SortsTheSameWithAndWithoutIndex) {
  const std::vector<std::string> numbers = {"b", "A", "a1", "B1", "_", "01", "1", "乙", "甲", "C "};
  int id = 0;
  for (const std::string& number : numbers) {
    company_.Execute(
        "insert into t_account(FAccountID,FNumber,FName,FLevel,FParentID,FDetail,FDC)"
        " values(" +
        std::to_string(++id) + ",'" + number + "','" + number + "',1,0,1,1)");
  }
  const std::string byIndex = company_.Rows("select FNumber from t_account order by FNumber");
  EXPECT_EQ(byIndex, "'01'\n'1'\n'_'\n'A'\n'a1'\n'b'\n'B1'\n'C '\n'乙'\n'甲'\n");
  EXPECT_EQ(company_.Rows("select FName as FNumber from t_account order by FName"), byIndex);
  EXPECT_EQ(company_.Rows("select isnull(FName,'') as FNumber from t_account order by FNumber"),
            byIndex);
}

TEST_F(CollatedCompany, CountsEqualTextsOnceInDistinctAndUnion) {
  for (const char* row : {"1,'a'", "2,'A '", "3,'b'"}) {
    company_.Execute(std::string("insert into t_user(FUserID,FName) values(") + row + ")");
  }
  EXPECT_EQ(company_.Execute("select distinct FName from t_user").RowCount(), 2U);
  EXPECT_EQ(company_.Execute("select distinct isnull(FName,'') from t_user").RowCount(), 2U);
  EXPECT_EQ(company_.Execute("select FName from t_user union select 'B' from t_user").RowCount(),
            2U);
}

}  // namespace
}  // namespace workbench
