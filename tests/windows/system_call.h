// Functions of DLLs that are loaded while a test runs.
// A missing DLL or function ends the test program with its name.
#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace pricedown::testing {

template <typename Function>
Function FunctionIn(HMODULE module, const char* name) {
  const auto address = reinterpret_cast<void*>(GetProcAddress(module, name));
  if (address == nullptr) throw std::runtime_error(std::string("no function ") + name);
  return reinterpret_cast<Function>(address);
}

// Loads the DLL and keeps it.
template <typename Function>
Function FunctionOf(const wchar_t* library, const char* name) {
  const HMODULE module = LoadLibraryW(library);
  if (module == nullptr) throw std::runtime_error(std::string("no library for ") + name);
  return FunctionIn<Function>(module, name);
}

}  // namespace pricedown::testing
