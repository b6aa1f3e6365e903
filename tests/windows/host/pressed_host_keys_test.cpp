// The table of keys in the tester guide, line by line at the host's frame: the key is pressed, or
// the menu's letters, and the command has run.
#include <cwctype>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

#include "tests/control/guide_keys.h"
#include "tests/windows/control/guide_user.h"
#include "tests/windows/host/dialog_user.h"
#include "tests/windows/host/frame_world.h"
#include "tests/windows/support/run_messages.h"
#include "windows/base/plain_control.h"

namespace workbench {
namespace {

using pricedown::testing::GuideKey;
using pricedown::testing::PressOfText;
using pricedown::testing::ReadGuideKeys;
using pricedown::testing::RunMessages;
using pricedown::testing::StepsOfKey;
using pricedown::testing::Utf8;

// What a line of a menu says, and its letter: "层叠(&C)" is 层叠 and C.
std::pair<std::string, wchar_t> LineOf(HMENU menu, int position) {
  std::array<wchar_t, 64> text{};
  GetMenuStringW(menu, static_cast<UINT>(position), text.data(), 64, MF_BYPOSITION);
  const std::wstring line(text.data());
  const std::size_t letter = line.find(L"(&");
  if (letter == std::wstring::npos) return {Utf8(pricedown::windows::FromWide(line)), L'\0'};
  return {Utf8(pricedown::windows::FromWide(line.substr(0, letter))), line[letter + 2]};
}

class PressedHostKeys : public FrameWorld {
 protected:
  PressedHostKeys() { running_ = this; }
  ~PressedHostKeys() override { running_ = nullptr; }

  // Two maximized children, of which the second mode's is the active one.
  void Prepare(const std::string& command) {
    frame_.CloseChildren();
    first_ = frame_.OpenChild(kItemClassesCaption)->Handle();
    second_ = frame_.OpenChild(kPriceDownCaption)->Handle();
    if (command == "存货跌价准备") frame_.OpenChild(kItemClassesCaption);
    dialog_.clear();
    RunMessages();
  }
  HWND Active() const {
    const ChildWindow* child = frame_.ActiveChild();
    return child == nullptr ? nullptr : child->Handle();
  }
  RECT Place(HWND child) const {
    RECT area{};
    GetWindowRect(child, &area);
    return area;
  }
  // The children are restored; `down` below each other, or side by side.
  bool Arranged(bool down) const {
    if (IsZoomed(first_) != FALSE || IsZoomed(second_) != FALSE) return false;
    return (Place(first_).top != Place(second_).top) == down;
  }

  // The frame's own message loop, until the input is handled and no dialog is open.
  void Run() {
    const UINT_PTR timer = SetTimer(nullptr, 0, 40, &OnTimer);
    frame_.Run();
    KillTimer(nullptr, timer);
  }
  void Press(const std::string& key) {
    for (const auto& step : StepsOfKey(PressOfText(key))) {
      step();
      Run();
    }
  }
  void ChooseFromMenus(const std::string& command) {
    const HMENU bar = GetMenu(frame_.Handle());
    for (int i = 0; i < GetMenuItemCount(bar); ++i) {
      const HMENU menu = GetSubMenu(bar, i);
      for (int line = 0; line < GetMenuItemCount(menu); ++line) {
        const auto [text, letter] = LineOf(menu, line);
        if (text != command) continue;
        letter_ = std::towlower(letter);
        PostMessageW(frame_.Handle(), WM_SYSCOMMAND, SC_KEYMENU,
                     std::towlower(LineOf(bar, i).second));
        return Run();
      }
    }
    FAIL() << "no line " << command;
  }
  void ExpectDialog() {
    user_.Will([this](HWND dialog) {
      dialog_ = Utf8(pricedown::windows::TextOf(dialog));
      DialogUser::Press(dialog, IDCANCEL);
    });
  }

  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    GUITHREADINFO thread{};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetCurrentThreadId(), &thread);
    const HWND frame = running_->frame_.Handle();
    if ((thread.flags & GUI_INMENUMODE) != 0) {
      const wchar_t letter = std::exchange(running_->letter_, L'\0');
      if (letter != L'\0') PostMessageW(frame, WM_CHAR, letter, 1);
    } else if (frame == nullptr || IsWindowEnabled(frame) != FALSE) {
      PostQuitMessage(0);
    }
  }

  static inline PressedHostKeys* running_ = nullptr;
  wchar_t letter_ = L'\0';
  HWND first_ = nullptr;
  HWND second_ = nullptr;
  std::string dialog_;
  DialogUser user_;

  const std::map<std::string, std::function<bool()>> ran_{
      {"打开公司", [this] { return dialog_ == "打开公司"; }},
      {"物料类别维护", [this] { return Active() == first_; }},
      {"存货跌价准备", [this] { return Active() == second_; }},
      {"系统设置", [this] { return dialog_ == "系统设置"; }},
      {"下一个窗口", [this] { return Active() == first_; }},
      {"关闭窗口", [this] { return IsWindow(second_) == FALSE && Active() == first_; }},
      {"层叠", [this] { return Arranged(true); }},
      {"平铺", [this] { return Arranged(false); }},
      {"退出", [this] { return frame_.Handle() == nullptr; }},
  };
};

TEST_F(PressedHostKeys, RunTheCommandsOfTheHost) {
  std::size_t pressed = 0;
  const auto run = [&](const GuideKey& row, const std::string& key) {
    SCOPED_TRACE(key + ", " + row.command);
    ASSERT_TRUE(ran_.contains(row.command));
    ASSERT_NE(frame_.Handle(), nullptr) << "a line behind the one that closes it";
    Prepare(row.command);
    ASSERT_FALSE(ran_.at(row.command)()) << "before";
    if (row.command == "打开公司" || row.command == "系统设置") ExpectDialog();
    if (key.empty()) {
      ChooseFromMenus(row.command);
    } else {
      Press(key);
    }
    EXPECT_TRUE(ran_.at(row.command)());
    ++pressed;
  };
  for (const GuideKey& row : ReadGuideKeys()) {
    if (row.place != "host") continue;
    for (const std::string& key : row.keys) run(row, key);
    if (row.way == "menu") run(row, "");
  }
  EXPECT_EQ(pressed, 9u);
}

}  // namespace
}  // namespace workbench
