// The module's struct and the names of files.
#include "windows/server/module.h"

#include <cstddef>
#include <new>

#include "windows/base/exclusive_lock.h"
#include "windows/com/module_path.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {

// Never destroyed at the end of a process: the suite's modules, whose objects the values may still
// hold, are unloaded already.
Module& TheModule() {
  alignas(Module) static std::byte storage[sizeof(Module)];
  static Module* module = new (storage) Module;
  return *module;
}

ThreadEntry& Module::ThisThread() {
  const DWORD id = GetCurrentThreadId();
  FILETIME begun{};
  FILETIME other{};
  GetThreadTimes(GetCurrentThread(), &begun, &other, &other, &other);
  const ExclusiveLock locked(lock_);
  for (const auto& known : threads_) {
    if (known->id != id) continue;
    if (CompareFileTime(&known->begun, &begun) == 0) return *known;
    // That thread has ended, and the system gave its id to this one. A control that was left behind
    // keeps the entry.
    known->id = 0;
  }
  threads_.push_back(std::make_unique<ThreadEntry>());
  threads_.back()->id = id;
  threads_.back()->begun = begun;
  return *threads_.back();
}

std::u16string ProgramName() {
  std::wstring name = ModulePath(nullptr);
  name.erase(0, name.find_last_of(L'\\') + 1);
  if (const auto point = name.find_last_of(L'.'); point != std::wstring::npos) name.resize(point);
  return FromWide(name);
}

}  // namespace pricedown::windows
