// The port to the screen and the message queue.
#pragma once

#include <cstdint>

namespace pricedown {

enum class MousePointer : std::int32_t { Default = 0, Hourglass = 11 };

class Screen {
 public:
  virtual ~Screen() = default;
  virtual void SetMousePointer(MousePointer pointer) noexcept = 0;
  // Lets pending window messages run, and returns when there are none.
  virtual void RunPendingMessages() = 0;
  // Off: the control paints nothing until it is on again, then everything once. It is turned on
  // before code of the host may run in a message or an event, and when the user has to wait or to
  // answer.
  virtual void SetPainting(bool on) noexcept = 0;
  // Twips per pixel, vertically; 15 at 96 dpi.
  virtual double TwipsPerPixelY() const = 0;
};

}  // namespace pricedown
