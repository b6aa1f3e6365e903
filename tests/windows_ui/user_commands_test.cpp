// The commands of tree and grid by key and by context menu, and the way that they take.
#include <gtest/gtest.h>

#include <array>

#include "store/statements.h"
#include "tests/support/utf8.h"
#include "tests/windows_ui/context_menus.h"
#include "tests/windows_ui/message_boxes.h"
#include "tests/windows_ui/picture.h"
#include "tests/windows_ui/ui_world.h"
#include "windows/ui/clipboard.h"
#include "windows/ui/control_ids.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

const std::vector<std::string> kTreeLines{"新增\tIns", "修改\tF2",     "删除\tDel", "-",
                                          "刷新\tF5",  "打印\tCtrl+P", "预览"};

class UserCommands : public ::testing::Test {
 protected:
  // All rights refused: the check that is asked for tells the command, and nothing else happens.
  void Start(const char16_t* mode = u"1") {
    world_.suite.company.mode = mode;
    world_.suite.company.grantedMasks = "none";
    world_.Start();
    world_.suite.log.Clear();
  }

  // The masks that were asked for since the last time, a blank behind each.
  std::string Asked() {
    std::string masks;
    const std::string start = "ZEPEBCGLView.GLData.AccessCheck(1002, 35, ";
    for (const std::string& line : world_.suite.log.Lines()) {
      if (line.starts_with(start))
        masks += line.substr(start.size(), line.size() - start.size() - 1) + " ";
    }
    world_.suite.log.Clear();
    return masks;
  }
  std::size_t Loads(std::u16string_view classNumber) const {
    return world_.suite.log.Count(ExecuteLine(statements::ItemsOfClass(classNumber)));
  }
  std::size_t TreeLoads() const {
    return world_.suite.log.Count(ExecuteLine(statements::ClassTree()));
  }

  void RightClick(HWND window, POINT point) {
    POINT onScreen = point;
    ClientToScreen(window, &onScreen);
    SetCursorPos(onScreen.x, onScreen.y);
    const LPARAM place = MAKELPARAM(point.x, point.y);
    PostMessageW(window, WM_RBUTTONDOWN, MK_RBUTTON, place);
    PostMessageW(window, WM_RBUTTONUP, 0, place);
    RunMessages();
  }
  void AskByKeyboard(HWND window) {
    SetFocus(window);
    PostMessageW(window, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window), -1);
    RunMessages();
  }
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
  static constexpr POINT kFirstCell{20, 30};

  UiWorld world_;
};

TEST_F(UserCommands, KeysInTreeAndGridAskForTheRightsOfTheStripsButtons) {
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

TEST_F(UserCommands, AKeyHasTheEffectsOfTheButtonAndNoOther) {
  Start();
  world_.Click(world_.Strip(), world_.ButtonPoint(2));
  const std::string clicked = world_.suite.log.Text();
  SetFocus(world_.Tree());
  world_.suite.log.Clear();
  world_.Press(VK_INSERT);
  EXPECT_EQ(world_.suite.log.Text(), clicked);
}

TEST_F(UserCommands, F5LoadsTheItemsAgainAndNothingElse) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(3));
  for (const HWND window : {world_.Tree(), world_.Grid()}) {
    SetFocus(window);
    world_.suite.log.Clear();
    world_.Press(VK_F5);
    EXPECT_EQ(Loads(u"02"), 1u);
    EXPECT_EQ(TreeLoads(), 0u);
  }
  world_.control->Bar()->Add({u"iRefresh", u"", u"", u""})->SetEnabled(false);
  world_.suite.log.Clear();
  world_.Press(VK_F5);
  EXPECT_EQ(world_.suite.log.Text(), "");
}

