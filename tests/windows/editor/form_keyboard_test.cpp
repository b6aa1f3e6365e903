// The keyboard in the item class form: Tab, Enter, and the keys of its commands and lookups.
#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "tests/windows/editor/form_world.h"

namespace pricedown::testing {
namespace {

class ItemClassFormKeyboard : public FormWorld {};

TEST_F(ItemClassFormKeyboard, TabGoesThroughItsPartsInReadingOrder) {
  Steps steps;
  for (const int id : {form_ids::kClassName, form_ids::kReserveAccount, form_ids::kReserveLookup,
                       form_ids::kLossAccount, form_ids::kLossLookup, form_ids::kPercentage,
                       form_ids::kMembers, form_ids::kToolStrip, form_ids::kClassNumber}) {
    steps.push_back([&] { PostKey(VK_TAB); });
    steps.push_back([&, id] { EXPECT_EQ(GetFocus(), Child(id)) << id; });
  }
  steps.push_back([&] { CloseByFrame(); });
  ShowForAdd(std::move(steps));
}

TEST_F(ItemClassFormKeyboard, EnterGoesToTheNextField) {
  ShowForAdd({[&] { PostKey(VK_RETURN); },
              [&] {
                EXPECT_EQ(GetFocus(), Child(form_ids::kClassName));
                SetFocus(List());
                PostKey(VK_RETURN);
              },
              [&] {
                EXPECT_EQ(GetFocus(), List());
                CloseByFrame();
              }});
}

TEST_F(ItemClassFormKeyboard, EnterSkipsTheLookupButtonsSelectsTheTextAndEndsInTheList) {
  Steps steps;
  steps.push_back([&] { SetFocus(Child(form_ids::kClassName)); });
  for (const int id : {form_ids::kReserveAccount, form_ids::kLossAccount, form_ids::kPercentage}) {
    steps.push_back([&] { PostKey(VK_RETURN); });
    steps.push_back([&, id] {
      EXPECT_EQ(GetFocus(), Child(id)) << id;
      EXPECT_EQ(Selection(id), TextIn(id).size()) << id;
      EXPECT_GT(Selection(id), 0u) << id;
    });
  }
  steps.push_back([&] { PostKey(VK_RETURN); });
  steps.push_back([&] { EXPECT_EQ(GetFocus(), List()); });
  steps.push_back([&] { CloseByFrame(); });
  ShowForEdit(u"A1", std::move(steps));
}

TEST_F(ItemClassFormKeyboard, F4AndAltDownOpenTheLookupOfTheirField) {
  pickers->accounts = {u"5711", u"1281.1"};
  ShowForAdd({[&] {
                SetFocus(Child(form_ids::kLossAccount));
                Press(VK_F4);
                EXPECT_EQ(TextIn(form_ids::kLossAccount), "5711");
                SetFocus(Child(form_ids::kReserveAccount));
                std::array<BYTE, 256> keys{};
                keys[VK_MENU] = 0x80;
                SetKeyboardState(keys.data());
                SendMessageW(GetFocus(), WM_SYSKEYDOWN, VK_DOWN, 1);
                keys[VK_MENU] = 0;
                SetKeyboardState(keys.data());
                EXPECT_EQ(TextIn(form_ids::kReserveAccount), "1281.1");
              },
              [&] { CloseByFrame(); }});
  EXPECT_TRUE(boxes.All().empty());
}

TEST_F(ItemClassFormKeyboard, EnterPressesALookupButton) {
  pickers->accounts = {u"5711"};
  ShowForAdd({[&] {
                SetFocus(Child(form_ids::kLossLookup));
                PostKey(VK_RETURN);
              },
              [&] {
                EXPECT_EQ(TextIn(form_ids::kLossAccount), "5711");
                CloseByFrame();
              }});
}

TEST_F(ItemClassFormKeyboard, ControlNStartsANewClass) {
  boxes.WillPress({IDNO});
  ShowForAdd({[&] {
                HoldControl(true);
                PostKey('N');
              },
              [&] {
                HoldControl(false);
                CloseByFrame();
              }});
  ASSERT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(boxes.All()[0].text, "是否保存当前数据？");
}

// 新增 would empty the opened class, which the next save then replaced.
TEST_F(ItemClassFormKeyboard, ControlNDoesNothingOnAnOpenedClass) {
  ShowForEdit(u"A1", {[&] {
                        HoldControl(true);
                        PostKey('N');
                      },
                      [&] {
                        HoldControl(false);
                        EXPECT_EQ(TextIn(form_ids::kClassNumber), "A1");
                        EXPECT_EQ(Codes(), "01.1 01.2 01.3 ");
                        CloseByFrame();
                      }});
  EXPECT_TRUE(boxes.All().empty());
}

}  // namespace
}  // namespace pricedown::testing
