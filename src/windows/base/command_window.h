// The window of a control or a form, for message boxes and the hourglass.
#pragma once

#include <windows.h>

namespace pricedown::windows {

class CommandWindow {
 public:
  // Null once the window is destroyed.
  virtual HWND Window() const = 0;
  // The owner of message boxes; null when no top-level window is visible.
  virtual HWND DialogOwner() const = 0;
  // While waiting, the pointer is the hourglass over the whole window.
  virtual void SetWaiting(bool waiting) = 0;
  // Off: the window paints nothing until it is on again, then everything once. Forms always paint.
  virtual void SetPainting(bool) noexcept {}

 protected:
  ~CommandWindow() = default;
};

}  // namespace pricedown::windows
