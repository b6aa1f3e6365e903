// The state of the Esc key, asked of the system, and a hook that drops its messages.
#include "workbench/suite/com/escape_key.h"

#include <windows.h>

#include <utility>

namespace workbench {
namespace {

// Of the one thread that sends statements.
struct EscapeHook {
  ~EscapeHook() { Remove(); }
  void Remove() noexcept {
    if (handle != nullptr) UnhookWindowsHookEx(std::exchange(handle, nullptr));
  }

  HHOOK handle = nullptr;
  DWORD statementEnd = 0;  // by the clock of messages
  bool wasHeld = false;    // at that time
};
EscapeHook theEscapeHook;

LRESULT CALLBACK OnQueuedMessage(int code, WPARAM removal, LPARAM lParam) noexcept {
  auto& message = *reinterpret_cast<MSG*>(lParam);
  const bool isKey = message.message == WM_KEYDOWN || message.message == WM_KEYUP;
  if (code == HC_ACTION && removal == PM_REMOVE && isKey && message.wParam == VK_ESCAPE) {
    const bool wasHeld = theEscapeHook.wasHeld;
    const bool isLater = static_cast<LONG>(message.time - theEscapeHook.statementEnd) > 0;
    if (isLater && (!wasHeld || message.message == WM_KEYUP)) theEscapeHook.Remove();
    if (!isLater || wasHeld) message.message = WM_NULL;
  }
  return CallNextHookEx(nullptr, code, removal, lParam);
}

}  // namespace

bool EscapeIsPressed() {
  DWORD process = 0;
  GetWindowThreadProcessId(GetForegroundWindow(), &process);
  return process == GetCurrentProcessId() && GetAsyncKeyState(VK_ESCAPE) < 0;
}

void DropEscape() noexcept {
  theEscapeHook.statementEnd = GetTickCount();
  theEscapeHook.wasHeld = GetAsyncKeyState(VK_ESCAPE) < 0;
  if (theEscapeHook.handle != nullptr) return;
  theEscapeHook.handle =
      SetWindowsHookExW(WH_GETMESSAGE, OnQueuedMessage, nullptr, GetCurrentThreadId());
}

}  // namespace workbench
