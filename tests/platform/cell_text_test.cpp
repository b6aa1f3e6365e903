// Tests of cells as text, and of the view of single values.
#include "platform/cell_text.h"

#include <gtest/gtest.h>

#include "platform/cell_block.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

std::string TextOf(const Value& value) {
  std::u16string scratch = u"left over";
  return Utf8(CellText(ViewOf(value), scratch));
}

TEST(CellText, ShowsTextsNumbersAndNothing) {
  EXPECT_EQ(TextOf(u"甲"), "甲");
  EXPECT_EQ(TextOf(u""), "");
  EXPECT_EQ(TextOf(1231.10), "1231.1");
  EXPECT_EQ(TextOf(-7), "-7");
  EXPECT_EQ(TextOf(std::int16_t{7}), "7");
  EXPECT_EQ(TextOf(Null{}), "");
  EXPECT_EQ(TextOf(Value()), "");
}

TEST(CellText, BorrowsATextInsteadOfCopyingIt) {
  const Value value(u"甲");
  std::u16string scratch;
  EXPECT_EQ(CellText(ViewOf(value), scratch).data(), value.Text().data());
}

TEST(ViewOf, FollowsReferences) {
  Value target = u"甲";
  const CellView view = ViewOf(Value::ByReference(target));
  EXPECT_EQ(view.kind, CellView::Kind::Text);
  EXPECT_EQ(view.text.data(), target.Text().data());
}

TEST(ViewOf, ReportsOtherKindsAsOther) {
  EXPECT_EQ(ViewOf(Value(nullptr)).kind, CellView::Kind::Other);
  EXPECT_EQ(ViewOf(true).kind, CellView::Kind::Other);
  EXPECT_EQ(ViewOf(Date{1}).kind, CellView::Kind::Other);
  EXPECT_EQ(ViewOf(Missing{}).kind, CellView::Kind::Null);
}

}  // namespace
}  // namespace pricedown::testing
