// The item picker from the user's side: several choices, one choice, conditions.
#include <gtest/gtest.h>

#include "tests/pickers/picker_company.h"
#include "tests/windows/pickers/picker_user.h"
#include "workbench/company/database_error.h"
#include "workbench/pickers/dialog/dialog_pickers.h"
#include "workbench/pickers/picker_ids.h"
#include "workbench/pickers/picking.h"

namespace workbench::testing {
namespace {

namespace ids = picker_ids;

constexpr std::u16string_view kOwn = u"x2.FItemID>900000";

class ItemPickerWindow : public ::testing::Test {
 protected:
  ItemPickerWindow() {
    company_.AddItem(900001, u"99.01", u"衬板", u"M8");
    company_.AddItem(900002, u"99.02", u"衬套", u"M10");
    company_.AddItem(900003, u"99.03", u"垫圈", u"M8");
    company_.AddItem(900004, u"99.04", u"垫圈 加厚", u"M8");
  }

  // The chosen ids joined by blanks, or "-" when cancelled.
  std::string Pick(bool several = true, std::u16string_view condition = kOwn) {
    const auto picked = pickers_.PickItems(company_, condition, several);
    if (!picked) return "-";
    std::string joined;
    for (const std::int32_t id : *picked) {
      joined += (joined.empty() ? "" : " ") + std::to_string(id);
    }
    return joined;
  }

  PickerCompany company_;
  DialogPickers pickers_{GetModuleHandleW(nullptr)};
  OwnerWindow owner_;
  PickerUser user_;
};

TEST_F(ItemPickerWindow, TicksMadeWithTheKeyboardSurviveAnotherSearch) {
  user_.Press(VK_DOWN)
      .Press(VK_DOWN)
      .Press(VK_SPACE)
      .Await(ids::kChosen, u"已选 1 项")
      .Type(u"衬")
      .Await(ids::kFound, u"找到 2 种物料")
      .Then([this] { EXPECT_FALSE(user_.IsTicked(0)); })
      .Press(VK_DOWN)
      .Press(VK_UP)
      .Press(VK_SPACE)
      .Await(ids::kChosen, u"已选 2 项")
      .Then([this] {
        EXPECT_TRUE(user_.IsTicked(0));
        EXPECT_EQ("衬", user_.Text(ids::kSearch));
      })
      .Press(VK_RETURN);
  EXPECT_EQ("900003 900001", Pick());
}

TEST_F(ItemPickerWindow, BlankAfterTypedTextIsText) {
  user_.Type(u"垫圈")
      .Press(VK_SPACE)
      .Type(u"加")
      .Await(ids::kFound, u"找到 1 种物料")
      .Then([this] { EXPECT_EQ("垫圈 加", user_.Text(ids::kSearch)); })
      .Press(VK_RETURN);
  EXPECT_EQ("900004", Pick());
}

TEST_F(ItemPickerWindow, KeysRightAfterTypingMeanWhatWasTyped) {
  user_
      .Then([] {
        PostMessageW(GetFocus(), WM_CHAR, u'垫', 1);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_DOWN, 1);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_SPACE, 1);
      })
      .Await(ids::kFound, u"找到 2 种物料")
      .Await(ids::kChosen, u"已选 1 项")
      .Press(VK_RETURN);
  EXPECT_EQ("900004", Pick());
}

TEST_F(ItemPickerWindow, BlankInTheEmptyFieldTicks) {
  user_.Press(VK_SPACE)
      .Await(ids::kChosen, u"已选 1 项")
      .Press(VK_SPACE)
      .Await(ids::kChosen, u"已选 0 项");
  user_.Press(VK_ESCAPE);
  EXPECT_EQ("-", Pick());
}

TEST_F(ItemPickerWindow, ControlAInTheSearchFieldSelectsItsText) {
  user_.Type(u"垫")
      .Await(ids::kFound, u"找到 2 种物料")
      .PressWithControl('A')
      .Then([this] { EXPECT_EQ("已选 0 项", user_.Text(ids::kChosen)); })
      .Type(u"衬")
      .Then([this] { EXPECT_EQ("衬", user_.Text(ids::kSearch)); })
      .Press(VK_ESCAPE);
  EXPECT_EQ("-", Pick());
}

TEST_F(ItemPickerWindow, ControlAInTheListChoosesAllFoundAndClearsThemAgain) {
  user_.Type(u"垫")
      .Await(ids::kFound, u"找到 2 种物料")
      .Press(VK_TAB)
      .PressWithControl('A')
      .Await(ids::kChosen, u"已选 2 项")
      .PressWithControl('A')
      .Await(ids::kChosen, u"已选 0 项")
      .PressWithControl('A')
      .Then([this] { EXPECT_EQ("垫", user_.Text(ids::kSearch)); })
      .Press(VK_RETURN);
  EXPECT_EQ("900003 900004", Pick());
}

TEST_F(ItemPickerWindow, ControlAAfterTypingWaitsForTheSearch) {
  user_.Then([] { PostMessageW(GetFocus(), WM_CHAR, u'衬', 1); })
      .Press(VK_TAB)
      .PressWithControl('A')
      .Await(ids::kChosen, u"已选 2 项")
      .Press(VK_RETURN);
  EXPECT_EQ("900001 900002", Pick());
}

