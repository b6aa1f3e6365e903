// The small parts of the generator: randomness, decimals and templates.
#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "workbench/sample/decimal.h"
#include "workbench/sample/item_families.h"
#include "workbench/sample/random.h"
#include "workbench/sample/template_text.h"

namespace workbench::testing {
namespace {

TEST(Random, StreamsOfOneSeedDiffer) {
  Random first(1, 1);
  Random second(1, 2);
  EXPECT_NE(first.Next(), second.Next());
}

TEST(Random, BetweenReachesBothEndsAndNothingElse) {
  Random random(3, 1);
  std::set<int> seen;
  for (int i = 0; i < 1000; ++i) seen.insert(random.Between(4, 7));
  EXPECT_EQ(seen, (std::set<int>{4, 5, 6, 7}));
}

TEST(Random, BelowIsEvenlySpread) {
  Random random(3, 1);
  int counts[8] = {};
  for (int i = 0; i < 80000; ++i) ++counts[random.Below(8)];
  for (const int count : counts) EXPECT_NEAR(count, 10000, 500);
}

TEST(Decimal, HundredthsAreTheNearestDoubles) {
  EXPECT_EQ(FromHundredths(0), 0.0);
  EXPECT_EQ(FromHundredths(5), 0.05);
  EXPECT_EQ(FromHundredths(1999), 19.99);
  EXPECT_EQ(FromHundredths(123456789), 1234567.89);
}

TEST(Decimal, AcceptsPlainDigitsOnly) {
  EXPECT_EQ(ParsePlainDecimal("33.3333"), 33.3333);
  EXPECT_EQ(ParsePlainDecimal("007"), 7.0);
  for (const char* text : {"", ".", "5.", ".5", "1e2", "+1", "-1", " 1", "1 ", "1,000", "inf",
                           "nan", "0x10", "1.2.3", "一"}) {
    EXPECT_EQ(ParsePlainDecimal(text), std::nullopt) << text;
  }
}

TEST(TemplateText, CopiesLiteralText) {
  Random random(1, 1);
  EXPECT_EQ(FillTemplate("螺母 M8", random), "螺母 M8");
  EXPECT_EQ(FillTemplate("", random), "");
}

TEST(TemplateText, ChoosesEveryAlternativeIncludingTheEmptyOne) {
  Random random(1, 1);
  std::set<std::string> seen;
  for (int i = 0; i < 100; ++i) seen.insert(FillTemplate("A[甲|乙|]B", random));
  EXPECT_EQ(seen, (std::set<std::string>{"A甲B", "A乙B", "AB"}));
}

TEST(TemplateText, StepsThroughARange) {
  Random random(1, 1);
  std::set<std::string> seen;
  for (int i = 0; i < 200; ++i) seen.insert(FillTemplate("M{4-11/3}×{5-5/1}", random));
  EXPECT_EQ(seen, (std::set<std::string>{"M4×5", "M7×5", "M10×5"}));
}

TEST(ItemFamilies, EachHasKindsAndEveryKindHasAFamily) {
  std::size_t kinds = 0;
  for (const ItemFamily& family : ItemFamilies()) {
    EXPECT_FALSE(KindsOf(family.code).empty()) << family.code;
    for (const ItemKind& kind : KindsOf(family.code)) {
      EXPECT_EQ(kind.family, family.code);
      EXPECT_LT(kind.lowPrice, kind.highPrice) << kind.name;
      EXPECT_GT(kind.lowPrice, 0) << kind.name;
      // Sale prices are computed from them.
      EXPECT_LE(kind.highPrice, std::numeric_limits<int>::max() / 160) << kind.name;
      ++kinds;
    }
  }
  EXPECT_EQ(KindsOf("99.99").size(), 0U);
  EXPECT_GT(kinds, 70U);
}

}  // namespace
}  // namespace workbench::testing
