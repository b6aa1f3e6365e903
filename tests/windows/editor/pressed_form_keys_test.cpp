// The table of keys in the tester guide, line by line at the item class form: the key is pressed,
// and the command has run.
#include <functional>
#include <map>
#include <string>

#include "tests/control/guide_keys.h"
#include "tests/windows/base/clipboard_table.h"
#include "tests/windows/control/guide_user.h"
#include "tests/windows/editor/form_world.h"
#include "windows/base/clipboard.h"

namespace pricedown::testing {
namespace {

class PressedFormKeys : public FormWorld {
 protected:
  std::string Clipboard() const { return Utf8(windows::ClipboardText(List())); }
  bool Asked(const std::string& text) const {
    return !boxes.All().empty() && boxes.All().back().text.starts_with(text);
  }
  UINT Selected() const { return ListView_GetSelectedCount(List()); }

  // On a form with the items 1 to 3, of which the first is selected.
  const std::map<std::string, std::function<bool()>> ran_{
      {"新增", [this] { return Asked("是否保存当前数据"); }},
      {"保存", [this] { return Classes().find("新名称") != std::string::npos; }},
      {"增加物料", [this] { return Codes() == "01.1 01.2 01.3 01.7 "; }},
      {"删除物料", [this] { return Codes() == "01.2 01.3 "; }},
      {"退出", [this] { return Form() == nullptr; }},
      {"复制",
       [this] {
         return Clipboard().starts_with("01.1\t") &&
                ClipboardTable(List()).starts_with("<table><tr><td class=t>01.1</td>");
       }},
      {"连同标题复制",
       [this] {
         return Clipboard().starts_with("物料代码\t") &&
                ClipboardTable(List()).starts_with("<table><tr><td class=t>物料代码</td>");
       }},
      {"查找科目", [this] { return TextIn(form_ids::kLossAccount) == "1281.1"; }},
      {"全选", [this] { return Selected() == 3; }},
  };
};

TEST_F(PressedFormKeys, RunTheCommandsOfTheFormAndItsList) {
  std::size_t pressed = 0;
  const auto run = [&](const GuideKey& row, const std::string& by, const Steps& way) {
    const std::string name = row.place + ", " + by + ", " + row.command;
    SCOPED_TRACE(name);
    ASSERT_TRUE(ran_.contains(row.command));
    const std::function<bool()>& ran = ran_.at(row.command);
    const bool isNew = row.command == "新增";
    pickers->items.assign(1, {7});
    pickers->accounts.assign(1, u"1281.1");
    windows::CopyToClipboard(host.Handle(), u"");
    boxes.WillPress({IDNO});
    Steps steps{[&] {
      if (row.command == "保存") TypeInto(form_ids::kClassName, u"新名称");
      SetFocus(row.place == "form"          ? Child(form_ids::kPercentage)
               : row.place == "form's list" ? List()
                                            : Child(form_ids::kLossAccount));
      ListView_SetItemState(List(), 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
      EXPECT_FALSE(ran()) << name << " before";
    }};
    if (row.command == "退出") {
      // No step runs behind it; a form that stays fails the test.
      steps.push_back(way.front());
    } else {
      Append(steps, way);
      steps.push_back([&] {
        EXPECT_TRUE(ran()) << name;
        CloseByFrame();
      });
    }
    if (isNew) {
      ShowForAdd(std::move(steps));
    } else {
      ShowForEdit(u"A1", std::move(steps));
    }
    ++pressed;
  };
  for (const GuideKey& row : ReadGuideKeys()) {
    if (!row.place.starts_with("form")) continue;
    for (const std::string& key : row.keys) run(row, key, StepsOfKey(PressOfText(key)));
    if (row.way == "bar") run(row, row.way, StepsByBar(row.command));
    if (row.way == "menu") run(row, row.way, StepsByMenu(row.command));
  }
  EXPECT_EQ(pressed, 14u);
}

}  // namespace
}  // namespace pricedown::testing
