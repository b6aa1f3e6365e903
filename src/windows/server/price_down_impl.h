// `_PriceDown`: the control's public members, and `_PriceDownState` beside them. Late-bound calls
// run the rows of price_down_members.h; early-bound ones do, too, except for setting the listener.
#pragma once

#include <initializer_list>

#include "windows/com/com_class.h"
#include "windows/server/hosted_control.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"

namespace pricedown::windows {

template <>
struct BasesOf<_PriceDown> : InterfaceList<IDispatch> {};

class PriceDownImpl : public Implements<_PriceDown, _PriceDownState> {
 public:
  STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** result) noexcept override;
  STDMETHODIMP GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                             DISPID* ids) noexcept override;
  STDMETHODIMP Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                      VARIANT* result, EXCEPINFO* record, UINT* badArgument) noexcept override;

  STDMETHODIMP NotifyMessage(BSTR strMsg, SAFEARRAY** Params) noexcept override;
  STDMETHODIMP RefreshToolbar() noexcept override;
  STDMETHODIMP Show(IDispatch** ParentWnd, VARIANT_BOOL* result) noexcept override;
  STDMETHODIMP put_ShowMode(short mode) noexcept override;
  STDMETHODIMP ParentWindow_ToolBarClick(IDispatch** Tool, VARIANT_BOOL* bUse) noexcept override;
  STDMETHODIMP SelBlock(IDispatch* grd, VARIANT lCol, VARIANT lCol2, VARIANT lRow,
                        VARIANT lRow2) noexcept override;
  STDMETHODIMP PreviewPara(VARIANT* result) noexcept override;
  STDMETHODIMP PrintPara(VARIANT* result) noexcept override;
  STDMETHODIMP ModelCurrent(VARIANT* result) noexcept override;
  STDMETHODIMP addRecord(VARIANT* result) noexcept override;
  STDMETHODIMP editRecord(VARIANT* result) noexcept override;
  STDMETHODIMP delRecord(VARIANT* result) noexcept override;

  STDMETHODIMP get_Ready(VARIANT_BOOL* result) noexcept override;
  STDMETHODIMP get_CreationError(BSTR* result) noexcept override;
  STDMETHODIMP get_Listener(IDispatch** result) noexcept override;
  STDMETHODIMP put_Listener(IDispatch* object) noexcept override;
  STDMETHODIMP putref_Listener(IDispatch* object) noexcept override;

 protected:
  virtual HostedControl& Hosted() noexcept = 0;
  ~PriceDownImpl() = default;

 private:
  // Runs the first member with that number. Throws what it throws.
  Value Call(DISPID id, std::initializer_list<Value> arguments = {});
  // A member without arguments that returns a variant.
  HRESULT Answer(DISPID id, VARIANT* result) noexcept;
};

}  // namespace pricedown::windows
