// The module's struct and the names of files.
#include "windows/server/module.h"

#include <cstddef>
#include <new>

#include "windows/com/failure.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {

// Never destroyed at the end of a process: the suite's modules, whose objects the values may still
// hold, are unloaded already.
Module& TheModule() {
  alignas(Module) static std::byte storage[sizeof(Module)];
  static Module* module = new (storage) Module;
  return *module;
}

std::wstring ModulePath(HINSTANCE instance) {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(instance, path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) ThrowLastError();
    if (length < path.size()) {
      path.resize(length);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

std::u16string ProgramName() {
  std::wstring name = ModulePath(nullptr);
  name.erase(0, name.find_last_of(L'\\') + 1);
  if (const auto point = name.find_last_of(L'.'); point != std::wstring::npos) name.resize(point);
  return FromWide(name);
}

}  // namespace pricedown::windows
