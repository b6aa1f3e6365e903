// The entry points of the DLL.
#include <windows.h>

#include <olectl.h>

#include <memory>

#include "windows/com/boundary.h"
#include "windows/com/module_counts.h"
#include "windows/com/module_path.h"
#include "windows/server/module.h"
#include "windows/server/public_classes.h"

using pricedown::windows::AtBoundary;
using pricedown::windows::RegistrationScope;
using pricedown::windows::TheModule;

#ifdef __GLIBCXX__
namespace __gnu_cxx {
// Frees the C++ runtime's emergency pool for exceptions.
void __freeres();  // NOLINT(bugprone-reserved-identifier)
}  // namespace __gnu_cxx
#endif

namespace {

HRESULT SetRegistered(bool registered, RegistrationScope scope) noexcept {
  return AtBoundary([&] {
    const auto entries = pricedown::windows::RegistryEntries();
    if (registered) {
      Register(entries, scope, pricedown::windows::ModulePath(TheModule().instance));
    } else {
      Unregister(entries, scope);
    }
  });
}

}  // namespace

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID processEnds) {
  if (reason == DLL_PROCESS_ATTACH) {
    TheModule().instance = instance;
    pricedown::windows::ModuleSource() = u"ZEPPriceDownPrepare";
    DisableThreadLibraryCalls(instance);
  } else if (reason == DLL_PROCESS_DETACH && processEnds == nullptr) {
    std::destroy_at(&TheModule());
#ifdef __GLIBCXX__
    __gnu_cxx::__freeres();
#endif
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, LPVOID* result) {
  return pricedown::windows::GetClassObject(pricedown::windows::PublicClasses(), classId,
                                            interfaceId, result);
}

STDAPI DllCanUnloadNow() { return pricedown::windows::Counts().InUse() ? S_FALSE : S_OK; }

STDAPI DllRegisterServer() { return SetRegistered(true, RegistrationScope::Machine); }

// Removes both kinds of registration, for `regsvr32 /u` cannot say which one there is.
STDAPI DllUnregisterServer() {
  const HRESULT user = SetRegistered(false, RegistrationScope::User);
  const HRESULT machine = SetRegistered(false, RegistrationScope::Machine);
  return FAILED(machine) ? machine : user;
}

// `commandLine` is "user" for the current user alone and empty for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  const bool machine = commandLine == nullptr || *commandLine == L'\0';
  if (!machine && lstrcmpiW(commandLine, L"user") != 0) return E_INVALIDARG;
  return SetRegistered(install != FALSE,
                       machine ? RegistrationScope::Machine : RegistrationScope::User);
}
