#include "tests/windows/support/run_messages.h"

#include <windows.h>

namespace pricedown::testing {

void RunMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace pricedown::testing
