// The commands of tree and grid by context menu: its contents and what the commands call.
#include <array>
#include <string>
#include <vector>

#include "tests/support/utf8.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/control/command_world.h"
#include "tests/windows/control/context_menus.h"
#include "windows/base/clipboard.h"

namespace pricedown::testing {
namespace {

const std::vector<std::string> kTreeLines{"新增\tIns",
                                          "修改\tF2",
                                          "删除\tDel",
                                          "-",
                                          "刷新\tF5",
                                          "打印\tCtrl+P",
                                          "预览",
                                          "-",
                                          "查找\tCtrl+F",
                                          "[查找下一个\tF3]",
                                          "[查找上一个\tShift+F3]"};

class CommandMenus : public CommandWorld {
 protected:
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
  static constexpr POINT kFirstCell{20, 30};
};

TEST_F(CommandMenus, TheTreesMenuShowsTheCommandsWithTheirKeys) {
  Start();
  ContextMenus menu(0, "menu of the tree");
  RightClick(world_.Tree(), world_.NodePoint(3));
  EXPECT_EQ(menu.Lines(), kTreeLines);
  KeepPicture(world_.host.Handle(), "right click on a node");
}

TEST_F(CommandMenus, TheGridsMenuCopiesToo) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(2));
  ContextMenus menu(7, "menu of the grid");
  RightClick(world_.Grid(), kFirstCell);
  std::vector<std::string> lines = kTreeLines;
  const std::vector<std::string> copying{"-", "复制\tCtrl+C", "连同标题复制\tCtrl+Shift+C"};
  lines.insert(lines.begin() + 7, copying.begin(), copying.end());
  EXPECT_EQ(menu.Lines(), lines);
  EXPECT_EQ(Utf8(windows::ClipboardText(world_.Grid())),
            Utf8(world_.control->GetGrid().Text(1, 1)));
}

TEST_F(CommandMenus, NothingCanBeCopiedFromAnEmptyGrid) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(4));
  ContextMenus menu;
  AskByKeyboard(world_.Grid());
  ASSERT_EQ(menu.Lines().size(), 14u);
  EXPECT_EQ(menu.Lines()[8], "[复制\tCtrl+C]");
  EXPECT_EQ(menu.Lines()[9], "[连同标题复制\tCtrl+Shift+C]");
}

TEST_F(CommandMenus, TheMenuShowsWhatIsDisabled) {
  Start(u"2");
  world_.control->BarList()->Add({u"iRefresh", u"", u"", u""})->SetEnabled(false);
  ContextMenus menu(0, "menu disabled");
  AskByKeyboard(world_.Tree());
  EXPECT_EQ(menu.Lines(),
            (std::vector<std::string>{"[新增\tIns]", "[修改\tF2]", "[删除\tDel]", "-", "[刷新\tF5]",
                                      "打印\tCtrl+P", "预览", "-", "查找\tCtrl+F",
                                      "[查找下一个\tF3]", "[查找上一个\tShift+F3]"}));
}

TEST_F(CommandMenus, ARightClickOnANodeSelectsItAsAClickDoes) {
  Start();
  {
    ContextMenus menu;
    RightClick(world_.Tree(), world_.NodePoint(3));
  }
  EXPECT_EQ(world_.window->SelectedNode(), 3);
  EXPECT_EQ(Loads(u"02"), 1u);
  {
    // It already is the selected one.
    ContextMenus menu;
    RightClick(world_.Tree(), world_.NodePoint(3));
    EXPECT_EQ(menu.Lines(), kTreeLines);
  }
  EXPECT_EQ(Loads(u"02"), 1u);
}

TEST_F(CommandMenus, ARightClickBesideTheNodesSelectsNothing) {
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

TEST_F(CommandMenus, TheMenuRunsCommandsLikeTheStripsButtons) {
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

TEST_F(CommandMenus, TheMenuRefreshesTheItems) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(3));
  world_.suite.log.Clear();
  ContextMenus menu(4);
  AskByKeyboard(world_.Tree());
  EXPECT_EQ(Loads(u"02"), 1u);
  EXPECT_EQ(TreeLoads(), 0u);
}

TEST_F(CommandMenus, TheKeyboardsMenuOpensAtTheSelection) {
  Start();
  world_.Click(world_.Tree(), world_.NodePoint(5));
  ContextMenus menu;
  AskByKeyboard(world_.Tree());
  POINT node = world_.NodePoint(5);
  ClientToScreen(world_.Tree(), &node);
  EXPECT_GT(menu.Place().top, node.y);
  EXPECT_LT(menu.Place().top, node.y + 30);
}

TEST_F(CommandMenus, TheMenuKeyAndShiftF10OpenTheMenu) {
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

TEST_F(CommandMenus, TheMenuShowsTheSuitesCaptions) {
  Start();
  const ObjectPtr controls = world_.window->Form()->Get(u"Controls").Object();
  controls->Call(u"Item", {u"tbToolBar.Edit"}).Object()->Put(u"Caption", u"Change");
  ContextMenus menu;
  AskByKeyboard(world_.Tree());
  ASSERT_EQ(menu.Lines().size(), 11u);
  EXPECT_EQ(menu.Lines()[1], "Change\tF2");
}

// Not a lambda: its calling convention differs on x86.
HWND frameToClose = nullptr;
void CALLBACK CloseFrame(HWND, UINT, UINT_PTR id, DWORD) {
  KillTimer(nullptr, id);
  DestroyWindow(frameToClose);
}

TEST_F(CommandMenus, TheHostMayCloseEverythingWhileTheMenuIsOpen) {
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
