// What message boxes and the hourglass need of the window that they belong to: the control's, or
// the form's.
#pragma once

#include <windows.h>

namespace pricedown::windows {

class CommandWindow {
 public:
  // Null once the window is gone.
  virtual HWND Window() const = 0;
  // The top-level window to own message boxes; null when there is none that is visible.
  virtual HWND DialogOwner() const = 0;
  // While waiting the pointer is the hourglass over all of the window.
  virtual void SetWaiting(bool waiting) = 0;

 protected:
  ~CommandWindow() = default;
};

}  // namespace pricedown::windows
