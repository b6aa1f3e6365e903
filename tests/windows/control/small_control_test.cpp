// The focus in a control so small that the layout hides some of its parts.
#include <gtest/gtest.h>

#include "tests/windows/control/ui_world.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"

namespace pricedown::testing {
namespace {

class SmallControl : public ::testing::Test {
 protected:
  // The tree had the focus before the host took it.
  SmallControl() {
    world_.Start();
    SetFocus(world_.Tree());
    SetFocus(world_.host.Handle());
  }
  void Resize(int width, int height) {
    const windows::Dpi dpi = windows::Dpi::Of(world_.window->Handle());
    world_.window->MoveTo({0, 0, dpi.Scale(width), dpi.Scale(height)});
    RunMessages();
  }
  // Too narrow for the tree.
  void MakeNarrow() {
    Resize(100, 560);
    EXPECT_FALSE(IsWindowVisible(world_.Tree()) != FALSE);
    EXPECT_TRUE(IsWindowVisible(Splitter()) != FALSE);
    EXPECT_TRUE(IsWindowVisible(world_.Grid()) != FALSE);
  }
  // Tree and grid have no room below their headings.
  void MakeLow() {
    Resize(900, 110);
    EXPECT_FALSE(IsWindowVisible(world_.Tree()) != FALSE);
    EXPECT_TRUE(IsWindowVisible(Splitter()) != FALSE);
    EXPECT_FALSE(IsWindowVisible(world_.Grid()) != FALSE);
    EXPECT_TRUE(IsWindowVisible(world_.Strip()) != FALSE);
  }
  HWND Splitter() const { return world_.Child(windows::control_ids::kSplitter); }
  bool PressF6() {
    MSG message{};
    message.hwnd = GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = VK_F6;
    return world_.window->TranslateKey(message);
  }

  UiWorld world_;
};

TEST_F(SmallControl, GivesTheFocusThatAHiddenTreeHadToTheGrid) {
  MakeNarrow();
  SetFocus(world_.window->Handle());
  EXPECT_EQ(GetFocus(), world_.Grid());
}

TEST_F(SmallControl, BeginsWithTheGridWhereTheTreeIsHidden) {
  MakeNarrow();
  world_.window->SetFocusFirst(false);
  EXPECT_EQ(GetFocus(), world_.Grid());
}

TEST_F(SmallControl, F6LeavesAHiddenTreeOut) {
  MakeNarrow();
  SetFocus(world_.Grid());
  EXPECT_TRUE(PressF6());
  EXPECT_EQ(GetFocus(), Splitter());
  EXPECT_TRUE(PressF6());
  EXPECT_EQ(GetFocus(), world_.Grid());
}

TEST_F(SmallControl, BeginsWithTheStripWhereTreeAndGridAreHidden) {
  MakeLow();
  for (const bool last : {false, true}) {
    SetFocus(world_.host.Handle());
    world_.window->SetFocusFirst(last);
    EXPECT_EQ(GetFocus(), world_.Strip()) << last;
  }
}

TEST_F(SmallControl, GivesTheFocusThatAHiddenTreeHadToTheStripWhereTheGridIsHidden) {
  MakeLow();
  SetFocus(world_.window->Handle());
  EXPECT_EQ(GetFocus(), world_.Strip());
}

TEST_F(SmallControl, F6GoesToTheSplitterWhereTreeAndGridAreHidden) {
  MakeLow();
  SetFocus(world_.Strip());
  for (int press = 0; press < 2; ++press) {
    EXPECT_TRUE(PressF6());
    EXPECT_EQ(GetFocus(), Splitter()) << press;
  }
}

TEST_F(SmallControl, KeepsTheFocusItselfWhereEveryPartIsHidden) {
  Resize(900, 40);
  world_.window->SetFocusFirst(false);
  EXPECT_EQ(GetFocus(), world_.host.Handle());
  SetFocus(world_.window->Handle());
  EXPECT_EQ(GetFocus(), world_.window->Handle());
  EXPECT_TRUE(PressF6());
  EXPECT_EQ(GetFocus(), world_.window->Handle());
}

}  // namespace
}  // namespace pricedown::testing
