// Column widths, their narrowing, and which columns hold numbers.
#include "print/column_layout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/case_name.h"

namespace pricedown::testing {
namespace {

PrintTable Table(const std::vector<std::int32_t>& twips) {
  PrintTable table;
  for (const std::int32_t width : twips) table.AddColumn(u"1", width);
  return table;
}

struct WidthCase {
  const char* name;
  std::vector<std::int32_t> twips;
  Tenths available;
  std::vector<Tenths> edges;
};
void PrintTo(const WidthCase& width, std::ostream* stream) { *stream << width.name; }

class ColumnWidths : public ::testing::TestWithParam<WidthCase> {};

TEST_P(ColumnWidths, AreAsRequestedOrNarrowedToOneLimit) {
  const WidthCase& width = GetParam();
  std::vector<Tenths> edges{100};
  for (const PlacedColumn& column : PlaceColumns(Table(width.twips), 100, width.available)) {
    EXPECT_EQ(column.left, edges.back());
    edges.push_back(column.right);
  }
  EXPECT_EQ(edges, width.edges);
}

INSTANTIATE_TEST_SUITE_P(
    PlaceColumns, ColumnWidths,
    ::testing::Values(
        // The grid's own: 12, 20, 18 and 12 units of 150 twips.
        WidthCase{"Default", {1800, 3000, 2700, 1800}, 1700, {100, 418, 947, 1423, 1741}},
        WidthCase{"OneInch", {1440}, 1700, {100, 354}},
        WidthCase{"Zero", {1440, 0, 1440}, 1700, {100, 354, 354, 608}},
        WidthCase{"None", {}, 1700, {100}},
        WidthCase{"WidestNarrowed", {1440, 14400}, 1700, {100, 354, 1800}},
        WidthCase{"TwoWidestShare", {14400, 1440, 28800}, 1700, {100, 823, 1077, 1800}},
        WidthCase{"AllShare", {14400, 14400, 14400, 14400}, 1700, {100, 525, 950, 1375, 1800}},
        WidthCase{"Beyond32Bits",
                  {2147483647, 2147483647, 2147483647, 2147483647},
                  1700,
                  {100, 525, 950, 1375, 1800}},
        WidthCase{"NoPaper", {1440, 1440}, 0, {100, 100, 100}}),
    CaseName<WidthCase>);

TEST(ColumnLayout, NeedsMoreThanAnyPaperWithoutOverflow) {
  EXPECT_EQ(WantedWidth(Table({2147483647, 2147483647, 2147483647, 2147483647, 2147483647,
                               2147483647, 2147483647})),
            7 * 378792254LL);
}

struct NumberCase {
  const char* name;
  std::u16string_view text;
  bool isNumber;
};
void PrintTo(const NumberCase& number, std::ostream* stream) { *stream << number.name; }

class PlainNumber : public ::testing::TestWithParam<NumberCase> {};

TEST_P(PlainNumber, IsDistinguishedFromCodesAndTexts) {
  EXPECT_EQ(IsPlainNumber(GetParam().text), GetParam().isNumber);
}

INSTANTIATE_TEST_SUITE_P(
    IsPlainNumber, PlainNumber,
    ::testing::Values(
        NumberCase{"Whole", u"12", true}, NumberCase{"Zero", u"0", true},
        NumberCase{"Fraction", u"0.5", true}, NumberCase{"BarePoint", u".5", true},
        NumberCase{"TrailingPoint", u"5.", true}, NumberCase{"Negative", u"-12.50", true},
        NumberCase{"Thousands", u"1,234,567.89", true}, NumberCase{"Blanks", u" 12 ", true},
        NumberCase{"Empty", u"", false}, NumberCase{"Sign", u"-", false},
        NumberCase{"Point", u".", false}, NumberCase{"LeadingZero", u"007", false},
        NumberCase{"LeadingZeroOfTwo", u"05", false}, NumberCase{"Code", u"01.002", false},
        NumberCase{"TwoPoints", u"1.2.3", false}, NumberCase{"LeadingComma", u",5", false},
        NumberCase{"TrailingComma", u"5,", false}, NumberCase{"CommaInFraction", u"1.5,5", false},
        NumberCase{"CommaBeforePoint", u"1,.5", false}, NumberCase{"Exponent", u"1E5", false},
        NumberCase{"Positive", u"+12.50", true}, NumberCase{"ZeroBeforeComma", u"0,500", false},
        NumberCase{"Model", u"M8", false}, NumberCase{"SignBehind", u"5-", false}),
    CaseName<NumberCase>);

// For each column whether it holds numbers: 1 or 0.
std::string NumberColumns(const std::vector<const char16_t*>& cells) {
  PrintTable table = Table({1440, 1440, 1440});
  for (const char16_t* cell : cells) table.AddCell(cell);
  std::string columns;
  for (const PlacedColumn& column : PlaceColumns(table, 0, 1700)) {
    columns += column.holdsNumbers ? '1' : '0';
  }
  return columns;
}

TEST(ColumnLayout, HoldsNumbersWhereAllTextsAreNumbers) {
  EXPECT_EQ(NumberColumns({u"1", u"a", u"2", u"2", u"b", u"3.5"}), "101");
}

TEST(ColumnLayout, HoldsNoNumbersFromTheFirstTextOn) {
  EXPECT_EQ(NumberColumns({u"1", u"2", u"3", u"1", u"x", u"3", u"1", u"2", u"-"}), "100");
}

TEST(ColumnLayout, CountsEmptyCellsAsNeither) {
  EXPECT_EQ(NumberColumns({u"", u"", u"1", u"", u" ", u"2", u"", u"", u""}), "001");
}

TEST(ColumnLayout, DoesNotCountTheTitles) { EXPECT_EQ(NumberColumns({}), "000"); }

}  // namespace
}  // namespace pricedown::testing
