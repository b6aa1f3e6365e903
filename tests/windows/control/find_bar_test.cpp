// The find bar in its window: keys, focus, input methods, and a count that waits for the keys.
#include <gtest/gtest.h>

#include <imm.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "control/commands.h"
#include "store/statements.h"
#include "tests/support/utf8.h"
#include "tests/windows/base/picture.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/base/plain_control.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

using Texts = std::vector<std::string>;

class FindBar : public ::testing::Test {
 protected:
  FindBar() {
    world_.Start();
    world_.Click(world_.Tree(), world_.NodePoint(13));  // 127 items
  }
  HWND Bar() const { return world_.Child(ids::kFindBar); }
  HWND Field() const { return GetDlgItem(Bar(), ids::kFindField); }
  std::string Count() const { return Utf8(windows::TextOf(GetDlgItem(Bar(), ids::kFindCount))); }
  bool IsOpen() const { return IsWindowVisible(Bar()) != FALSE; }
  void Open(HWND pane) {
    SetFocus(pane);
    world_.PressWith(VK_CONTROL, 'F');
  }
  // As a host that offers each key to the control first.
  bool Offer(WPARAM key, int modifier = 0) {
    std::array<BYTE, 256> before{};
    GetKeyboardState(before.data());
    std::array<BYTE, 256> state = before;
    if (modifier != 0) state[static_cast<std::size_t>(modifier)] = 0x80;
    SetKeyboardState(state.data());
    MSG message{};
    message.hwnd = GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    message.lParam = 1;
    const bool used = world_.window->TranslateKey(message);
    RunMessages();
    SetKeyboardState(before.data());
    return used;
  }
  // `cause` makes the bar speak a count; a client then destroys the window.
  bool IsHeldWhenItIsEndedAtACount(const std::function<void()>& cause) {
    Open(world_.Grid());
    return IsHeldWhenAClientEndsIt(world_, cause);
  }
  std::string Current() const {
    const auto row = world_.window->CurrentRow();
    return Utf8(world_.control->GetGrid().Text(1, row));
  }

  UiWorld world_;
};

TEST_F(FindBar, OpensOverTheHeadingOfItsPaneAndReturnsThere) {
  for (const auto& [pane, heading] :
       {std::pair{world_.Grid(), ids::kItemHeading}, {world_.Tree(), ids::kClassHeading}}) {
    Open(pane);
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(GetFocus(), Field());
    RECT bar{};
    RECT under{};
    GetWindowRect(Bar(), &bar);
    GetWindowRect(world_.Child(heading), &under);
    EXPECT_TRUE(EqualRect(&bar, &under));
    world_.Press(VK_ESCAPE);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(GetFocus(), pane);
  }
}

TEST_F(FindBar, FindsAsTheUserTypesAndGoesOnByKeys) {
  Open(world_.Grid());
  world_.Type(u"轴承");
  EXPECT_EQ(Current(), "12.01.002");
  EXPECT_EQ(Count(), "1 / 16");
  KeepPicture(world_.host.Handle(), "find in the grid");
  world_.Press(VK_F3);
  EXPECT_EQ(Current(), "12.01.010");
  EXPECT_EQ(Count(), "2 / 16");
  world_.PressWith(VK_SHIFT, VK_F3);
  EXPECT_EQ(Current(), "12.01.002");
  world_.Press(VK_RETURN);
  EXPECT_EQ(Current(), "12.01.010");
  EXPECT_EQ(GetFocus(), Field());
  world_.Press(VK_ESCAPE);
  world_.Press(VK_F3);
  EXPECT_EQ(Current(), "12.01.018") << "also without the bar";
}

TEST_F(FindBar, MarksTheFoundCellWhileTheFocusIsInTheBar) {
  const auto isMarked = [this] {
    const COLORREF mark = GetSysColor(COLOR_HIGHLIGHT);
    const std::uint32_t colour =
        static_cast<std::uint32_t>(GetRValue(mark) << 16 | GetGValue(mark) << 8 | GetBValue(mark));
    const Picture picture = CapturePicture(world_.Grid());
    return std::find(picture.pixels.begin(), picture.pixels.end(), colour) != picture.pixels.end();
  };
  EXPECT_FALSE(isMarked());
  Open(world_.Grid());
  EXPECT_TRUE(isMarked());
  Open(world_.Tree());
  EXPECT_FALSE(isMarked());
}

