#include "workbench/suite/com/escape_key.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <vector>

#include "tests/windows/support/run_messages.h"

namespace workbench {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

void Send(WORD key, DWORD flags) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = key;
  input.ki.dwFlags = flags;
  SendInput(1, &input, sizeof(input));
}

// Escape as the keyboard sends it; released at the end.
class EscapeKey {
 public:
  EscapeKey() { Send(VK_ESCAPE, 0); }
  ~EscapeKey() {
    Release();
    // The windows of later tests do not get the key.
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) continue;
  }
  static void Repeat() { Send(VK_ESCAPE, 0); }
  static void Release() { Send(VK_ESCAPE, KEYEVENTF_KEYUP); }
  EscapeKey(const EscapeKey&) = delete;
  EscapeKey& operator=(const EscapeKey&) = delete;
};

// The system may answer with the state of some milliseconds ago, and a window that has just come to
// the foreground with the keys released. A key that is held repeats.
template <class Holds>
bool Becomes(bool isHeld, Holds&& holds) {
  for (int i = 0; i < 100; ++i) {
    if (holds()) return true;
    if (isHeld) EscapeKey::Repeat();
    Sleep(20);
  }
  return false;
}

bool IsDown() { return GetAsyncKeyState(VK_ESCAPE) < 0; }

// The keys whose presses are in the queue, removed from it.
std::vector<WPARAM> PressedKeys() {
  std::vector<WPARAM> keys;
  MSG message;
  for (int i = 0; i < 10; ++i) {
    while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
      if (message.message == WM_KEYDOWN) keys.push_back(message.wParam);
    }
    Sleep(20);
  }
  return keys;
}

// Handles what a new window gets. A screen may report all keys as released with the focus.
void Settle() {
  for (int i = 0; i < 10; ++i) {
    pricedown::testing::RunMessages();
    Sleep(20);
  }
}

class EscapeIsPressedTest : public ::testing::Test {
 protected:
  EscapeIsPressedTest() {
    SetForegroundWindow(window_);
    SetFocus(window_);
    Settle();
  }
  ~EscapeIsPressedTest() override { DestroyWindow(window_); }

  HWND window_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                 nullptr, GetModuleHandleW(nullptr), nullptr);
};

TEST_F(EscapeIsPressedTest, AnswersAsTheKeyIsHeldAndReleased) {
  ASSERT_EQ(GetForegroundWindow(), window_);
  EXPECT_FALSE(EscapeIsPressed());
  {
    const EscapeKey key;
    EXPECT_TRUE(Becomes(true, EscapeIsPressed));
  }
  EXPECT_TRUE(Becomes(false, [] { return !EscapeIsPressed(); }));
}

TEST_F(EscapeIsPressedTest, IgnoresTheKeyInOtherPrograms) {
  SetForegroundWindow(GetDesktopWindow());
  DWORD process = 0;
  GetWindowThreadProcessId(GetForegroundWindow(), &process);
  ASSERT_NE(process, GetCurrentProcessId());
  const EscapeKey key;
  ASSERT_TRUE(Becomes(true, IsDown));
  EXPECT_FALSE(EscapeIsPressed());
}

TEST_F(EscapeIsPressedTest, IsDroppedFromTheQueueUpToItsRelease) {
  {
    const EscapeKey key;
    ASSERT_TRUE(Becomes(true, EscapeIsPressed));
    Send('A', 0);
    Send('A', KEYEVENTF_KEYUP);
    DropEscape();
    EXPECT_THAT(PressedKeys(), ElementsAre('A')) << "other keys stay";
    EscapeKey::Repeat();
    EXPECT_THAT(PressedKeys(), IsEmpty());
    EscapeKey::Release();
    EXPECT_THAT(PressedKeys(), IsEmpty());
  }
  const EscapeKey next;
  EXPECT_THAT(PressedKeys(), Contains(VK_ESCAPE)) << "the next press is the window's";
}

// Its release went to another window.
TEST_F(EscapeIsPressedTest, IsNotDroppedAgainWhenItsReleaseWasNotSeen) {
  DropEscape();
  Sleep(50);
  const EscapeKey key;
  EXPECT_THAT(PressedKeys(), Contains(VK_ESCAPE));
}

}  // namespace
}  // namespace workbench
