// The screen and the message queue of the thread that runs the control.
#pragma once

#include <windows.h>

#include "env/screen.h"
#include "windows/base/command_window.h"

namespace pricedown::windows {

class WindowsScreen final : public Screen {
 public:
  // `window` must outlive this object.
  explicit WindowsScreen(CommandWindow& window) : window_(window) {}

  void SetMousePointer(MousePointer pointer) noexcept override;
  // WM_QUIT is posted again, so that the host's own loop ends.
  void RunPendingMessages() override;
  void SetPainting(bool on) noexcept override { window_.SetPainting(on); }
  double TwipsPerPixelY() const override;

 private:
  CommandWindow& window_;
};

}  // namespace pricedown::windows
