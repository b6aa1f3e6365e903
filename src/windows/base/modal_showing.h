// Shows one window of this thread modally: the others take no input until it is over.
// It knows nothing of the window but its handle.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace pricedown::windows {

class ModalShowing {
 public:
  // Takes the input from all visible top-level windows of the thread but `window`. Throws
  // std::bad_alloc.
  explicit ModalShowing(HWND window);
  // Gives it back if End was not called.
  ~ModalShowing();
  ModalShowing(const ModalShowing&) = delete;
  ModalShowing& operator=(const ModalShowing&) = delete;

  // Runs messages until the window is gone or the thread is told to quit; that message is put back.
  // `translate` handles a message before it is dispatched; true when it was used up.
  void Run(const std::function<bool(MSG& message)>& translate);
  // Gives the input back. Requires: the window is still there, or the system would activate
  // another program's.
  void End() noexcept;

 private:
  HWND window_;
  HWND focus_;
  std::vector<HWND> disabled_;
};

}  // namespace pricedown::windows
