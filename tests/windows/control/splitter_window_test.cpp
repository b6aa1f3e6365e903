// The splitter under the mouse and the keyboard, and the keys between the panes.
#include <gtest/gtest.h>

#include <array>

#include "tests/windows/base/picture.h"
#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"

namespace pricedown::testing {
namespace {

namespace ids = windows::control_ids;

class Splitter : public ::testing::Test {
 protected:
  Splitter() { world_.Start(); }

  HWND Handle() const { return world_.Child(ids::kSplitter); }
  int Pixels(std::int32_t twips) const {
    return windows::Dpi::Of(world_.window->Handle()).ToPixels(twips);
  }
  int TreeWidth() const {
    RECT area{};
    GetWindowRect(world_.Tree(), &area);
    return area.right - area.left;
  }
  bool BarIsVisible() const { return IsWindowVisible(world_.Child(ids::kDragBar)) != FALSE; }
  bool Translate(HWND target, WPARAM key) {
    MSG message{};
    message.hwnd = target;
    message.message = WM_KEYDOWN;
    message.wParam = key;
    return world_.window->TranslateKey(message);
  }

  UiWorld world_;
};

TEST_F(Splitter, ADragMovesTheBarFirstAndThePanesAtItsEnd) {
  const int before = TreeWidth();
  world_.MoveCursor(Handle(), {2, 50});
  PostMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 50));
  RunMessages();
  EXPECT_TRUE(BarIsVisible());
  world_.MoveCursor(Handle(), {80, 50});
  PostMessageW(Handle(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(80, 50));
  RunMessages();
  EXPECT_EQ(TreeWidth(), before);
  KeepPicture(world_.host.Handle(), "splitter dragged");
  PostMessageW(Handle(), WM_LBUTTONUP, 0, MAKELPARAM(80, 50));
  RunMessages();
  EXPECT_FALSE(BarIsVisible());
  EXPECT_NEAR(TreeWidth(), before + 80, 1);
}

TEST_F(Splitter, StaysInsideItsLimits) {
  world_.Drag(Handle(), {2, 50}, {-2000, 50});
  EXPECT_EQ(TreeWidth(), Pixels(1680));
  world_.Drag(Handle(), {2, 50}, {3000, 50});
  RECT client{};
  GetClientRect(world_.window->Handle(), &client);
  EXPECT_NEAR(TreeWidth(), client.right - Pixels(1680), 1);
}

TEST_F(Splitter, EscapeCancelsTheDrag) {
  SetFocus(world_.Tree());
  const int before = TreeWidth();
  PostMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 50));
  PostMessageW(Handle(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(90, 50));
  RunMessages();
  ASSERT_TRUE(BarIsVisible());
  world_.Press(VK_ESCAPE);
  EXPECT_FALSE(BarIsVisible());
  EXPECT_EQ(TreeWidth(), before);
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(GetFocus(), world_.Tree());
}

TEST_F(Splitter, LosingTheMouseCaptureCancelsTheDrag) {
  const int before = TreeWidth();
  PostMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 50));
  PostMessageW(Handle(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(90, 50));
  RunMessages();
  SetCapture(world_.Grid());
  ReleaseCapture();
  RunMessages();
  EXPECT_FALSE(BarIsVisible());
  EXPECT_EQ(TreeWidth(), before);
}

