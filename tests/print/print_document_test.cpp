// The contents of the print table.
#include "print/print_document.h"

#include <gtest/gtest.h>

#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

PrintTable TwoColumns() {
  PrintTable table;
  table.AddColumn(u"code", 1800);
  table.AddColumn(u"name", -5);
  return table;
}

TEST(PrintTable, KeepsEachCellWhole) {
  PrintTable table = TwoColumns();
  for (const char16_t* text : {u"01", u"a|b", u"", u"|"}) table.AddCell(text);
  EXPECT_EQ(table.RowCount(), 2);
  EXPECT_EQ(Utf8(table.Cell(0, 0)), "01");
  EXPECT_EQ(Utf8(table.Cell(0, 1)), "a|b");
  EXPECT_EQ(Utf8(table.Cell(1, 0)), "");
  EXPECT_EQ(Utf8(table.Cell(1, 1)), "|");
}

TEST(PrintTable, CountsCompleteRowsOnly) {
  PrintTable table = TwoColumns();
  EXPECT_EQ(table.RowCount(), 0);
  table.AddCell(u"01");
  EXPECT_EQ(table.RowCount(), 0);
  table.AddCell(u"a");
  EXPECT_EQ(table.RowCount(), 1);
}

TEST(PrintTable, HasNoColumnNarrowerThanNothing) {
  const PrintTable table = TwoColumns();
  EXPECT_EQ(table.Columns()[0].width, 1800);
  EXPECT_EQ(table.Columns()[1].width, 0);
}

TEST(PrintTable, IsEmptyOnceCleared) {
  PrintTable table = TwoColumns();
  table.AddCell(u"01");
  table.AddCell(u"a");
  table.Clear();
  EXPECT_TRUE(table.Columns().empty());
  EXPECT_EQ(table.RowCount(), 0);
  table.AddColumn(u"code", 1800);
  table.AddCell(u"02");
  EXPECT_EQ(Utf8(table.Cell(0, 0)), "02");
}

}  // namespace
}  // namespace pricedown::testing
