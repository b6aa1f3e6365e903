// The hourglass and the message loop of pending messages.
#include "windows/base/windows_screen.h"

#include "platform/skip.h"
#include "windows/base/dpi.h"

namespace pricedown::windows {

void WindowsScreen::SetMousePointer(MousePointer pointer) noexcept {
  const bool waiting = pointer == MousePointer::Hourglass;
  SkipFailing([&] { window_.SetWaiting(waiting); });
  // Other windows set their pointer with the next movement.
  SetCursor(LoadCursorW(nullptr, waiting ? IDC_WAIT : IDC_ARROW));
}

void WindowsScreen::RunPendingMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE) != FALSE) {
    // Left to the host's loop with all that follows: there accelerators come before windows.
    if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) return;
    // The same one: a key may have come in meanwhile, and keys precede paints and timers.
    const UINT kind = message.message;
    if (PeekMessageW(&message, nullptr, kind, kind, PM_REMOVE) == FALSE) return;
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    // Another message may run code of the host that waits for the user.
    if (kind != WM_PAINT) window_.SetPainting(true);
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

double WindowsScreen::TwipsPerPixelY() const {
  return static_cast<double>(kTwipsPerInch) / Dpi::Of(window_.Window()).Value();
}

}  // namespace pricedown::windows
