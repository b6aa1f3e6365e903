// The tool strip and the commands that its buttons start.
#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "control/commands.h"
#include "platform/error.h"
#include "tests/windows/base/message_boxes.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/control/context_menus.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

constexpr std::size_t kAdd = 2;
constexpr std::size_t kPrint = 5;
constexpr std::size_t kExit = 8;

bool IsEnabled(const UiWorld& world, std::size_t position) {
  return SendMessageW(world.Strip(), TB_ISBUTTONENABLED, ids::kFirstButton + position, 0) != 0;
}

int HotButton(const UiWorld& world) {
  return static_cast<int>(SendMessageW(world.Strip(), TB_GETHOTITEM, 0, 0));
}

// The rights check of a button, refused so that nothing else happens.
std::size_t Checks(const UiWorld& world, const std::string& mask) {
  return world.suite.log.Count("ZEPEBCGLView.GLData.AccessCheck(1002, 35, " + mask + ")");
}

TEST(ToolStripWindow, HasTheButtonsInTheirOrder) {
  UiWorld world;
  world.Start();
  const auto commands = CommandsOn(surface::kToolStrip);
  ASSERT_EQ(SendMessageW(world.Strip(), TB_BUTTONCOUNT, 0, 0), 8);
  for (std::size_t i = 0; i < 8; ++i) {
    TBBUTTON button{};
    SendMessageW(world.Strip(), TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button));
    EXPECT_EQ(button.idCommand, ids::kFirstButton + static_cast<int>(i) + 1);
    EXPECT_EQ((button.fsStyle & BTNS_SEP) != 0, commands[i]->separator) << i;
  }
}

TEST(ToolStripWindow, AClickRequestsTheButtonsRight) {
  UiWorld world;
  world.suite.company.grantedMasks = "none";
  world.Start();
  world.Click(world.Strip(), world.ButtonPoint(kPrint));
  EXPECT_EQ(Checks(world, "32768"), 1u);
  world.Click(world.Strip(), world.ButtonPoint(kAdd));
  EXPECT_EQ(Checks(world, "131072"), 1u);
}

TEST(ToolStripWindow, DisabledButtonsDoNothingAndLookDisabled) {
  UiWorld world;
  world.suite.company.mode = u"2";
  world.Start();
  EXPECT_FALSE(IsEnabled(world, 2));
  EXPECT_FALSE(IsEnabled(world, 3));
  EXPECT_FALSE(IsEnabled(world, 4));
  EXPECT_TRUE(IsEnabled(world, kPrint));
  KeepPicture(world.host.Handle(), "class commands disabled");
  world.Click(world.Strip(), world.ButtonPoint(kAdd));
  EXPECT_EQ(Checks(world, "131072"), 0u);
}

TEST(ToolStripWindow, IsOperatedByKeyboard) {
  UiWorld world;
  world.suite.company.grantedMasks = "none";
  world.Start();
  SetFocus(world.Strip());
  EXPECT_EQ(HotButton(world), 1);
  world.Press(VK_RIGHT);
  world.Press(VK_RIGHT);
  world.Press(VK_RIGHT);
  EXPECT_EQ(HotButton(world), 4);
  KeepPicture(world.host.Handle(), "hot button");
  world.Press(VK_SPACE);
  EXPECT_EQ(Checks(world, "32768"), 1u);
  world.Press(VK_END);
  EXPECT_EQ(HotButton(world), 7);
  world.Press(VK_RIGHT);
  EXPECT_EQ(HotButton(world), 7);
  world.Press(VK_HOME);
  world.Press(VK_RETURN);
  EXPECT_EQ(Checks(world, "131072"), 1u);
}

// The keyboard is on the strip's fourth button.
class ToolStripKeyboard : public ::testing::Test {
 protected:
  ToolStripKeyboard() {
    world_.Start();
    SetFocus(world_.Strip());
    for (int i = 0; i < 3; ++i) world_.Press(VK_RIGHT);
  }
  ~ToolStripKeyboard() override { DestroyWindow(other_); }

  // It is in the strip again, after the focus was in `window`.
  void LeaveForAndReturn(HWND window) {
    SetFocus(window);
    EXPECT_EQ(HotButton(world_), -1);
    SetFocus(world_.Strip());
  }

  UiWorld world_;
  const HWND other_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9,
                                      world_.host.Handle(), nullptr, nullptr, nullptr);
};

