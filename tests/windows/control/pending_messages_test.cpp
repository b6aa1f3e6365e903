// Messages that run while the user waits.
#include <gtest/gtest.h>

#include "tests/windows/control/ui_world.h"

namespace pricedown::testing {
namespace {

TEST(PendingMessages, ArePutBackWhenTheyAskToQuit) {
  UiWorld world;
  PostThreadMessageW(GetCurrentThreadId(), WM_APP, 0, 0);
  PostQuitMessage(7);
  world.screen->RunPendingMessages();
  MSG message{};
  ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 7u);
}

TEST(PendingMessages, AreLeftToTheHostsLoopWhenTheyAreKeys) {
  UiWorld world;
  world.Start();
  for (const UINT key : {UINT{WM_KEYDOWN}, UINT{WM_SYSKEYDOWN}}) {
    PostMessageW(world.Tree(), key, VK_F6, 1);
    world.screen->RunPendingMessages();
    MSG message{};
    ASSERT_TRUE(PeekMessageW(&message, world.Tree(), WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) << key;
    EXPECT_EQ(message.message, key);
  }
}

TEST(PendingMessages, RunUpToAKey) {
  UiWorld world;
  world.Start();
  PostMessageW(world.window->Handle(), WM_SIZE, 0, 0);
  PostMessageW(world.Tree(), WM_KEYUP, VK_DOWN, 1);
  PostMessageW(world.Tree(), WM_KEYDOWN, VK_F6, 1);
  world.screen->RunPendingMessages();
  MSG message{};
  ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_KEYDOWN));
}

}  // namespace
}  // namespace pricedown::testing
