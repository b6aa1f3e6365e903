// The registry entries of the stand-in suite.
#pragma once

#include <windows.h>

#include "windows/com/registration.h"

namespace workbench {

// All classes but ADODB.Recordset, which is the system's. Throws AutomationError, and registers
// nothing, where a ProgID names a class of another program: an installed suite stays registered.
void RegisterSuite(pricedown::windows::RegistrationScope scope, HINSTANCE module);
// Throws AutomationError when an entry cannot be removed.
void UnregisterSuite(pricedown::windows::RegistrationScope scope);

}  // namespace workbench
