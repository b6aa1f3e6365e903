// The table of keys in the tester guide, line by line at the windows of the control: the key is
// pressed, and the command has run.
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "tests/control/guide_keys.h"
#include "tests/windows/base/clipboard_table.h"
#include "tests/windows/control/command_world.h"
#include "tests/windows/control/guide_user.h"
#include "windows/base/clipboard.h"
#include "windows/base/control_ids.h"
#include "windows/base/plain_control.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

// The class commands are refused at their right, which names them; printing goes on.
class PressedKeys : public CommandWorld {
 protected:
  PressedKeys() {
    world_.suite.company.grantedMasks = " 32768 ";
    world_.Start();
  }

  void Play(const Steps& steps) {
    for (const auto& step : steps) {
      step();
      RunMessages();
    }
  }
  // What a command starts from: a class is shown and its second item found, the pane has the focus.
  void Prepare(const std::string& place) {
    world_.Click(world_.Tree(), world_.NodePoint(2));
    const HWND pane = place == "grid" ? world_.Grid() : world_.Tree();
    SetFocus(pane);
    world_.PressWith(VK_CONTROL, 'F');
    world_.Type(u"1");
    world_.Press(VK_F3);
    SetFocus(pane);
    windows::CopyToClipboard(pane, u"");
    world_.suite.log.Clear();
  }
  HWND Bar() const { return world_.Child(ids::kFindBar); }
  bool HasFound(const char* position) const {
    const std::string count = Utf8(windows::TextOf(GetDlgItem(Bar(), ids::kFindCount)));
    return count.starts_with(std::string(position) + " / ");
  }
  bool Logged(const std::string& line) const {
    return world_.suite.log.Text().find(line) != std::string::npos;
  }
  std::string Clipboard() const { return Utf8(windows::ClipboardText(world_.Grid())); }

  const std::map<std::string, std::function<bool()>> ran_{
      {"新增", [this] { return Asked() == "131072 "; }},
      {"修改", [this] { return Asked() == "4194304 "; }},
      {"删除", [this] { return Asked() == "65536 "; }},
      {"刷新", [this] { return Loads(u"01") == 1 && TreeLoads() == 0; }},
      {"打印", [this] { return Logged("output print") && !Logged("output preview"); }},
      {"预览", [this] { return Logged("output preview") && !Logged("output print"); }},
      {"查找", [this] { return GetFocus() == GetDlgItem(Bar(), ids::kFindField); }},
      {"查找下一个", [this] { return HasFound("3"); }},
      {"查找上一个", [this] { return HasFound("1"); }},
      {"复制",
       [this] {
         return Clipboard().starts_with("01.01.") &&
                ClipboardTable(world_.Grid()).starts_with("<table><tr><td class=t>01.01.");
       }},
      {"连同标题复制",
       [this] {
         return Clipboard().starts_with("物料代码\r\n01.01.") &&
                ClipboardTable(world_.Grid()).starts_with("<table><tr><td class=t>物料代码<");
       }},
      {"退出", [this] { return Logged("container close"); }},
  };
};

TEST_F(PressedKeys, RunTheCommandsOfTreeGridAndToolStrip) {
  std::size_t pressed = 0;
  const auto run = [&](const GuideKey& row, const std::string& by, const Steps& steps) {
    SCOPED_TRACE(row.place + ", " + by + ", " + row.command);
    ASSERT_TRUE(ran_.contains(row.command));
    Prepare(row.place);
    ASSERT_FALSE(ran_.at(row.command)()) << "before";
    Play(steps);
    EXPECT_TRUE(ran_.at(row.command)()) << world_.suite.log.Text();
    ++pressed;
  };
  for (const GuideKey& row : ReadGuideKeys()) {
    if (row.place != "tree" && row.place != "grid" && row.place != "tool strip") continue;
    for (const std::string& key : row.keys) run(row, key, StepsOfKey(PressOfText(key)));
    if (row.way == "bar") run(row, row.way, StepsByBar(row.command));
    if (row.way == "menu") run(row, row.way, StepsByMenu(row.command));
  }
  // Those that tree and grid share, the grid's own, and the strip's.
  EXPECT_EQ(pressed, 10u * 2 + 3 + 1);
}

}  // namespace
}  // namespace pricedown::testing
