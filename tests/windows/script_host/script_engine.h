// The system's VBScript engine: runs one text with one object as its global members.
#pragma once

#include <string_view>

#include "platform/automation.h"

namespace pricedown::testing {

// True when the script ran to its end. An error is printed as "FILE(LINE): NUMBER SOURCE:
// DESCRIPTION". The members of `globals` need no prefix in the script. Throws AutomationError
// when there is no engine.
bool RunScript(std::u16string_view script, std::u16string_view file, const ObjectPtr& globals);

}  // namespace pricedown::testing
