// The screen and the message queue of the thread that runs the control.
// Which windows show the hourglass is the control's window.
#pragma once

#include <windows.h>

#include "env/screen.h"

namespace pricedown::windows {

class ControlWindow;

class WindowsScreen final : public Screen {
 public:
  // `window` must outlive this object.
  explicit WindowsScreen(ControlWindow& window) : window_(window) {}

  void SetMousePointer(MousePointer pointer) override;
  // A quit message is put back, so that the host's own loop ends.
  void RunPendingMessages() override;
  double TwipsPerPixelY() const override;

 private:
  ControlWindow& window_;
};

}  // namespace pricedown::windows
