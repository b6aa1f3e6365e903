// The commands of tree and grid by key, and the keys that the host leaves to them.
#include <array>

#include "tests/support/utf8.h"
#include "tests/windows/control/command_world.h"
#include "windows/base/control_ids.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

class CommandKeys : public CommandWorld {
 protected:
  bool Translate(HWND target, WPARAM key) {
    MSG message{};
    message.hwnd = target;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = 1;
    return world_.window->TranslateKey(message);
  }
  bool TranslateWith(int modifier, HWND target, WPARAM key) {
    std::array<BYTE, 256> before{};
    GetKeyboardState(before.data());
    std::array<BYTE, 256> state = before;
    state[static_cast<std::size_t>(modifier)] = 0x80;
    SetKeyboardState(state.data());
    const bool used = Translate(target, key);
    SetKeyboardState(before.data());
    return used;
  }
  HWND Editor() const { return GetDlgItem(world_.Grid(), ids::kCellEditor); }
};

TEST_F(CommandKeys, KeysInTreeAndGridRequestTheRightsOfTheStripsButtons) {
  Start();
  for (const HWND window : {world_.Tree(), world_.Grid()}) {
    SetFocus(window);
    world_.Press(VK_INSERT);
    EXPECT_EQ(Asked(), "131072 ");
    world_.Press(VK_F2);
    EXPECT_EQ(Asked(), "4194304 ");
    world_.Press(VK_RETURN);
    EXPECT_EQ(Asked(), "4194304 ");
    world_.Press(VK_DELETE);
    EXPECT_EQ(Asked(), "65536 ");
    world_.PressWith(VK_CONTROL, 'P');
    EXPECT_EQ(Asked(), "32768 ");
  }
}

TEST_F(CommandKeys, AKeyHasTheEffectsOfTheButtonAndNoOther) {
  Start();
  world_.Click(world_.Strip(), world_.ButtonPoint(2));
  const std::string clicked = world_.suite.log.Text();
  SetFocus(world_.Tree());
  world_.suite.log.Clear();
  world_.Press(VK_INSERT);
  EXPECT_EQ(world_.suite.log.Text(), clicked);
}

TEST_F(CommandKeys, F5LoadsTheItemsAgainAndNothingElse) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(3));
  for (const HWND window : {world_.Tree(), world_.Grid()}) {
    SetFocus(window);
    world_.suite.log.Clear();
    world_.Press(VK_F5);
    EXPECT_EQ(Loads(u"02"), 1u);
    EXPECT_EQ(TreeLoads(), 0u);
  }
  world_.control->BarList()->Add({u"iRefresh", u"", u"", u""})->SetEnabled(false);
  world_.suite.log.Clear();
  world_.Press(VK_F5);
  EXPECT_EQ(world_.suite.log.Text(), "");
}

TEST_F(CommandKeys, KeysOfDisabledCommandsDoNothing) {
  Start(u"2");
  for (const HWND window : {world_.Tree(), world_.Grid()}) {
    SetFocus(window);
    for (const WPARAM key : std::initializer_list<WPARAM>{VK_INSERT, VK_F2, VK_RETURN, VK_DELETE})
      world_.Press(key);
    EXPECT_EQ(world_.suite.log.Text(), "");
    world_.PressWith(VK_CONTROL, 'P');
    EXPECT_EQ(Asked(), "32768 ");
  }
}

TEST_F(CommandKeys, KeysWithOtherModifiersRunNoCommand) {
  Start();
  for (const HWND window : {world_.Tree(), world_.Grid()}) {
    SetFocus(window);
    for (const WPARAM key :
         std::initializer_list<WPARAM>{VK_INSERT, VK_F2, VK_RETURN, VK_DELETE, VK_F5}) {
      world_.PressWith(VK_SHIFT, key);
      world_.PressWith(VK_CONTROL, key);
    }
    world_.Press('P');
    EXPECT_EQ(world_.suite.log.Text(), "");
  }
}

TEST_F(CommandKeys, AKeyThatIsHeldDownRunsItsCommandOnce) {
  Start();
  SetFocus(world_.Tree());
  for (const LPARAM data : {LPARAM{1}, LPARAM{0x40000001}, LPARAM{0x40000001}}) {
    PostMessageW(world_.Tree(), WM_KEYDOWN, VK_DELETE, data);
  }
  RunMessages();
  EXPECT_EQ(Asked(), "65536 ");
}