TEST_F(UserCommands, KeysOfDisabledCommandsDoNothing) {
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

TEST_F(UserCommands, KeysWithOtherModifiersAreNoCommands) {
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

TEST_F(UserCommands, AKeyThatIsHeldDownGivesItsCommandOnce) {
  Start();
  SetFocus(world_.Tree());
  for (const LPARAM data : {LPARAM{1}, LPARAM{0x40000001}, LPARAM{0x40000001}}) {
    PostMessageW(world_.Tree(), WM_KEYDOWN, VK_DELETE, data);
  }
  RunMessages();
  EXPECT_EQ(Asked(), "65536 ");
}

TEST_F(UserCommands, TheHostLeavesTheKeysOfTreeAndGridToThem) {
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

TEST_F(UserCommands, TheHostKeepsTheKeysOfDisabledCommands) {
  Start(u"2");
  const auto refresh = world_.control->Bar()->Add({u"iRefresh", u"", u"", u""});
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

TEST_F(UserCommands, TheGridTypesOnTheKeysOfADisabledEdit) {
  world_.Start();
  world_.Click(world_.Tree(), world_.NodePoint(2));
  world_.window->SetStripButtonEnabled(3, false);
  SetFocus(world_.Grid());
  EXPECT_FALSE(Translate(world_.Grid(), VK_F2));
  world_.Press(VK_END);
  EXPECT_TRUE(Translate(world_.Grid(), VK_F2));
  EXPECT_NE(Editor(), nullptr);
}

TEST_F(UserCommands, TheHostLeavesTheKeysOfTypingToAnOpenCell) {
  // With all rights, because without a data scope no cell is open.
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
  EXPECT_EQ(Utf8(world_.control->ItemSheet().Text(4, 1)), "2.00");
}

TEST_F(UserCommands, TheTreesMenuShowsTheCommandsWithTheirKeys) {
  Start();
  ContextMenus menu(0, "menu of the tree");
  RightClick(world_.Tree(), world_.NodePoint(3));
  EXPECT_EQ(menu.Lines(), kTreeLines);
  KeepPicture(world_.host.Handle(), "right click on a node");
}

TEST_F(UserCommands, TheGridsMenuCopiesToo) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(2));
  ContextMenus menu(7, "menu of the grid");
  RightClick(world_.Grid(), kFirstCell);
  std::vector<std::string> lines = kTreeLines;
  lines.insert(lines.end(), {"-", "复制\tCtrl+C"});
  EXPECT_EQ(menu.Lines(), lines);
  EXPECT_EQ(Utf8(windows::ClipboardText(world_.Grid())),
            Utf8(world_.control->ItemSheet().Text(1, 1)));
}

TEST_F(UserCommands, NothingCanBeCopiedFromAnEmptyGrid) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(4));
  ContextMenus menu;
  AskByKeyboard(world_.Grid());
  ASSERT_EQ(menu.Lines().size(), 9u);
  EXPECT_EQ(menu.Lines().back(), "[复制\tCtrl+C]");
}

TEST_F(UserCommands, TheMenuSaysWhatIsDisabled) {
  Start(u"2");
  world_.control->Bar()->Add({u"iRefresh", u"", u"", u""})->SetEnabled(false);
  ContextMenus menu(0, "menu disabled");
  AskByKeyboard(world_.Tree());
  EXPECT_EQ(menu.Lines(), (std::vector<std::string>{"[新增\tIns]", "[修改\tF2]", "[删除\tDel]", "-",
                                                    "[刷新\tF5]", "打印\tCtrl+P", "预览"}));
}

TEST_F(UserCommands, ARightClickOnANodeSelectsItAsAClickDoes) {
  Start();
  {
    ContextMenus menu;
    RightClick(world_.Tree(), world_.NodePoint(3));
  }
  EXPECT_EQ(world_.window->SelectedNode(), 3);
  EXPECT_EQ(Loads(u"02"), 1u);
  {
    // It is the one already.
    ContextMenus menu;
    RightClick(world_.Tree(), world_.NodePoint(3));
    EXPECT_EQ(menu.Lines(), kTreeLines);
  }
  EXPECT_EQ(Loads(u"02"), 1u);
}

