// The statements of the pickers, written out whole, and the words of a search.
#include "workbench/pickers/candidate_table.h"

#include <gtest/gtest.h>

#include "workbench/company/utf.h"

namespace workbench {
namespace {

std::string Words(std::u16string_view text) {
  std::string joined;
  for (const std::u16string& word : SearchWords(text)) joined += "<" + Utf8FromUtf16(word) + ">";
  return joined;
}

TEST(SearchWords, AreSeparatedByBlanksIncludingFullWidthOnes) {
  EXPECT_EQ("<螺栓><M8>", Words(u"  螺栓\u3000M8\t "));
  EXPECT_EQ("", Words(u" \u3000"));
}

TEST(SearchWords, EndAtInvisibleCharacters) {
  EXPECT_EQ("<a><b>", Words(std::u16string_view(u"a\0b\n", 4)));
}

TEST(PickerStatements, AccountsHaveNoConditionByDefault) {
  EXPECT_EQ("SELECT x1.FAccountID FROM t_account x1 ORDER BY x1.FNumber,x1.FAccountID",
            Utf8FromUtf16(IdsStatement(AccountTable(), u"")));
}

TEST(PickerStatements, ConditionNamesTheItemTableAsX2) {
  EXPECT_EQ(
      "SELECT x2.FItemID FROM t_ICItem x2 WHERE (x2.FItemid not in(12,15)) "
      "ORDER BY x2.FNumber,x2.FItemID",
      Utf8FromUtf16(IdsStatement(ItemTable(), u"x2.FItemid not in(12,15)")));
}

TEST(PickerStatements, RowsAreReadByTheirIds) {
  const std::vector<std::int32_t> ids{7, 3};
  EXPECT_EQ(
      "SELECT x2.FItemID,x2.FNumber,x2.FName,x2.FModel FROM t_ICItem x2 "
      "WHERE x2.FItemID IN(7,3)",
      Utf8FromUtf16(RowsStatement(ItemTable(), ids)));
}

TEST(PickerStatements, ConsecutiveIdsAreSearchedAsARange) {
  const std::vector<std::int32_t> ids{3, 4, 6};
  const std::vector<std::u16string> words{u"M8"};
  EXPECT_EQ(
      "SELECT x2.FItemID FROM t_ICItem x2 WHERE x2.FItemID BETWEEN 3 AND 6 AND "
      "(x2.FNumber LIKE 'M8%' OR x2.FShortNumber LIKE 'M8%' OR x2.FName LIKE '%M8%' OR "
      "x2.FModel LIKE '%M8%')",
      Utf8FromUtf16(MatchStatement(ItemTable(), ids, words)));
}

TEST(PickerStatements, ScatteredIdsAreListed) {
  const std::vector<std::int32_t> ids{3, 400};
  const std::vector<std::u16string> words{u"银行", u"10"};
  EXPECT_EQ(
      "SELECT x1.FAccountID FROM t_account x1 WHERE x1.FAccountID IN(3,400) AND "
      "(x1.FNumber LIKE '银行%' OR x1.FName LIKE '%银行%') AND "
      "(x1.FNumber LIKE '10%' OR x1.FName LIKE '%10%')",
      Utf8FromUtf16(MatchStatement(AccountTable(), ids, words)));
}

TEST(PickerStatements, TypedTextIsNeitherPatternNorSql) {
  const std::vector<std::int32_t> ids{1};
  const std::vector<std::u16string> words{u"5%_[a]'"};
  EXPECT_EQ(
      "SELECT x1.FAccountID FROM t_account x1 WHERE x1.FAccountID BETWEEN 1 AND 1 AND "
      "(x1.FNumber LIKE '5[%][_][[]a]''%' OR x1.FName LIKE '%5[%][_][[]a]''%')",
      Utf8FromUtf16(MatchStatement(AccountTable(), ids, words)));
}

}  // namespace
}  // namespace workbench
