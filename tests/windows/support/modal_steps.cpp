// The timer behind the steps; a step that waits in its own window is not disturbed.
#include "tests/windows/support/modal_steps.h"

#include <gtest/gtest.h>

#include <utility>

namespace pricedown::testing {
namespace {

constexpr UINT kPeriod = 15;   // milliseconds
constexpr int kPatience = 40;  // periods after the last step

ModalSteps* current = nullptr;

BOOL CALLBACK CloseOwned(HWND window, LPARAM closed) {
  if (GetWindow(window, GW_OWNER) != nullptr && IsWindowVisible(window) != FALSE) {
    *reinterpret_cast<bool*>(closed) = true;
    PostMessageW(window, WM_CLOSE, 0, 0);
  }
  return TRUE;
}

}  // namespace

void Append(Steps& steps, Steps more) {
  for (auto& step : more) steps.push_back(std::move(step));
}

ModalSteps::ModalSteps(Steps steps)
    : steps_(std::move(steps)), timer_(SetTimer(nullptr, 0, kPeriod, &OnTimer)) {
  current = this;
}

ModalSteps::~ModalSteps() {
  KillTimer(nullptr, timer_);
  current = nullptr;
}

void CALLBACK ModalSteps::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (current != nullptr && !current->running_) current->Next();
}

void ModalSteps::Next() {
  if (next_ < steps_.size()) {
    running_ = true;
    steps_[next_++]();
    running_ = false;
    idle_ = 0;
    return;
  }
  if (++idle_ < kPatience) return;
  EnumThreadWindows(GetCurrentThreadId(), &CloseOwned, reinterpret_cast<LPARAM>(&forced_));
}

}  // namespace pricedown::testing
