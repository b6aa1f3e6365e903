// The suite behind the recorder.
#pragma once

#include <windows.h>

#include <string>

#include "workbench/recording/com/recorded_classes.h"

namespace workbench {

// The activation context of a manifest, one for each file, kept until the process ends: the system
// may still read the entries of objects that were made by it. INVALID_HANDLE_VALUE and the last
// error where it cannot be made.
HANDLE ContextOf(const std::wstring& manifest);

// Creates the object that a ProgID names without the recorder, with a reference for the caller: by
// the manifest that SUITE_RECORDER_SUITE names, else by the class that the registration has kept,
// else by the registry, whatever the process's own manifest says. Returns the system's code when
// there is none.
HRESULT CreateReal(const RecordedClass& recorded, REFIID id, void** result);

}  // namespace workbench
