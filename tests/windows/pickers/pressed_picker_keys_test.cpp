// The table of keys in the tester guide, line by line at the item picker: the key is pressed, and
// the command has run.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "tests/control/guide_keys.h"
#include "tests/pickers/picker_company.h"
#include "tests/windows/control/guide_user.h"
#include "tests/windows/pickers/picker_user.h"
#include "workbench/pickers/dialog/picker_dialog.h"
#include "workbench/pickers/picker_ids.h"

namespace workbench::testing {
namespace {

namespace ids = picker_ids;
using pricedown::testing::GuideKey;
using pricedown::testing::PressOfText;
using pricedown::testing::ReadGuideKeys;
using pricedown::testing::StepsOfKey;

class PressedPickerKeys : public ::testing::Test {
 protected:
  HWND Search() const { return user_.Control(ids::kSearch); }

  PickerCompany company_;
  OwnerWindow owner_;
  PickerUser user_;

  // With the second row current and ticked, and the focus in the list. Those that close the picker
  // are seen by its answer.
  const std::map<std::string, std::function<bool()>> ran_{
      {"查找", [this] { return GetFocus() == Search(); }},
      {"勾选", [this] { return !user_.IsTicked(1); }},
      {"全选", [this] { return user_.IsTicked(0) && user_.IsTicked(2); }},
      {"全部清除", [this] { return user_.Text(ids::kChosen) == "已选 0 项"; }},
  };
};

TEST_F(PressedPickerKeys, RunTheCommandsOfThePicker) {
  std::size_t pressed = 0;
  for (const GuideKey& row : ReadGuideKeys()) {
    if (row.place != "picker") continue;
    for (const std::string& key : row.keys) {
      SCOPED_TRACE(key + ", " + row.command);
      const bool closes = row.command == "确定" || row.command == "取消";
      ASSERT_TRUE(closes || ran_.contains(row.command));
      user_.Press(VK_TAB).Press(VK_DOWN).Press(VK_SPACE).Await(ids::kChosen, u"已选 1 项");
      user_.Then([this] { EXPECT_EQ(GetFocus(), user_.Control(ids::kList)); });
      if (!closes) user_.Then([this, row] { EXPECT_FALSE(ran_.at(row.command)()) << "before"; });
      const auto steps = StepsOfKey(PressOfText(key));
      user_.Then(steps.front());
      if (!closes) {
        for (std::size_t i = 1; i < steps.size(); ++i) user_.Then(steps[i]);
        user_.Then([this, row] { EXPECT_TRUE(ran_.at(row.command)()) << row.command; })
            .Press(VK_ESCAPE);
      }
      Picking picking(company_, ItemPicker(), {}, true);
      PickerDialog dialog(GetModuleHandleW(nullptr), picking);
      const std::vector<std::int32_t> chosen = dialog.Show(owner_.Handle(), {});
      EXPECT_EQ(chosen.size(), row.command == "确定" ? 1u : 0u);
      ++pressed;
    }
  }
  EXPECT_EQ(pressed, 6u);
}

}  // namespace
}  // namespace workbench::testing
