// Answers the dialogs of a thread.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <utility>
#include <vector>

#include "tests/support/utf8.h"
#include "windows/base/plain_control.h"

namespace workbench {

// The user in dialogs of this thread: one step for each dialog as it appears.
class DialogUser {
 public:
  using Step = std::function<void(HWND dialog)>;

  DialogUser() : timer_(SetTimer(nullptr, 0, 10, &OnTimer)) { current_ = this; }
  ~DialogUser() {
    KillTimer(nullptr, timer_);
    current_ = nullptr;
    EXPECT_TRUE(steps_.empty()) << steps_.size() << " dialogs did not appear";
  }
  DialogUser(const DialogUser&) = delete;
  DialogUser& operator=(const DialogUser&) = delete;

  void Will(Step step) { steps_.push_back(std::move(step)); }
  // The next step is about this dialog, once more.
  void Revisit(HWND dialog) { std::erase(answered_, dialog); }
  static void Press(HWND dialog, int button) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
  }

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (current_ == nullptr) return;
    EnumThreadWindows(GetCurrentThreadId(), &OnWindow, reinterpret_cast<LPARAM>(current_));
  }
  static BOOL CALLBACK OnWindow(HWND window, LPARAM user) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (lstrcmpW(name, L"#32770") == 0 && IsWindowVisible(window)) {
      reinterpret_cast<DialogUser*>(user)->Answer(window);
    }
    return TRUE;
  }
  void Answer(HWND dialog) {
    if (std::find(answered_.begin(), answered_.end(), dialog) != answered_.end()) return;
    answered_.push_back(dialog);
    if (steps_.empty()) {
      ADD_FAILURE() << "unexpected dialog "
                    << pricedown::testing::Utf8(pricedown::windows::TextOf(dialog));
      Press(dialog, IDCANCEL);
      return;
    }
    const Step step = std::move(steps_.front());
    steps_.pop_front();
    step(dialog);
  }

  static inline DialogUser* current_ = nullptr;
  UINT_PTR timer_;
  std::deque<Step> steps_;
  std::vector<HWND> answered_;
};

}  // namespace workbench