TEST_F(FindBar, SpeaksEachCountThatIsFinalWhileTheFocusIsInTheBar) {
  const auto provider = world_.automation.ProviderOf(world_.Grid());
  Open(world_.Grid());
  world_.automation.log.clear();
  world_.Type(u"轴");
  EXPECT_EQ(world_.automation.Spoken(), Texts{"1 / 16"});
  world_.Press(VK_F3);
  EXPECT_EQ(world_.automation.Spoken(), (Texts{"1 / 16", "2 / 16"}));
  world_.automation.log.clear();
  world_.Press(VK_ESCAPE);
  world_.Press(VK_F3);
  EXPECT_EQ(world_.automation.Spoken(), Texts{}) << "a status that was spoken before, and no count";
}

TEST_F(FindBar, SpeaksTheCountOfRowsThatWereLoadedAgainOnceTheyAreThere) {
  const auto provider = world_.automation.ProviderOf(world_.Grid());
  Open(world_.Grid());
  world_.Type(u"轴");
  world_.automation.log.clear();
  world_.control->CommandChosen(*CommandOfTool(u"iRefresh"));
  RunMessages();
  EXPECT_EQ(world_.automation.Spoken(), Texts{"– / 16"});
}

TEST_F(FindBar, HoldsTheControlThatAClientEndsWhenItHearsTheCount) {
  EXPECT_TRUE(IsHeldWhenItIsEndedAtACount([this] {
    PostMessageW(Field(), WM_CHAR, u'轴', 1);
    RunMessages();
  }));
}

TEST_F(FindBar, HoldsTheControlThatAClientEndsWhenItHearsThatNoRowsAreLeft) {
  world_.Click(world_.Tree(), world_.NodePoint(13));
  Open(world_.Grid());
  world_.Type(u"轴");
  EXPECT_TRUE(IsHeldWhenItIsEndedAtACount([this] { world_.control->GetGrid().SetMaxRows(0); }));
}

TEST_F(FindBar, IsDrawnWithItsBackgroundForAContainer) {
  Open(world_.Grid());
  const HWND bar = world_.Child(ids::kFindBar);
  const HDC screen = GetDC(bar);
  const HDC context = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, 20, 20);
  const HGDIOBJ before = SelectObject(context, bitmap);
  PatBlt(context, 0, 0, 20, 20, BLACKNESS);
  SendMessageW(bar, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context), PRF_CLIENT);
  EXPECT_EQ(GetPixel(context, 3, 3), GetSysColor(COLOR_BTNFACE));
  DeleteObject(SelectObject(context, before));
  DeleteDC(context);
  ReleaseDC(bar, screen);
}

TEST_F(FindBar, SearchesNothingWhileACompositionIsOpen) {
  Open(world_.Grid());
  const std::string before = Current();
  SendMessageW(Field(), WM_IME_STARTCOMPOSITION, 0, 0);
  world_.Type(u"轴承");
  EXPECT_EQ(Current(), before);
  SendMessageW(Field(), WM_IME_ENDCOMPOSITION, 0, 0);
  EXPECT_EQ(Current(), "12.01.002");
}

TEST_F(FindBar, SearchesAgainAfterACompositionThatTheBarsEndCutOff) {
  Open(world_.Grid());
  SendMessageW(Field(), WM_IME_STARTCOMPOSITION, 0, 0);
  world_.Press(VK_ESCAPE);
  Open(world_.Grid());
  world_.Type(u"轴承");
  EXPECT_EQ(Current(), "12.01.002");
}

TEST_F(FindBar, ShowsAClassAndLoadsItOnlyOnEnter) {
  const auto loads = [&] {
    return world_.suite.log.Count(ExecuteLine(statements::ItemsOfClass(u"08")));
  };
  Open(world_.Tree());
  world_.Type(u"电子");
  EXPECT_EQ(Count(), "1 / 1");
  EXPECT_EQ(loads(), 0u);
  EXPECT_EQ(world_.window->SelectedNode(), 13);
  KeepPicture(world_.host.Handle(), "find in the tree");
  world_.Press(VK_RETURN);
  EXPECT_EQ(loads(), 1u);
  EXPECT_EQ(world_.window->SelectedNode(), 9);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(GetFocus(), world_.Tree());
}

TEST_F(FindBar, IsFollowedByTheLayout) {
  Open(world_.Grid());
  world_.window->MoveTo({0, 0, 500, 400});
  RunMessages();
  RECT bar{};
  RECT under{};
  GetWindowRect(Bar(), &bar);
  GetWindowRect(world_.Child(ids::kItemHeading), &under);
  EXPECT_TRUE(EqualRect(&bar, &under));
}

