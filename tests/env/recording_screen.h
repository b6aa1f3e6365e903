// The screen in a test: logs what is asked of it.
// There is no window and no pointer behind it.
#pragma once

#include <functional>
#include <string>

#include "env/screen.h"
#include "tests/support/call_log.h"

namespace pricedown::testing {

class RecordingScreen : public Screen {
 public:
  explicit RecordingScreen(CallLog log) : log_(std::move(log)) {}

  void SetMousePointer(MousePointer pointer) override {
    log_.Add("pointer " + std::to_string(static_cast<int>(pointer)));
  }
  void RunPendingMessages() override {
    log_.Add("run pending messages");
    if (pendingMessages) pendingMessages();
  }
  double TwipsPerPixelY() const override { return 15; }

  // What the user does while pending messages run.
  std::function<void()> pendingMessages;

 private:
  CallLog log_;
};

}  // namespace pricedown::testing