TEST_F(ToolStripKeyboard, IsBackOnItsButtonAfterAnotherWindow) {
  LeaveForAndReturn(other_);
  EXPECT_EQ(HotButton(world_), 4);
  LeaveForAndReturn(world_.Tree());
  EXPECT_EQ(HotButton(world_), 1) << "by Tab";
  world_.Press(VK_RIGHT);
  SetFocus(other_);
  LeaveForAndReturn(world_.Tree());
  EXPECT_EQ(HotButton(world_), 1) << "by Tab, after another window";
}

TEST_F(ToolStripKeyboard, IsBackOnItsButtonWhenTheHostPassesTheFocusToTheControl) {
  SetFocus(other_);
  SetFocus(world_.window->Handle());
  EXPECT_EQ(GetFocus(), world_.Strip());
  EXPECT_EQ(HotButton(world_), 4);
}

TEST_F(ToolStripKeyboard, IsOnTheFirstButtonIfItsOwnWasDisabledMeanwhile) {
  SetFocus(other_);
  SendMessageW(world_.Strip(), TB_ENABLEBUTTON, ids::kFirstButton + kPrint, FALSE);
  SetFocus(world_.Strip());
  EXPECT_EQ(HotButton(world_), 1);
}

TEST(ToolStripWindow, TheKeyboardSkipsDisabledButtonsAndSeparators) {
  UiWorld world;
  world.suite.company.mode = u"2";
  world.Start();
  SetFocus(world.Strip());
  EXPECT_EQ(HotButton(world), 4);
  world.Press(VK_RIGHT);
  world.Press(VK_RIGHT);
  EXPECT_EQ(HotButton(world), 7);
}

// What the button at that position shows while the mouse is over it.
std::string TooltipOf(const UiWorld& world, std::size_t position) {
  NMTTDISPINFOW info{};
  info.hdr.hwndFrom = reinterpret_cast<HWND>(SendMessageW(world.Strip(), TB_GETTOOLTIPS, 0, 0));
  info.hdr.code = TTN_GETDISPINFOW;
  info.hdr.idFrom = ids::kFirstButton + position;
  SendMessageW(world.window->Handle(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&info));
  return info.lpszText == nullptr ? "none" : Utf8(windows::FromWide(info.lpszText));
}

TEST(ToolStripWindow, ReturnsTheTooltipOfAButton) {
  UiWorld world;
  world.Start();
  EXPECT_EQ(TooltipOf(world, kExit), "退出系统");
  // With the shortcut of the same command in tree and grid.
  const std::array<const char*, 5> tips{"新增 (Ins)", "修改 (F2)", "删除 (Del)", "打印 (Ctrl+P)",
                                        "预览"};
  for (std::size_t i = 0; i < tips.size(); ++i) EXPECT_EQ(TooltipOf(world, 2 + i), tips[i]);
}

TEST(ToolStripWindow, ItsTooltipsAreInTheLanguageOfItsCaptions) {
  UiWorld world;
  world.Start();
  const ObjectPtr controls = world.window->Form()->Get(u"Controls").Object();
  const ObjectPtr add = controls->Call(u"Item", {u"tbToolBar.Add"}).Object();
  add->Put(u"Caption", u"New");
  EXPECT_EQ(TooltipOf(world, kAdd), "New (Ins)");
  EXPECT_EQ(TooltipOf(world, kExit), "退出系统");
}

TEST(ToolStripWindow, AFailingCommandIsReportedToTheUser) {
  UiWorld world;
  world.Start();
  world.suite.container.onClose = [] {
    throw AutomationError(ErrorNumber::Unspecified, u"窗口无法关闭", u"host");
  };
  MessageBoxes boxes;
  world.Click(world.Strip(), world.ButtonPoint(kExit));
  ASSERT_EQ(boxes.All().size(), 1u);
  EXPECT_EQ(boxes.All()[0].title, "岚禾提示");
  EXPECT_EQ(boxes.All()[0].text, "窗口无法关闭");
  EXPECT_EQ(boxes.All()[0].owner, world.host.Handle());
  EXPECT_TRUE(IsWindow(world.Strip()));
}

using PressExit = void (*)(HWND strip, POINT button);