TEST_F(CommandKeys, TheHostLeavesTheKeysOfTreeAndGridToThem) {
  Start();
  for (const HWND window : {world_.Tree(), world_.Grid()}) {
    EXPECT_TRUE(Translate(window, VK_RETURN));
    EXPECT_EQ(Asked(), "4194304 ");
    EXPECT_TRUE(Translate(window, VK_INSERT));
    EXPECT_EQ(Asked(), "131072 ");
    EXPECT_FALSE(Translate(window, VK_F9));
  }
  EXPECT_FALSE(Translate(world_.Strip(), VK_INSERT));
  EXPECT_FALSE(Translate(world_.Child(ids::kSplitter), VK_DELETE));
  EXPECT_EQ(world_.suite.log.Text(), "");
}

TEST_F(CommandKeys, TheHostKeepsTheKeysOfDisabledCommands) {
  Start(u"2");
  const auto refresh = world_.control->BarList()->Add({u"iRefresh", u"", u"", u""});
  for (const HWND window : {world_.Tree(), world_.Grid()}) {
    for (const WPARAM key : std::initializer_list<WPARAM>{VK_INSERT, VK_F2, VK_RETURN, VK_DELETE})
      EXPECT_FALSE(Translate(window, key)) << key;
    refresh->SetEnabled(true);
    EXPECT_TRUE(Translate(window, VK_F5));
    refresh->SetEnabled(false);
    EXPECT_FALSE(Translate(window, VK_F5));
    EXPECT_TRUE(TranslateWith(VK_CONTROL, window, 'P'));
  }
}

TEST_F(CommandKeys, TheGridTypesOnTheKeysOfADisabledEdit) {
  world_.suite.company.mode = u"2";
  world_.Start();
  world_.Click(world_.Tree(), world_.NodePoint(1));
  SetFocus(world_.Grid());
  EXPECT_FALSE(Translate(world_.Grid(), VK_F2));
  world_.Press(VK_END);
  EXPECT_TRUE(Translate(world_.Grid(), VK_F2));
  EXPECT_NE(Editor(), nullptr);
}

TEST_F(CommandKeys, TheUserTypesOnWhenTheSystemsSettingsChange) {
  world_.Start();
  world_.Click(world_.Tree(), world_.NodePoint(2));
  SetFocus(world_.Grid());
  world_.Press(VK_END);
  const std::int32_t column = world_.control->GetGrid().MaxColumns();
  world_.Type(u"7");
  ASSERT_NE(Editor(), nullptr);
  SendMessageW(world_.window->Handle(), WM_SETTINGCHANGE, 0, 0);
  world_.Type(u"5");
  world_.control->GetGrid().AcceptTyping();
  EXPECT_EQ(Utf8(world_.control->GetGrid().Text(column, world_.window->CurrentRow())), "75.00");
}

TEST_F(CommandKeys, TheHostLeavesTheKeysOfTypingToAnOpenCell) {
  // With all rights, because without a data scope no cell is unlocked.
  world_.Start();
  world_.Click(world_.Tree(), world_.NodePoint(2));
  SetFocus(world_.Grid());
  world_.Press(VK_END);
  world_.Type(u"12");
  ASSERT_NE(Editor(), nullptr);
  world_.suite.log.Clear();
  world_.Press(VK_HOME);
  EXPECT_TRUE(Translate(Editor(), VK_DELETE));
  EXPECT_TRUE(Translate(Editor(), VK_INSERT));
  EXPECT_FALSE(Translate(Editor(), VK_F9));
  for (const int modifier : {VK_CONTROL, VK_SHIFT}) {
    EXPECT_FALSE(TranslateWith(modifier, Editor(), VK_F5));
    world_.PressWith(modifier, VK_F5);
  }
  EXPECT_EQ(GetFocus(), Editor());
  EXPECT_TRUE(TranslateWith(VK_CONTROL, Editor(), 'A'));
  world_.Press(VK_HOME);
  EXPECT_EQ(Asked(), "");
  EXPECT_TRUE(Translate(Editor(), VK_RETURN));
  EXPECT_EQ(Utf8(world_.control->GetGrid().Text(4, 1)), "2.00");
}

}  // namespace
}  // namespace pricedown::testing
