// The state of the Esc key, asked of the system.
#include "workbench/suite/com/escape_key.h"

#include <windows.h>

namespace workbench {

bool EscapeIsPressed() {
  DWORD process = 0;
  GetWindowThreadProcessId(GetForegroundWindow(), &process);
  return process == GetCurrentProcessId() && GetAsyncKeyState(VK_ESCAPE) < 0;
}

}  // namespace workbench
