// The hourglass for the duration of a long operation. The first one that ends restores the pointer.
#pragma once

#include "env/screen.h"

namespace pricedown {

class WaitCursor {
 public:
  explicit WaitCursor(Screen& screen) : screen_(screen) {
    screen_.SetMousePointer(MousePointer::Hourglass);
  }
  ~WaitCursor() { screen_.SetMousePointer(MousePointer::Default); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;

 private:
  Screen& screen_;
};

}  // namespace pricedown
