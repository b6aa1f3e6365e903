// An automation object of the core as an IDispatch.
#pragma once

#include <oaidl.h>

#include "platform/automation.h"
#include "windows/com/com_class.h"

namespace pricedown::windows {

// How this module recognises its own objects when they come back; private to it.
MIDL_INTERFACE("C0D44559-D7C8-4F0B-A834-7A0C2B921E6F") OwnObject : public IUnknown {
  // An address that differs from module to module.
  virtual const void* STDMETHODCALLTYPE Module() noexcept = 0;
  // Borrowed. Only for this module: the result is no COM type.
  virtual const ObjectPtr* STDMETHODCALLTYPE Target() noexcept = 0;
};

}  // namespace pricedown::windows

#ifdef __CRT_UUID_DECL  // mingw-w64's, whose MIDL_INTERFACE drops the id
__CRT_UUID_DECL(pricedown::windows::OwnObject, 0xC0D44559, 0xD7C8, 0x4F0B, 0xA8, 0x34, 0x7A, 0x0C,
                0x2B, 0x92, 0x1E, 0x6F)
#endif

namespace pricedown::windows {

// Calls are answered on the thread that made it; on another one they return RPC_E_WRONG_THREAD.
class DispatchObject final : public ComClass<IDispatch, ISupportErrorInfo, OwnObject> {
 public:
  // Requires: `target` is not null.
  explicit DispatchObject(ObjectPtr target) : target_(std::move(target)) {}

  // The object behind one of this module's wrappers; null when `object` is none.
  static ObjectPtr TargetOf(IUnknown* object);

  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* record, UINT* badArgument) noexcept override;

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) noexcept override;

  const void* STDMETHODCALLTYPE Module() noexcept override;
  const ObjectPtr* STDMETHODCALLTYPE Target() noexcept override { return &target_; }

 private:
  const DWORD thread_ = GetCurrentThreadId();
  ObjectPtr target_;
};

}  // namespace pricedown::windows
