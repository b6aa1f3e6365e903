// A failure as COM reports it: the one ladder from C++ exceptions to HRESULT and text.
// Handing it to the caller is boundary.h, showing it to the user is the windows' business.
#pragma once

#include <windows.h>

#include <string>

namespace pricedown::windows {

struct Failure {
  HRESULT code = S_OK;  // always a failure once filled
  std::u16string description;
  std::u16string source;  // may be empty
};

// The exception being handled. Texts are empty when there is no memory for them.
// Requires: called inside a catch block.
Failure CurrentFailure() noexcept;

// The system's text for a code, or its number in hexadecimal.
std::u16string SystemText(HRESULT code);

// Throws AutomationError with the system's text when `code` is a failure.
void ThrowIfFailed(HRESULT code);
// The same with GetLastError.
[[noreturn]] void ThrowLastError();

}  // namespace pricedown::windows
