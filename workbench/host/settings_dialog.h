// The settings page of the stand-in suite: what the suite would decide, as switches.
// It shows and stores through `ZEPWorkbench.Settings`; it decides nothing.
#pragma once

#include <windows.h>

#include "platform/automation.h"

namespace workbench {

// Shows the page modally; true when something was stored. Throws AutomationError when the company
// cannot be read or written.
bool ShowSettings(HINSTANCE module, HWND owner, const pricedown::ObjectPtr& settings);

}  // namespace workbench