TEST_F(Splitter, NoDragBeginsWhereTheHostRefusesTheFocus) {
  const HWND outside = CreateWindowW(L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10,
                                     world_.host.Handle(), nullptr, nullptr, nullptr);
  SetFocus(outside);
  world_.window->OnFocusChange([&](bool gained) {
    if (gained) SetFocus(outside);
  });
  PostMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 50));
  RunMessages();
  EXPECT_FALSE(BarIsVisible());
  EXPECT_EQ(GetFocus(), outside);
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Splitter, AFocusThatMovesElsewhereCancelsTheDragAndStaysThere) {
  SetFocus(world_.Tree());
  const int before = TreeWidth();
  PostMessageW(Handle(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 50));
  PostMessageW(Handle(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(90, 50));
  RunMessages();
  SetFocus(world_.Grid());
  EXPECT_FALSE(BarIsVisible());
  EXPECT_EQ(TreeWidth(), before);
  EXPECT_EQ(GetFocus(), world_.Grid());
}

TEST_F(Splitter, ADragDoesNotMoveTheFocus) {
  SetFocus(world_.Grid());
  world_.Drag(Handle(), {2, 50}, {30, 50});
  EXPECT_EQ(GetFocus(), world_.Grid());
}

TEST_F(Splitter, MovesByArrowKeysWhenItHasTheFocus) {
  const int before = TreeWidth();
  SetFocus(world_.Tree());
  EXPECT_TRUE(Translate(world_.Tree(), VK_F6));
  ASSERT_EQ(GetFocus(), Handle());
  world_.Press(VK_RIGHT);
  world_.Press(VK_RIGHT);
  EXPECT_NEAR(TreeWidth(), before + Pixels(300), 1);
  world_.Press(VK_LEFT);
  EXPECT_NEAR(TreeWidth(), before + Pixels(150), 1);
  EXPECT_TRUE(Translate(Handle(), VK_F6));
  EXPECT_EQ(GetFocus(), world_.Grid());
}

TEST_F(Splitter, F6CyclesThePanesAndWithShiftBackwards) {
  std::array<BYTE, 256> before{};
  GetKeyboardState(before.data());
  std::array<BYTE, 256> shift = before;
  shift[VK_SHIFT] = 0x80;
  const std::array<HWND, 3> panes{world_.Tree(), Handle(), world_.Grid()};
  SetFocus(panes[0]);
  for (const int next : {1, 2, 0}) {
    EXPECT_TRUE(Translate(GetFocus(), VK_F6));
    EXPECT_EQ(GetFocus(), panes[static_cast<std::size_t>(next)]) << next;
  }
  SetKeyboardState(shift.data());
  for (const int next : {2, 1, 0}) {
    EXPECT_TRUE(Translate(GetFocus(), VK_F6));
    EXPECT_EQ(GetFocus(), panes[static_cast<std::size_t>(next)]) << next;
  }
  SetKeyboardState(before.data());
}

TEST_F(Splitter, TabGoesFromTreeToGridToStripAndOut) {
  world_.window->SetFocusFirst(false);
  EXPECT_EQ(GetFocus(), world_.Tree());
  EXPECT_TRUE(Translate(world_.Tree(), VK_TAB));
  EXPECT_EQ(GetFocus(), world_.Grid());
  EXPECT_TRUE(Translate(world_.Grid(), VK_TAB));
  EXPECT_EQ(GetFocus(), world_.Strip());
  EXPECT_FALSE(Translate(world_.Strip(), VK_TAB));
  world_.window->SetFocusFirst(true);
  EXPECT_EQ(GetFocus(), world_.Strip());
}

TEST_F(Splitter, TabWrapsAroundWhereTheHostAcceptsNoKeys) {
  world_.window->SetFocusFirst(false);
  world_.Press(VK_TAB);
  world_.Press(VK_TAB);
  EXPECT_EQ(GetFocus(), world_.Strip());
  world_.Press(VK_TAB);
  EXPECT_EQ(GetFocus(), world_.Tree());
  world_.PressWith(VK_SHIFT, VK_TAB);
  EXPECT_EQ(GetFocus(), world_.Strip());
}

TEST_F(Splitter, TabPassesAHiddenStrip) {
  world_.control->BarList()->Add({u"iToolBar", {}, {}, {}})->SetChecked(false);
  world_.control->Resized();
  EXPECT_FALSE(IsWindowVisible(world_.Strip()));
  SetFocus(world_.Grid());
  EXPECT_FALSE(Translate(world_.Grid(), VK_TAB));
}

TEST_F(Splitter, KeysOfTreeAndGridAreNotTheHosts) {
  SetFocus(world_.Grid());
  EXPECT_TRUE(Translate(world_.Grid(), VK_DOWN));
  EXPECT_FALSE(Translate(world_.Grid(), VK_F1));
  EXPECT_FALSE(Translate(world_.host.Handle(), VK_DOWN));
}

TEST_F(Splitter, TheHostIsNotifiedWhenTheFocusComesAndGoes) {
  std::string changes;
  const HWND outside = CreateWindowW(L"BUTTON", L"", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10,
                                     world_.host.Handle(), nullptr, nullptr, nullptr);
  world_.control->Finding()->Open(FindPane::Grid);
  SetFocus(outside);
  world_.window->OnFocusChange([&](bool gained) { changes += gained ? "gained " : "lost "; });
  const HWND field = GetDlgItem(world_.Child(ids::kFindBar), ids::kFindField);
  const std::vector<HWND> stops{world_.Grid(), world_.Tree(), world_.Strip(), field, Handle()};
  for (const HWND stop : stops) SetFocus(stop);
  EXPECT_EQ(changes, "gained gained gained gained gained ");
  for (const HWND stop : stops) {
    SetFocus(stop);
    changes.clear();
    SetFocus(outside);
    EXPECT_EQ(changes, "lost ");
  }
  SetFocus(world_.window->Handle());
  EXPECT_EQ(GetFocus(), Handle());
  EXPECT_EQ(changes, "lost gained ");
}

}  // namespace
}  // namespace pricedown::testing
