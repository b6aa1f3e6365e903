#include "workbench/suite/com/escape_key.h"

#include <gtest/gtest.h>

#include <windows.h>

namespace workbench {
namespace {

// Escape as the keyboard sends it; released at the end.
class EscapeKey {
 public:
  EscapeKey() { Send(0); }
  ~EscapeKey() {
    Send(KEYEVENTF_KEYUP);
    // The windows of later tests do not get the key.
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) continue;
  }
  void Repeat() { Send(0); }
  EscapeKey(const EscapeKey&) = delete;
  EscapeKey& operator=(const EscapeKey&) = delete;

 private:
  static void Send(DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = VK_ESCAPE;
    input.ki.dwFlags = flags;
    SendInput(1, &input, sizeof(input));
  }
};

// The system may answer with the state of some milliseconds ago, and a window that has just come to
// the foreground with the keys released. A key that is held repeats.
bool Becomes(bool expected, EscapeKey* held = nullptr) {
  for (int i = 0; i < 100; ++i) {
    if (EscapeIsPressed() == expected) return true;
    if (held != nullptr) held->Repeat();
    Sleep(20);
  }
  return false;
}

class EscapeIsPressedTest : public ::testing::Test {
 protected:
  EscapeIsPressedTest() { SetForegroundWindow(window_); }
  ~EscapeIsPressedTest() override { DestroyWindow(window_); }

  HWND window_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr,
                                 nullptr, GetModuleHandleW(nullptr), nullptr);
};

TEST_F(EscapeIsPressedTest, AnswersAsTheKeyIsHeldAndReleased) {
  ASSERT_EQ(GetForegroundWindow(), window_);
  EXPECT_FALSE(EscapeIsPressed());
  {
    EscapeKey key;
    EXPECT_TRUE(Becomes(true, &key));
  }
  EXPECT_TRUE(Becomes(false));
}

TEST_F(EscapeIsPressedTest, IgnoresTheKeyInOtherPrograms) {
  SetForegroundWindow(GetDesktopWindow());
  DWORD process = 0;
  GetWindowThreadProcessId(GetForegroundWindow(), &process);
  ASSERT_NE(process, GetCurrentProcessId());
  const EscapeKey key;
  Sleep(100);
  EXPECT_FALSE(EscapeIsPressed());
}

}  // namespace
}  // namespace workbench
