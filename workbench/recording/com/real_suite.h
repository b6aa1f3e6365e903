// The suite behind the recorder.
#pragma once

#include <windows.h>

#include "workbench/recording/com/recorded_classes.h"

namespace workbench {

// Creates the object that a ProgID names without the recorder, with a reference for the caller: by
// the manifest that SUITE_RECORDER_SUITE names, else by the class that the registration has kept,
// else by the registry, whatever the process's own manifest says. Returns the system's code when
// there is none.
HRESULT CreateReal(const RecordedClass& recorded, REFIID id, void** result);

}  // namespace workbench
