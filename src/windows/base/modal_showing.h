// Shows one window of this thread modally: the others are disabled meanwhile.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

#include "windows/base/focus_return.h"

namespace pricedown::windows {

class ModalShowing {
 public:
  // Disables all visible top-level windows of the thread except `window`; without memory some stay
  // enabled.
  explicit ModalShowing(HWND window);
  // Enables them if End was not called.
  ~ModalShowing();
  ModalShowing(const ModalShowing&) = delete;
  ModalShowing& operator=(const ModalShowing&) = delete;

  // Runs messages until the window is destroyed or WM_QUIT arrives, which is posted again.
  // `translate` handles a message before it is dispatched; true when it was handled.
  void Run(const std::function<bool(MSG& message)>& translate);
  // Enables them and returns the focus. Requires: the window still exists, or the system would
  // activate another program's.
  void End() noexcept;

 private:
  HWND window_;
  FocusedWindow focus_;
  bool ended_ = false;
  std::vector<HWND> disabled_;
};

}  // namespace pricedown::windows
