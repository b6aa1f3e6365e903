// The hourglass for the duration of a long operation.
// It does not nest: the first one that ends restores the default pointer.
#pragma once

#include "env/screen.h"
#include "platform/skip.h"

namespace pricedown {

class WaitCursor {
 public:
  explicit WaitCursor(Screen& screen) : screen_(screen) {
    screen_.SetMousePointer(MousePointer::Hourglass);
  }
  // A screen that fails here must not end the process.
  ~WaitCursor() {
    SkipFailing([this] { screen_.SetMousePointer(MousePointer::Default); });
  }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  Screen& screen_;
};

}  // namespace pricedown
