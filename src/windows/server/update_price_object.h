// The COM object `updatePrice` and its members as a table.
#pragma once

#include "control/update_price.h"
#include "windows/com/com_class.h"
#include "windows/com/dispatch_table.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"
#include "windows/server/module.h"

namespace pricedown::windows {

std::span<const DispatchRow<UpdatePrice>> UpdatePriceMembers();

template <>
struct BasesOf<_updatePrice> : InterfaceList<IDispatch> {};

class UpdatePriceObject final : public ComClass<_updatePrice, ISupportErrorInfo> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* record, UINT* badArgument) noexcept override;

  STDMETHODIMP ItemClassType() noexcept override;
  STDMETHODIMP get_ItemClassTypeValue(short* result) noexcept override;

  STDMETHODIMP InterfaceSupportsErrorInfo(REFIID id) noexcept override;

 private:
  const DWORD thread_ = GetCurrentThreadId();
  UpdatePrice price_{TheModule().factory};
};

}  // namespace pricedown::windows
