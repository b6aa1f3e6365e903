// An object of the suite that does in each call what the test says, and counts its references.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <atomic>
#include <functional>

namespace workbench {

class CalledObject final : public IDispatch {
 public:
  struct Call {
    DISPPARAMS* parameters;
    VARIANT* result;
    EXCEPINFO* record;
    UINT* badArgument;
  };
  using OnCall = std::function<HRESULT(const Call& call)>;

  OnCall onCall = [](const Call&) { return S_OK; };
  std::atomic<long> references = 1;  // the test's own

  STDMETHODIMP QueryInterface(REFIID id, void** result) noexcept override {
    *result = nullptr;
    if (id != IID_IUnknown && id != IID_IDispatch) return E_NOINTERFACE;
    *result = this;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() noexcept override { return static_cast<ULONG>(++references); }
  STDMETHODIMP_(ULONG) Release() noexcept override { return static_cast<ULONG>(--references); }
  STDMETHODIMP GetTypeInfoCount(UINT*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) noexcept override {
    ids[0] = lstrcmpiW(names[0], L"MoveNext") == 0 ? 7 : DISPID_UNKNOWN;
    return ids[0] == DISPID_UNKNOWN ? DISP_E_UNKNOWNNAME : S_OK;
  }
  STDMETHODIMP Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                      EXCEPINFO* record, UINT* badArgument) noexcept override {
    return onCall({parameters, result, record, badArgument});
  }
};

}  // namespace workbench