TEST_F(FindBar, CountsOnlyWhenThereIsNoInput) {
  Grid& grid = world_.control->GetGrid();
  constexpr std::int32_t kRows = 200000;
  grid.SetRedraw(false);
  grid.SetMaxRows(kRows);
  for (std::int32_t row = 1; row <= kRows; ++row) grid.SetText(2, row, u"螺栓");
  grid.SetRedraw(true);
  Open(world_.Grid());
  PostMessageW(Field(), WM_CHAR, u'螺', 1);
  MSG message{};
  // The character alone: the first hit is there, the count is not.
  ASSERT_TRUE(PeekMessageW(&message, Field(), WM_CHAR, WM_CHAR, PM_REMOVE));
  DispatchMessageW(&message);
  EXPECT_EQ(Count().back(), '+');
  RunMessages();
  EXPECT_EQ(Count(), "1 / 200000");
}

TEST_F(FindBar, HandlesTheKeysThatAHostMightKeep) {
  Open(world_.Grid());
  for (const WPARAM key : std::initializer_list<WPARAM>{VK_RETURN, VK_ESCAPE, VK_DELETE}) {
    MSG message{};
    message.hwnd = Field();
    message.message = WM_KEYDOWN;
    message.wParam = key;
    EXPECT_TRUE(world_.window->TranslateKey(message)) << key;
    Open(world_.Grid());
  }
}

TEST_F(FindBar, TabReturnsToItsPaneInAHostThatOffersKeys) {
  for (const HWND pane : {world_.Grid(), world_.Tree()}) {
    for (const int modifier : {0, VK_SHIFT}) {
      Open(pane);
      EXPECT_TRUE(Offer(VK_TAB, modifier));
      EXPECT_EQ(GetFocus(), pane) << modifier;
    }
  }
}

TEST_F(FindBar, F6GoesOnFromItsPane) {
  Open(world_.Grid());
  EXPECT_TRUE(Offer(VK_F6, VK_SHIFT));
  EXPECT_EQ(GetFocus(), world_.Child(ids::kSplitter));
  Open(world_.Tree());
  EXPECT_TRUE(Offer(VK_F6));
  EXPECT_EQ(GetFocus(), world_.Child(ids::kSplitter));
}

TEST_F(FindBar, ControlFAndControlASelectTheWholeText) {
  Open(world_.Grid());
  world_.Type(u"轴承");
  for (const WPARAM key : std::initializer_list<WPARAM>{'F', 'A'}) {
    SendMessageW(Field(), EM_SETSEL, 2, 2);
    EXPECT_TRUE(Offer(key, VK_CONTROL));
    DWORD from = 9;
    DWORD to = 9;
    SendMessageW(Field(), EM_GETSEL, reinterpret_cast<WPARAM>(&from),
                 reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0u) << key;
    EXPECT_EQ(to, 2u) << key;
    EXPECT_EQ(Utf8(windows::TextOf(Field())), "轴承");
  }
}

TEST_F(FindBar, TypingInTheGridGoesToTheRowThatBeginsSo) {
  world_.Click(world_.Grid(), {40, 40});
  world_.Type(u"12.01.03");
  EXPECT_EQ(Current(), "12.01.030");
}

TEST_F(FindBar, TypingInTheGridSearchesTheColumnOfTheCurrentCell) {
  world_.Click(world_.Grid(), {40, 40});
  world_.Press(VK_RIGHT);
  world_.Type(u"三");
  EXPECT_EQ(Current(), "12.01.003");
}

TEST_F(FindBar, NothingIsComposedOverTheCells) {
  EXPECT_EQ(ImmGetContext(world_.Grid()), nullptr);
  Open(world_.Grid());
  const HIMC context = ImmGetContext(Field());
  EXPECT_NE(context, nullptr);
  ImmReleaseContext(Field(), context);
}

TEST_F(FindBar, MayBeDestroyedWhileItIsOpen) {
  Open(world_.Grid());
  world_.Type(u"轴");
  DestroyWindow(world_.window->Handle());
  EXPECT_EQ(world_.window->Handle(), nullptr);
  world_.control->Finding()->Next(false);
  world_.control->Finding()->Close();
}

}  // namespace
}  // namespace pricedown::testing
