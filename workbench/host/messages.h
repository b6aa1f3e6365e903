// The host's own message boxes.
#pragma once

#include <windows.h>

#include "platform/failure.h"

namespace workbench {

// Shows the failure in a message box over `owner`.
void ShowFailure(HWND owner, const pricedown::Failure& failure) noexcept;

// The same with a question; returns whether the user chose Yes.
bool AskAfterFailure(HWND owner, const pricedown::Failure& failure,
                     const wchar_t* question) noexcept;

}  // namespace workbench
