// Loads the DLL and calls its entry points.
#include "tests/windows/server/library.h"

#include "tests/windows/system_call.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::testing {

using windows::ComPtr;

Library::Library() : module_(LoadLibraryW(L"ZEPPriceDownPrepare.dll")) {
  if (module_ == nullptr) throw std::runtime_error("no ZEPPriceDownPrepare.dll");
}

Library::~Library() { FreeLibrary(module_); }

HRESULT Library::GetClassObject(REFCLSID classId, REFIID interfaceId, void** result) const {
  return FunctionIn<HRESULT(STDMETHODCALLTYPE*)(REFCLSID, REFIID, void**)>(
      module_, "DllGetClassObject")(classId, interfaceId, result);
}

bool Library::CanUnload() const {
  return FunctionIn<HRESULT(STDMETHODCALLTYPE*)()>(module_, "DllCanUnloadNow")() == S_OK;
}

HRESULT Library::RegisterServer() const {
  return FunctionIn<HRESULT(STDMETHODCALLTYPE*)()>(module_, "DllRegisterServer")();
}

HRESULT Library::UnregisterServer() const {
  return FunctionIn<HRESULT(STDMETHODCALLTYPE*)()>(module_, "DllUnregisterServer")();
}

HRESULT Library::Install(bool install, const wchar_t* commandLine) const {
  return FunctionIn<HRESULT(STDMETHODCALLTYPE*)(BOOL, LPCWSTR)>(module_, "DllInstall")(
      install ? TRUE : FALSE, commandLine);
}

ComPtr<IClassFactory> Library::ClassObject(REFCLSID classId) const {
  ComPtr<IClassFactory> factory;
  GetClassObject(classId, IID_IClassFactory, factory.putVoid());
  return factory;
}

ComPtr<IUnknown> Library::Create(REFCLSID classId) const {
  ComPtr<IUnknown> object;
  if (const auto factory = ClassObject(classId)) {
    factory->CreateInstance(nullptr, IID_IUnknown, object.putVoid());
  }
  return object;
}

ComPtr<IDispatch> Library::NewPriceDown() const { return Create(CLSID_PriceDown).As<IDispatch>(); }

ComPtr<IDispatch> Library::NewUpdatePrice() const {
  return Create(CLSID_updatePrice).As<IDispatch>();
}

}  // namespace pricedown::testing
