// Message boxes of the host itself.
// Those of the control are its own.
#pragma once

#include <windows.h>

#include "platform/failure.h"

namespace workbench {

// What went wrong, in a message box over `owner`.
void ShowFailure(HWND owner, const pricedown::Failure& failure) noexcept;

// The same with a question; whether the user said yes.
bool AskAfterFailure(HWND owner, const pricedown::Failure& failure,
                     const wchar_t* question) noexcept;

}  // namespace workbench
