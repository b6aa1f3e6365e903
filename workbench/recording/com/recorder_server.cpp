// SuiteRecorder.dll: recorded objects behind the suite's ProgIDs.
#include <windows.h>

#include <nlohmann/json.hpp>

#include "windows/com/boundary.h"
#include "windows/com/com_class.h"
#include "workbench/recording/com/call_json.h"
#include "workbench/recording/com/real_suite.h"
#include "workbench/recording/com/recorded_classes.h"
#include "workbench/recording/com/recorded_object.h"
#include "workbench/recording/com/recorder.h"
#include "workbench/recording/com/recorder_registration.h"

namespace workbench {
namespace {

using pricedown::windows::AtBoundary;
using pricedown::windows::ComClass;
using pricedown::windows::ComPtr;
using pricedown::windows::Counts;
using pricedown::windows::RegistrationScope;

HINSTANCE thisModule = nullptr;

// A name of our own, so that lines need no conversion.
std::string ProgIdOf(const RecordedClass& recorded) {
  const std::wstring wide = recorded.progId;
  return std::string(wide.begin(), wide.end());
}

class RecordedClassFactory final : public ComClass<IClassFactory> {
 public:
  explicit RecordedClassFactory(const RecordedClass& recorded) : class_(recorded) {}

  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID id, void** result) noexcept override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return AtBoundary([&]() -> HRESULT {
      if (class_.kind == RecordedClass::Kind::Forwarded) return CreateReal(class_, id, result);
      ComPtr<IUnknown> object;
      const HRESULT code = CreateRecorded(object);
      return FAILED(code) ? code : object->QueryInterface(id, result);
    });
  }

  STDMETHODIMP LockServer(BOOL lock) noexcept override {
    Counts().locks += lock != FALSE ? 1 : -1;
    return S_OK;
  }

 private:
  HRESULT CreateRecorded(ComPtr<IUnknown>& object) {
    CallClock clock;
    const HRESULT code = CreateReal(class_, IID_IUnknown, object.putVoid());
    clock.Stop();
    const ThreadState kept;
    const std::string progId = ProgIdOf(class_);
    Json line = clock.Line("create");
    line["member"] = progId;
    if (SUCCEEDED(code)) {
      object = RecordedObject::Wrap(object.get(), progId);
      VARIANT variant{};
      variant.vt = VT_UNKNOWN;
      variant.punkVal = object.get();
      line["result"] = ContentOf(variant);
    } else {
      line["failure"] = FailureOf(code, nullptr, kept.Info());
    }
    Recorder::Instance().Write(line);
    return code;
  }

  const RecordedClass& class_;
};

HRESULT SetRegistered(bool registered, RegistrationScope scope) noexcept {
  return AtBoundary([&] {
    if (registered) {
      RegisterRecorder(scope, thisModule);
    } else {
      UnregisterRecorder(scope);
    }
  });
}

}  // namespace
}  // namespace workbench

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) workbench::thisModule = module;
  return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** result) {
  using namespace workbench;
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  for (const RecordedClass& recorded : kRecordedClasses) {
    if (recorded.id != classId) continue;
    return pricedown::windows::AtBoundary([&] {
      return pricedown::windows::MakeCom<RecordedClassFactory>(recorded)->QueryInterface(id,
                                                                                         result);
    });
  }
  return CLASS_E_CLASSNOTAVAILABLE;
}

// One recording per process: the file stays open and the numbers go on.
STDAPI DllCanUnloadNow() { return S_FALSE; }

STDAPI DllRegisterServer() {
  return workbench::SetRegistered(true, pricedown::windows::RegistrationScope::Machine);
}

// Removes both kinds of registration.
STDAPI DllUnregisterServer() {
  using pricedown::windows::RegistrationScope;
  const HRESULT user = workbench::SetRegistered(false, RegistrationScope::User);
  const HRESULT machine = workbench::SetRegistered(false, RegistrationScope::Machine);
  return FAILED(machine) ? machine : user;
}

// `commandLine` is "user" for the current user alone and empty for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR commandLine) {
  using pricedown::windows::RegistrationScope;
  const bool machine = commandLine == nullptr || *commandLine == L'\0';
  if (!machine && lstrcmpiW(commandLine, L"user") != 0) return E_INVALIDARG;
  return workbench::SetRegistered(install != FALSE,
                                  machine ? RegistrationScope::Machine : RegistrationScope::User);
}
