// Failures of the system: the text of a code, and the exception for a code.
#pragma once

#include <windows.h>

#include <string>

namespace pricedown::windows {

// The system's text for a code; our own text and the number where it has none.
std::u16string SystemText(HRESULT code);

// Throws AutomationError with the system's text when `code` is a failure.
void ThrowIfFailed(HRESULT code);
// Throws AutomationError for GetLastError.
[[noreturn]] void ThrowLastError();

}  // namespace pricedown::windows
