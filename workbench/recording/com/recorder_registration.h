// The recorder's entries in the registry, over those of an installed suite.
#pragma once

#include <windows.h>

#include <string>

#include "windows/com/registration.h"
#include "workbench/recording/com/recorded_classes.h"

namespace workbench {

// Lets the suite's ProgIDs name the recorder's classes and keeps what they named. Classes that no
// suite of this bitness has registered are left out, and so are those of the system. Throws
// AutomationError, and then has changed nothing, when there is no suite.
void RegisterRecorder(pricedown::windows::RegistrationScope scope, HINSTANCE module);
// Restores what the ProgIDs named; one that names a third class by now, or that the recorder of the
// other bitness has redirected, is left alone. Throws
// AutomationError when an entry stays.
void UnregisterRecorder(pricedown::windows::RegistrationScope scope);

// The class that a registration of the recorder has kept, as text; empty when there is none.
std::wstring ClassBehind(const RecordedClass& recorded);

}  // namespace workbench
