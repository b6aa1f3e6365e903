// Functions of the system that older releases do not have, looked up by name.
#pragma once

#include <windows.h>

namespace pricedown::windows {

// Null when the system has no such function. Requires: `library` is loaded in every process that
// has windows.
template <typename Function>
Function SystemFunction(const wchar_t* library, const char* name) {
  const HMODULE module = GetModuleHandleW(library);
  if (module == nullptr) return nullptr;
  // Through void*: the two function types are unrelated.
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace pricedown::windows
