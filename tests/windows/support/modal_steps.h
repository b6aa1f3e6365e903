// Plays the user while a modal window runs its own message loop: a timer runs one step after the
// other.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace pricedown::testing {

using Steps = std::vector<std::function<void()>>;
void Append(Steps& steps, Steps more);

class ModalSteps {
 public:
  explicit ModalSteps(Steps steps);
  ~ModalSteps();
  ModalSteps(const ModalSteps&) = delete;
  ModalSteps& operator=(const ModalSteps&) = delete;

  // Whether all steps ran and the last one closed the modal window. A window that is still open a
  // while later is closed, so that the test continues.
  bool Ended() const { return next_ == steps_.size() && !forced_; }

 private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
  void Next();

  Steps steps_;
  std::size_t next_ = 0;
  int idle_ = 0;
  bool running_ = false;
  bool forced_ = false;
  UINT_PTR timer_;
};

}  // namespace pricedown::testing
