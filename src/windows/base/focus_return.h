// Where the focus was before a dialog, and its way back there. A host need not pass the focus on
// to the control after a message box.
#pragma once

#include <windows.h>

namespace pricedown::windows {

// The window with the focus. A field may close when it loses the focus; its parent is used
// then.
class FocusedWindow {
 public:
  FocusedWindow();
  // Null when there was none, or when it was destroyed or cannot get the focus now.
  HWND Find() const;
  // Gives it the focus again, unless another top-level window has become the active one.
  void Restore() const;

 private:
  HWND window_;
  HWND parent_;
};

// Returns the focus at its end, unless another top-level window has become the active one.
class FocusReturn {
 public:
  FocusReturn() = default;
  ~FocusReturn() { place_.Restore(); }
  FocusReturn(const FocusReturn&) = delete;
  FocusReturn& operator=(const FocusReturn&) = delete;

 private:
  FocusedWindow place_;
};

}  // namespace pricedown::windows
