// Choosing in a picker, and its texts.
#include "workbench/pickers/picking.h"

#include <gtest/gtest.h>

#include "tests/pickers/picker_company.h"

namespace workbench::testing {
namespace {

class PickingItems : public ::testing::Test {
 protected:
  PickingItems() {
    company_.AddItem(900001, u"99.01", u"衬板", u"M8");
    company_.AddItem(900002, u"99.02", u"衬套", u"M10");
    company_.AddItem(900003, u"99.03", u"垫圈", u"M8");
  }

  Picking Open(bool several) {
    return Picking(company_, ItemPicker(), u"x2.FItemID>900000", several);
  }

  PickerCompany company_;
};

using Ids = std::vector<std::int32_t>;

TEST_F(PickingItems, ChoicesSurviveAnotherSearchInTheOrderOfChoosing) {
  Picking picking = Open(true);
  ASSERT_TRUE(picking.Toggle(2));
  SearchAll(picking.List(), u"衬");
  EXPECT_FALSE(picking.IsChosen(0));
  ASSERT_TRUE(picking.Toggle(0));
  SearchAll(picking.List(), u"没有");
  EXPECT_EQ("已选 2 项", Utf8FromUtf16(picking.ChosenText()));
  EXPECT_EQ(Ids({900003, 900001}), picking.Answer(std::nullopt));
}

TEST_F(PickingItems, SecondToggleRevertsTheChoice) {
  Picking picking = Open(true);
  picking.Toggle(0);
  picking.Toggle(1);
  picking.Toggle(0);
  EXPECT_FALSE(picking.IsChosen(0));
  EXPECT_EQ(Ids({900002}), picking.Answer(0));
}

TEST_F(PickingItems, ResultWithoutChoicesIsTheCurrentRow) {
  const Picking picking = Open(true);
  EXPECT_EQ(Ids({900002}), picking.Answer(1));
  EXPECT_EQ(Ids(), picking.Answer(std::nullopt));
  EXPECT_EQ(Ids(), picking.Answer(3));
}

TEST_F(PickingItems, AllFoundAreChosenAndThenCleared) {
  Picking picking = Open(true);
  picking.Toggle(2);
  picking.List().Search(u"衬");
  ASSERT_TRUE(picking.ToggleAllFound());
  EXPECT_EQ(Ids({900003, 900001, 900002}), picking.Answer(std::nullopt));
  ASSERT_TRUE(picking.ToggleAllFound());
  EXPECT_EQ(Ids({900003}), picking.Answer(std::nullopt));
}

TEST_F(PickingItems, AllCanBeClearedAtOnce) {
  Picking picking = Open(true);
  picking.ToggleAllFound();
  picking.ClearChosen();
  EXPECT_EQ(0U, picking.ChosenCount());
}

TEST_F(PickingItems, TextsDescribeTheList) {
  Picking picking = Open(false);
  EXPECT_EQ("共 3 种物料", Utf8FromUtf16(picking.FoundText()));
  EXPECT_EQ("", Utf8FromUtf16(picking.ChosenText()));
  picking.List().Search(u"衬");
  EXPECT_EQ("正在查找，已找到 0 种物料", Utf8FromUtf16(picking.FoundText()));
  picking.List().Advance();
  EXPECT_EQ("找到 2 种物料", Utf8FromUtf16(picking.FoundText()));
}

TEST(PickingManyItems, RefusesMoreThanTheLimitAndChangesNothing) {
  CompanyFilePlan plan;
  plan.large = LargeCompanyPlan{1, static_cast<int>(kMaximumChosen) + 1, 20};
  PickerCompany company(plan);
  Picking picking(company, ItemPicker(), {}, true);
  EXPECT_FALSE(picking.ToggleAllFound());
  EXPECT_EQ(0U, picking.ChosenCount());
  for (std::size_t row = 0; row < kMaximumChosen; ++row) ASSERT_TRUE(picking.Toggle(row));
  EXPECT_FALSE(picking.Toggle(kMaximumChosen));
  EXPECT_EQ("已选 10,000 项", Utf8FromUtf16(picking.ChosenText()));
  EXPECT_EQ("共 10,001 种物料", Utf8FromUtf16(picking.FoundText()));
}

TEST(PickingManyItems, FirstRowIsFoundWithoutFurtherSearch) {
  CompanyFilePlan plan;
  plan.large = LargeCompanyPlan{1, 20000, 20};
  PickerCompany company(plan);
  Picking picking(company, ItemPicker(), {}, false);
  picking.List().Search(u"钢");
  picking.FindFirst();
  EXPECT_GT(picking.List().Count(), 0U);
  EXPECT_TRUE(picking.List().IsSearching());
}

}  // namespace
}  // namespace workbench::testing