TEST_F(UserCommands, ARightClickBesideTheNodesSelectsNothing) {
  Start();
  const NodeIndex before = world_.window->SelectedNode();
  RECT client{};
  GetClientRect(world_.Tree(), &client);
  ContextMenus menu;
  RightClick(world_.Tree(), {client.right - 5, client.bottom - 5});
  EXPECT_EQ(menu.Lines(), kTreeLines);
  EXPECT_EQ(world_.window->SelectedNode(), before);
  EXPECT_EQ(world_.suite.log.Text(), "");
}

struct MenuCase {
  int line;
  const char* mask;
};

TEST_F(UserCommands, TheMenuTakesTheWayOfTheStripsButtons) {
  Start();
  for (const MenuCase& command :
       {MenuCase{1, "131072 "}, MenuCase{2, "4194304 "}, MenuCase{3, "65536 "},
        MenuCase{5, "32768 "}, MenuCase{6, "32768 "}}) {
    for (const HWND window : {world_.Tree(), world_.Grid()}) {
      ContextMenus menu(command.line);
      AskByKeyboard(window);
      EXPECT_EQ(TreeLoads(), 1u) << command.line;
      EXPECT_EQ(Asked(), command.mask) << command.line;
    }
  }
}

TEST_F(UserCommands, TheMenuRefreshesTheItems) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(3));
  world_.suite.log.Clear();
  ContextMenus menu(4);
  AskByKeyboard(world_.Tree());
  EXPECT_EQ(Loads(u"02"), 1u);
  EXPECT_EQ(TreeLoads(), 0u);
}

TEST_F(UserCommands, TheKeyboardsMenuOpensAtTheSelection) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(5));
  ContextMenus menu;
  AskByKeyboard(world_.Tree());
  POINT node = world_.NodePoint(5);
  ClientToScreen(world_.Tree(), &node);
  EXPECT_GT(menu.Place().top, node.y);
  EXPECT_LT(menu.Place().top, node.y + 30);
}

TEST_F(UserCommands, TheMenuKeyAndShiftF10OpenTheMenu) {
  Start();
  for (const HWND window : {world_.Tree(), world_.Grid()}) {
    SetFocus(window);
    {
      ContextMenus menu;
      world_.Press(VK_APPS);
      EXPECT_GE(menu.Lines().size(), 7u);
    }
    ContextMenus menu;
    std::array<BYTE, 256> before{};
    GetKeyboardState(before.data());
    std::array<BYTE, 256> shift = before;
    shift[VK_SHIFT] = 0x80;
    SetKeyboardState(shift.data());
    PostMessageW(window, WM_SYSKEYDOWN, VK_F10, 1);
    RunMessages();
    SetKeyboardState(before.data());
    EXPECT_GE(menu.Lines().size(), 7u);
  }
}

TEST_F(UserCommands, TheMenuShowsTheCaptionsThatTheSuiteGave) {
  Start();
  const ObjectPtr controls = world_.window->Form()->Get(u"Controls").Object();
  controls->Call(u"Item", {u"tbToolBar.Edit"}).Object()->Put(u"Caption", u"Change");
  ContextMenus menu;
  AskByKeyboard(world_.Tree());
  ASSERT_EQ(menu.Lines().size(), 7u);
  EXPECT_EQ(menu.Lines()[1], "Change\tF2");
}

// No lambda: its calling convention is another one on x86.
HWND frameToClose = nullptr;
void CALLBACK CloseFrame(HWND, UINT, UINT_PTR id, DWORD) {
  KillTimer(nullptr, id);
  DestroyWindow(frameToClose);
}

TEST_F(UserCommands, TheHostMayCloseEverythingWhileTheMenuIsOpen) {
  Start();
  frameToClose = world_.host.Handle();
  const UINT_PTR timer = SetTimer(nullptr, 0, 50, &CloseFrame);
  AskByKeyboard(world_.Tree());
  KillTimer(nullptr, timer);
  EXPECT_EQ(world_.window->Handle(), nullptr);
  EXPECT_EQ(Asked(), "");
}

}  // namespace
}  // namespace pricedown::testing
