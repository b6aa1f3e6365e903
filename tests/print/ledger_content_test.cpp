// The ledger's contents.
#include "print/ledger_content.h"

#include <gtest/gtest.h>

#include "tests/support/failure.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

constexpr const char* kNoSuchRowOrColumn = "80070057 打印表没有这一行或列";

TEST(LedgerContent, KeepsEachRowUnderItsNumberWhateverTheOrder) {
  LedgerContent content;
  content.SetRowCount(3);
  content.SetRow(3, u"c|");
  content.SetRow(1, u"a|");
  content.SetRow(3, u"cc|");
  EXPECT_EQ(content.RowCount(), 3);
  EXPECT_EQ(Utf8(content.Row(1)), "a|");
  EXPECT_EQ(Utf8(content.Row(2)), "");
  EXPECT_EQ(Utf8(content.Row(3)), "cc|");
}

TEST(LedgerContent, KeepsTheRowsThatALowerCountLeaves) {
  LedgerContent content;
  content.SetRowCount(2);
  content.SetRow(1, u"a|");
  content.SetRow(2, u"b|");
  content.SetRowCount(1);
  content.SetRowCount(2);
  EXPECT_EQ(Utf8(content.Row(1)), "a|");
  EXPECT_EQ(Utf8(content.Row(2)), "");
  content.SetRowCount(-5);
  EXPECT_EQ(content.RowCount(), 0);
}

TEST(LedgerContent, IsClearedOfRowsAndColumnsOnly) {
  LedgerContent content;
  content.SetRowCount(1);
  content.SetColumnCount(4);
  content.SetHeaderLine(1, u"title", {});
  content.SetFooterLine(1, u"page", {});
  content.Clear();
  EXPECT_EQ(content.RowCount(), 0);
  EXPECT_TRUE(content.Columns().empty());
  EXPECT_EQ(content.Header().size(), 1u);
  EXPECT_EQ(content.Footer().size(), 1u);
}

TEST(LedgerContent, RefusesRowsAndColumnsThatItDoesNotHave) {
  LedgerContent content;
  content.SetRowCount(1);
  content.SetColumnCount(2);
  EXPECT_EQ(FailureOf([&] { content.SetRow(0, u"a|"); }), kNoSuchRowOrColumn);
  EXPECT_EQ(FailureOf([&] { content.SetRow(2, u"a|"); }), kNoSuchRowOrColumn);
  EXPECT_EQ(FailureOf([&] { content.SetColumnWidth(3, 100); }), kNoSuchRowOrColumn);
  EXPECT_EQ(FailureOf([&] { content.SetColumnFormat(-1, 0); }), kNoSuchRowOrColumn);
  EXPECT_EQ(FailureOf([&] { content.SetHeaderLine(0, u"x", {}); }), kNoSuchRowOrColumn);
}

TEST(LedgerContent, RemovesCellsFromARowUntilNoneIsLeft) {
  std::u16string_view rest = u"01|螺栓||12|";
  EXPECT_EQ(Utf8(TakeCell(rest)), "01");
  EXPECT_EQ(Utf8(TakeCell(rest)), "螺栓");
  EXPECT_EQ(Utf8(TakeCell(rest)), "");
  EXPECT_EQ(Utf8(TakeCell(rest)), "12");
  EXPECT_TRUE(rest.empty());
  EXPECT_EQ(Utf8(TakeCell(rest)), "");
}

}  // namespace
}  // namespace pricedown::testing