TEST_F(ItemPickerWindow, SpaceInTheListTicks) {
  user_.Press(VK_TAB)
      .Press(VK_DOWN)
      .Press(VK_SPACE)
      .Await(ids::kChosen, u"已选 1 项")
      .Then([this] { EXPECT_TRUE(user_.IsTicked(1)); })
      .Press(VK_RETURN);
  EXPECT_EQ("900002", Pick());
}

TEST_F(ItemPickerWindow, ClickOnTheTickTicksAndElsewhereOnlyMoves) {
  user_.Click(2, 8)
      .Await(ids::kChosen, u"已选 1 项")
      .Click(3, 60)
      .Then([this] {
        EXPECT_EQ(3, user_.CurrentRow());
        EXPECT_TRUE(user_.IsTicked(2));
        EXPECT_FALSE(user_.IsTicked(3));
      })
      .PressButton(IDOK);
  EXPECT_EQ("900003", Pick());
}

TEST_F(ItemPickerWindow, DoubleClickAddsItsRowToTheChosenOnes) {
  user_.Click(2, 8).Await(ids::kChosen, u"已选 1 项").DoubleClick(0);
  EXPECT_EQ("900003 900001", Pick());
}

TEST_F(ItemPickerWindow, ButtonsChooseAllAndNone) {
  user_.PressButton(ids::kChooseAll)
      .Await(ids::kChosen, u"已选 4 项")
      .PressButton(ids::kClear)
      .Await(ids::kChosen, u"已选 0 项")
      .PressButton(IDCANCEL);
  EXPECT_EQ("-", Pick());
}

TEST_F(ItemPickerWindow, EnterWithoutTicksChoosesTheCurrentRow) {
  user_.Press(VK_DOWN).Press(VK_RETURN);
  EXPECT_EQ("900002", Pick());
}

TEST_F(ItemPickerWindow, TabGoesThroughTheButtonsInReadingOrder) {
  for (const int id : {ids::kList, ids::kChooseAll, ids::kClear, IDOK, IDCANCEL, ids::kSearch}) {
    user_.Press(VK_TAB).Then([this, id] { EXPECT_EQ(user_.Control(id), GetFocus()) << id; });
  }
  user_.Press(VK_ESCAPE);
  EXPECT_EQ("-", Pick());
}

TEST_F(ItemPickerWindow, OneChoiceHasNoTicks) {
  user_
      .Then([this] {
        EXPECT_EQ(nullptr, user_.Control(ids::kChooseAll));
        EXPECT_EQ("", user_.Text(ids::kChosen));
        EXPECT_FALSE(user_.IsTicked(0));
      })
      .Press(VK_DOWN)
      .Press(VK_SPACE)
      .Then([this] { EXPECT_EQ(" ", user_.Text(ids::kSearch)); })
      .Press(VK_RETURN);
  EXPECT_EQ("900001", Pick(false));
}

TEST_F(ItemPickerWindow, ConditionHidesItems) {
  user_
      .Then([this] {
        EXPECT_EQ("共 2 种物料", user_.Text(ids::kFound));
        EXPECT_EQ("99.02", user_.Cell(0, 0));
        EXPECT_EQ("衬套", user_.Cell(0, 1));
        EXPECT_EQ("M10", user_.Cell(0, 2));
      })
      .Press(VK_ESCAPE);
  Pick(true, u"x2.FItemid not in(900001,900003) and x2.FItemID>900000");
}

TEST_F(ItemPickerWindow, ConditionThatHidesEverythingIsReported) {
  user_
      .Then([this] {
        EXPECT_TRUE(IsWindowVisible(user_.Control(ids::kNothing)));
        EXPECT_EQ("没有符合条件的物料", user_.Text(ids::kNothing));
      })
      .Press(VK_ESCAPE);
  EXPECT_EQ("-", Pick(true, u"x2.FItemID<0"));
}

TEST_F(ItemPickerWindow, RefusedConditionIsAnErrorWithoutAWindow) {
  EXPECT_THROW(Pick(true, u"x2.FNoSuch=1"), DatabaseError);
  EXPECT_FALSE(user_.SawWindow());
}

TEST_F(ItemPickerWindow, WholeTableIsSearchedAndScrolled) {
  user_.Await(ids::kFound, u"共 3,204 种物料")
      .PressWithControl(VK_END)
      .Then([this] {
        EXPECT_EQ(3203, user_.CurrentRow());
        EXPECT_EQ("99.04", user_.Cell(3203, 0));
      })
      .Type(u"99.0")
      .Await(ids::kFound, u"找到 4 种物料")
      .Then([this] { EXPECT_EQ(0, user_.CurrentRow()); })
      .Press(VK_RETURN);
  EXPECT_EQ("900001", Pick(true, u""));
}

TEST(ItemPickerOnManyItems, RefusesToChooseMoreThanTheLimitAndReportsIt) {
  CompanyFilePlan plan;
  plan.large = LargeCompanyPlan{1, static_cast<int>(kMaximumChosen) + 1, 20};
  PickerCompany company(plan);
  DialogPickers pickers(GetModuleHandleW(nullptr));
  PickerUser user;
  user.Await(ids::kFound, u"共 10,001 种物料")
      .Press(VK_TAB)
      .PressWithControl('A')
      .Await(ids::kFound, u"一次最多选择 10,000 项")
      .Then([&user] { EXPECT_EQ("已选 0 项", user.Text(ids::kChosen)); })
      .Press(VK_ESCAPE);
  EXPECT_EQ(std::nullopt, pickers.PickItems(company, {}, true));
}

}  // namespace
}  // namespace workbench::testing
