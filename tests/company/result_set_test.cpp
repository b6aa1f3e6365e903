#include "workbench/company/result_set.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/company/company_file.h"
#include "workbench/company/column_type.h"
#include "workbench/company/utf.h"

namespace workbench {
namespace {

ResultColumn Named(std::u16string name) {
  ResultColumn column;
  column.name = std::move(name);
  return column;
}

ResultSet TwoColumns() { return ResultSet({Named(u"FNumber"), Named(u"Fitemid")}); }

TEST(ResultSet, WithoutColumnsIsNoResult) {
  const ResultSet result;
  EXPECT_EQ(result.ColumnCount(), 0U);
  EXPECT_EQ(result.RowCount(), 0U);
}

TEST(ResultSet, DistinguishesKinds) {
  ResultSet result = TwoColumns();
  result.AddRow();
  result.SetText(0, u"");
  result.AddRow();
  result.SetInteger(0, -5);
  result.SetNumber(1, 12.5);
  EXPECT_EQ(result.At(0, 0).Kind(), CellKind::Text);
  EXPECT_TRUE(result.At(0, 0).Text().empty());
  EXPECT_TRUE(result.At(0, 1).IsNull());
  EXPECT_EQ(result.At(1, 0).Integer(), -5);
  EXPECT_EQ(result.At(1, 1).Number(), 12.5);
}

TEST(ResultSet, KeepsARepeatedTextOnce) {
  ResultSet result = TwoColumns();
  for (const char* text : {"", "a", "", "a", "a", "b", "a"}) {
    result.AddRow();
    result.SetUtf8Text(0, text);
    result.SetUtf8Text(1, "b");
  }
  EXPECT_EQ(testing::RowsOf(result),
            "''|'b'\n'a'|'b'\n''|'b'\n'a'|'b'\n'a'|'b'\n'b'|'b'\n'a'|'b'\n");
  EXPECT_EQ(result.At(3, 0).Text().data(), result.At(4, 0).Text().data());
  EXPECT_EQ(result.At(0, 1).Text().data(), result.At(6, 1).Text().data());
}

TEST(ResultSet, KeepsTextsWhereTheyAre) {
  ResultSet result = TwoColumns();
  std::vector<std::u16string_view> seen;
  for (int i = 0; i < 20000; ++i) {
    result.AddRow();
    // Some repeat the previous row, some do not; some are longer than a chunk of the arena.
    const std::string text = std::string(i % 5000 == 7 ? 600000 : 3, 'a') + std::to_string(i / 2);
    result.SetUtf8Text(0, text);
    result.SetUtf8Text(1, "板" + std::to_string(i));
    seen.push_back(result.At(static_cast<std::size_t>(i), 0).Text());
  }
  ResultSet moved = std::move(result);
  ASSERT_EQ(moved.RowCount(), 20000U);
  for (std::size_t i = 0; i < 20000; ++i) {
    EXPECT_EQ(moved.At(i, 0).Text().data(), seen[i].data());
    const std::string expected =
        std::string(i % 5000 == 7 ? 600000 : 3, 'a') + std::to_string(i / 2);
    ASSERT_EQ(Utf8FromUtf16(moved.At(i, 0).Text()), expected);
    ASSERT_EQ(Utf8FromUtf16(moved.At(i, 1).Text()), "板" + std::to_string(i));
  }
}

TEST(ResultSet, IsEmptyAfterItWasMovedAndCanBeFilledAgain) {
  ResultSet first = TwoColumns();
  first.AddRow();
  first.SetUtf8Text(0, "a");
  ResultSet second;
  second = std::move(first);
  EXPECT_EQ(testing::RowsOf(second), "'a'|NULL\n");
  EXPECT_EQ(first.RowCount(), 0U);     // NOLINT(bugprone-use-after-move)
  EXPECT_EQ(first.ColumnCount(), 0U);  // NOLINT(bugprone-use-after-move)
  first = TwoColumns();
  first.AddRow();
  first.SetUtf8Text(1, "b");
  EXPECT_EQ(testing::RowsOf(first), "NULL|'b'\n");
  EXPECT_EQ(testing::RowsOf(second), "'a'|NULL\n");
}

struct DeclaredType {
  const char* declared;
  AdoType type;
  std::int64_t definedSize;
  int precision;
  int scale;
};

TEST(ColumnType, IsReadFromTheDeclaration) {
  constexpr std::int64_t kUnlimited = 1073741823;
  const DeclaredType kTypes[] = {
      {"INTEGER", AdoType::Integer, 4, 0, 0},
      {"int", AdoType::Integer, 4, 0, 0},
      {"BIGINT", AdoType::BigInt, 8, 0, 0},
      {"smallint", AdoType::SmallInt, 2, 0, 0},
      {"FLOAT", AdoType::Double, 8, 0, 0},
      {"DOUBLE PRECISION", AdoType::Double, 8, 0, 0},
      {"DECIMAL(28,10)", AdoType::Numeric, 19, 28, 10},
      {"numeric( 18 , 4 )", AdoType::Numeric, 19, 18, 4},
      {"NUMERIC", AdoType::Numeric, 19, 18, 0},
      {"NVARCHAR(80)", AdoType::VarWChar, 80, 0, 0},
      {"varchar(255)", AdoType::VarWChar, 255, 0, 0},
      {"TEXT", AdoType::LongVarWChar, kUnlimited, 0, 0},
      {"", AdoType::LongVarWChar, kUnlimited, 0, 0},
  };
  for (const DeclaredType& expected : kTypes) {
    const ResultColumn column = DescribeDeclaredType(expected.declared);
    EXPECT_EQ(column.type, expected.type) << expected.declared;
    EXPECT_EQ(column.definedSize, expected.definedSize) << expected.declared;
    EXPECT_EQ(column.precision, expected.precision) << expected.declared;
    EXPECT_EQ(column.scale, expected.scale) << expected.declared;
  }
}

TEST(Utf, KeepsEveryTextOfUtf16) {
  for (const std::u16string_view text :
       {std::u16string_view(u""), std::u16string_view(u"abcdefgh"),
        std::u16string_view(u"abcdefghi钢板é\x7F\x80\x7FF\x800\xFFFF"),
        std::u16string_view(u"\xD842\xDFB7 \xD842 \xDFB7")}) {
    EXPECT_TRUE(Utf16FromUtf8(Utf8FromUtf16(text)) == text);
  }
}

TEST(Utf, ReplacesInvalidBytes) {
  struct Case {
    const char* bytes;
    std::u16string_view expected;
  };
  const Case kCases[] = {
      {"a\x80"
       "b",
       u"a\xFFFD"
       u"b"},
      {"\xC0\x80", u"\xFFFD\xFFFD"},
      {"\xE0\x80\x80", u"\xFFFD\xFFFD\xFFFD"},
      {"\xE4\xB8", u"\xFFFD\xFFFD"},
      {"\xE4\xB8"
       "abcdefgh",
       u"\xFFFD\xFFFD"
       u"abcdefgh"},
      {"\xF4\x90\x80\x80", u"\xFFFD\xFFFD\xFFFD\xFFFD"},
      {"\xFF", u"\xFFFD"},
  };
  for (const Case& broken : kCases) {
    EXPECT_TRUE(Utf16FromUtf8(broken.bytes) == broken.expected) << broken.bytes;
  }
}

}  // namespace
}  // namespace workbench