void CloseByExit(PressExit press) {
  auto owned = std::make_shared<UiWorld>();
  const std::weak_ptr<UiWorld> watch = owned;
  UiWorld& world = *owned;
  world.Start();
  // As the control's owner does: control and windows live as long as they are referenced.
  world.window->HoldDuringEvents([watch] { return watch.lock(); });
  const HWND strip = world.Strip();
  const POINT button = world.ButtonPoint(kExit);
  world.suite.container.onClose = [&owned] {
    DestroyWindow(owned->host.Handle());
    // The last reference except the event's own.
    owned.reset();
  };
  press(strip, button);
  RunMessages();
  EXPECT_EQ(owned, nullptr);
  EXPECT_TRUE(watch.expired());
  EXPECT_FALSE(IsWindow(strip));
}

TEST(ToolStripWindow, SurvivesAHostThatClosesEverythingOnAClick) {
  CloseByExit([](HWND strip, POINT button) {
    PostMessageW(strip, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(button.x, button.y));
    PostMessageW(strip, WM_LBUTTONUP, 0, MAKELPARAM(button.x, button.y));
  });
}

TEST(ToolStripWindow, SurvivesAHostThatClosesEverythingOnAKey) {
  CloseByExit([](HWND strip, POINT) {
    SetFocus(strip);
    PostMessageW(strip, WM_KEYDOWN, VK_END, 1);
    PostMessageW(strip, WM_KEYDOWN, VK_RETURN, 1);
  });
}

// A test tool sends the command alone; it runs with the tool strip's next message.
TEST(ToolStripWindow, SurvivesAHostThatClosesEverythingWhileTheStripIsSized) {
  CloseByExit([](HWND strip, POINT) {
    SendMessageW(GetParent(strip), WM_COMMAND, ids::kFirstButton + kExit,
                 reinterpret_cast<LPARAM>(strip));
    SendMessageW(strip, WM_SIZE, SIZE_RESTORED, MAKELPARAM(300, 30));
  });
}

std::size_t Colours(const Picture& picture, const RECT& area) {
  std::set<std::uint32_t> colours;
  for (LONG y = area.top; y < area.bottom; ++y) {
    for (LONG x = area.left; x < area.right; ++x) {
      colours.insert(picture.At(static_cast<int>(x), static_cast<int>(y)));
    }
  }
  return colours.size();
}

TEST(ToolStripWindow, ShowsAnArrowToWhatANarrowControlLeavesOut) {
  UiWorld world;
  world.suite.company.grantedMasks = "none";
  world.Start();
  RECT print{};
  SendMessageW(world.Strip(), TB_GETITEMRECT, kPrint - 1, reinterpret_cast<LPARAM>(&print));
  // With the arrow there is no room for 打印.
  world.window->MoveTo({0, 0, print.right, 400});
  RunMessages();
  EXPECT_EQ(SendMessageW(world.Strip(), TB_BUTTONCOUNT, 0, 0), 9);
  EXPECT_EQ(SendMessageW(world.Strip(), TB_ISBUTTONHIDDEN, ids::kFirstButton + kAdd, 0), 0);
  EXPECT_NE(SendMessageW(world.Strip(), TB_ISBUTTONHIDDEN, ids::kFirstButton + kPrint, 0), 0);
  KeepPicture(world.host.Handle(), "strip too narrow");
  RECT arrow{};
  SendMessageW(world.Strip(), TB_GETITEMRECT, 8, reinterpret_cast<LPARAM>(&arrow));
  EXPECT_LE(arrow.right, print.right);
  EXPECT_GT(Colours(CapturePicture(world.Strip()), arrow), 1u) << "it is drawn";
  {
    ContextMenus menu(1, "strip too narrow menu");
    SetFocus(world.Strip());
    world.Press(VK_END);
    world.Press(VK_RETURN);
    EXPECT_EQ(menu.Lines(), (std::vector<std::string>{"打印\tCtrl+P", "预览", "-", "退出"}));
  }
  EXPECT_EQ(Checks(world, "32768"), 1u);
  world.window->MoveTo(world.host.Inside());
  RunMessages();
  EXPECT_EQ(SendMessageW(world.Strip(), TB_BUTTONCOUNT, 0, 0), 8);
  EXPECT_EQ(SendMessageW(world.Strip(), TB_ISBUTTONHIDDEN, ids::kFirstButton + kExit, 0), 0);
}

}  // namespace
}  // namespace pricedown::testing
