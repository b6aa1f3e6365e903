// A recording screen: logs its calls and can fail.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "env/screen.h"
#include "platform/skip.h"
#include "tests/support/recorder.h"

namespace pricedown::testing {

// Log lines: screen pointer 11, screen messages.
class RecordingScreen : public Screen {
 public:
  explicit RecordingScreen(RecorderPtr recorder) : recorder_(std::move(recorder)) {}

  void SetMousePointer(MousePointer shown) noexcept override {
    // Without memory for the line there is none.
    SkipFailing(
        [&] { recorder_->Add("screen pointer " + std::to_string(static_cast<int>(shown))); });
    pointer = shown;
  }
  void RunPendingMessages() override {
    recorder_->Call("screen messages", u"screen");
    if (onMessages) onMessages();
  }
  void SetPainting(bool on) noexcept override {
    paints = on;
    paintings.push_back(on);
  }
  double TwipsPerPixelY() const override {
    recorder_->QuietCall("screen resolution", u"screen");
    return twipsPerPixel;
  }

  MousePointer pointer = MousePointer::Default;
  bool paints = true;
  std::vector<bool> paintings;  // each call to SetPainting
  double twipsPerPixel = 15;
  // What the user does while messages are processed.
  std::function<void()> onMessages;

 private:
  RecorderPtr recorder_;
};

}  // namespace pricedown::testing
