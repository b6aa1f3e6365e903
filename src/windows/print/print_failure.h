// The errors of printing.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace pricedown::windows {

inline constexpr std::u16string_view kNoPrinter = u"没有安装打印机，请先在系统中添加打印机。";

// Throws AutomationError: what failed, with the system's description of `error`, of GetLastError,
// unless that is 0.
[[noreturn]] void ThrowPrintFailure(std::u16string_view what, DWORD error);

// Throws AutomationError: there is no printer.
[[noreturn]] void ThrowNoPrinter();

// Whether a dialog's error, of CommDlgExtendedError, says that the printer chosen earlier has been
// removed or exchanged since.
bool IsStale(DWORD error);

// Throws AutomationError for what CommDlgExtendedError returned. Requires: it is not 0.
[[noreturn]] void ThrowDialogFailure(std::u16string_view what, DWORD error);

}  // namespace pricedown::windows
