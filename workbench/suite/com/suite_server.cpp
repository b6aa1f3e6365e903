// WorkbenchSuite.dll: the suite's objects behind class ids, for hosts and scripts on Windows.
#include <windows.h>

#include <iterator>
#include <string>

#include "windows/com/boundary.h"
#include "windows/com/com_class.h"
#include "windows/com/dispatch_object.h"
#include "windows/com/wide_text.h"
#include "workbench/pickers/dialog/dialog_pickers.h"
#include "workbench/recording/replay.h"
#include "workbench/suite/com/class_ids.h"
#include "workbench/suite/com/escape_key.h"
#include "workbench/suite/com/suite_registration.h"
#include "workbench/suite/suite_factory.h"

namespace workbench {
namespace {

using pricedown::windows::AtBoundary;
using pricedown::windows::ComClass;
using pricedown::windows::ComPtr;
using pricedown::windows::Counts;
using pricedown::windows::DispatchObject;
using pricedown::windows::MakeCom;

// Empty when the variable is not set.
std::u16string EnvironmentText(const wchar_t* name) {
  std::wstring text(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  if (!text.empty()) {
    text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
  }
  return pricedown::windows::FromWide(text);
}

// The suite that all objects of the DLL share.
struct Server {
  HINSTANCE module = nullptr;
  SuiteStatePtr suite;

  // Programs without a host name the company or the recording in the environment.
  const SuiteStatePtr& Suite() {
    if (suite == nullptr) {
      const auto opened = std::make_shared<SuiteState>();
      opened->pickers = std::make_unique<QueuedPickers>(std::make_unique<DialogPickers>(module));
      opened->options.cancels = EscapeIsPressed;
      opened->options.afterCancel = DropEscape;
      const std::u16string company = EnvironmentText(L"WORKBENCH_COMPANY");
      if (!company.empty()) opened->OpenCompany(company);
      const std::u16string recording = EnvironmentText(L"WORKBENCH_REPLAY");
      if (!recording.empty()) opened->replay = Replay::Open(recording);
      // Last: a recording that cannot be opened must not leave the company to be worked on.
      suite = opened;
    }
    return suite;
  }
};

Server& TheServer() {
  static Server server;
  return server;
}

class SuiteClassFactory final : public ComClass<IClassFactory> {
 public:
  explicit SuiteClassFactory(const SuiteClass& suiteClass) : class_(suiteClass) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) noexcept override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return AtBoundary([&] {
      const auto object = MakeCom<DispatchObject>(CreateObject(class_, TheServer().Suite()));
      return object->QueryInterface(id, result);
    });
  }

  STDMETHODIMP LockServer(BOOL lock) noexcept override {
    Counts().locks += lock ? 1 : -1;
    return S_OK;
  }

 private:
  const SuiteClass& class_;
};

}  // namespace
}  // namespace workbench

namespace {

HRESULT SetSuiteRegistered(bool registered, pricedown::windows::RegistrationScope scope) noexcept {
  return pricedown::windows::AtBoundary([&] {
    if (registered) {
      workbench::RegisterSuite(scope, workbench::TheServer().module);
    } else {
      workbench::UnregisterSuite(scope);
    }
  });
}

}  // namespace

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) {
    workbench::TheServer().module = module;
    DisableThreadLibraryCalls(module);
  }
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
  using namespace workbench;
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  const auto classes = SuiteClasses();
  for (std::size_t i = 0; i < std::size(kSuiteClassIds) && i < classes.size(); ++i) {
    if (kSuiteClassIds[i] != classId) continue;
    return pricedown::windows::AtBoundary([&] {
      return pricedown::windows::MakeCom<SuiteClassFactory>(classes[i])->QueryInterface(id, result);
    });
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

// The suite's state outlives its objects (each command creates its own connection), so the DLL
// stays loaded until the process ends.
STDAPI DllCanUnloadNow() { return S_FALSE; }

STDAPI DllRegisterServer() {
  return SetSuiteRegistered(true, pricedown::windows::RegistrationScope::Machine);
}

// Removes both kinds of registration.
STDAPI DllUnregisterServer() {
  using pricedown::windows::RegistrationScope;
  const HRESULT user = SetSuiteRegistered(false, RegistrationScope::User);
  const HRESULT machine = SetSuiteRegistered(false, RegistrationScope::Machine);
  return FAILED(machine) ? machine : user;
}

// `commandLine` is "user" for the current user alone and empty for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  using pricedown::windows::RegistrationScope;
  const bool machine = commandLine == nullptr || *commandLine == L'\0';
  if (!machine && lstrcmpiW(commandLine, L"user") != 0) return E_INVALIDARG;
  return SetSuiteRegistered(install != FALSE,
                            machine ? RegistrationScope::Machine : RegistrationScope::User);
}
