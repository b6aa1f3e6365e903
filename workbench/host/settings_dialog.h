// The settings page of the stand-in suite, over `ZEPWorkbench.Settings`.
#pragma once

#include <windows.h>

#include "platform/automation.h"

namespace workbench {

// Shows the page modally; true when something was stored. Throws AutomationError when the company
// cannot be read or written.
bool ShowSettings(HINSTANCE module, HWND owner, const pricedown::ObjectPtr& settings);

}  // namespace workbench
