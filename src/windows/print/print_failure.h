// What the user is told when printing fails.
// Whether it has failed is decided by whoever calls the system.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace pricedown::windows {

inline constexpr std::u16string_view kNoPrinter = u"没有安装打印机，请先在系统中添加打印机。";

// Throws AutomationError: what could not be done, and why in the system's words when `error`, of
// GetLastError, tells.
[[noreturn]] void ThrowPrintFailure(std::u16string_view what, DWORD error);

// Throws AutomationError: there is no printer.
[[noreturn]] void ThrowNoPrinter();

// Whether a dialog's error, of CommDlgExtendedError, says that the printer chosen earlier has been
// removed or exchanged since.
bool IsStale(DWORD error);

// Throws AutomationError for what CommDlgExtendedError answered. Requires: it is not 0.
[[noreturn]] void ThrowDialogFailure(std::u16string_view what, DWORD error);

}  // namespace pricedown::windows
