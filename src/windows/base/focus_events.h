// What every child that accepts the focus reports to its parent.
#pragma once

#include <windows.h>

namespace pricedown::windows {

// A child reports as the last step of its message, because the report may end the control.
class FocusEvents {
 public:
  // Tab, which the host did not use.
  virtual void TabPressed(bool backwards) = 0;
  // A child has the focus now.
  virtual void FocusEntered() = 0;
  // A child has lost the focus to `to`, which is null for a window of another thread.
  virtual void FocusLeft(HWND /*to*/) {}

 protected:
  ~FocusEvents() = default;
};

}  // namespace pricedown::windows
