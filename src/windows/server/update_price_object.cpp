// Early-bound and late-bound calls of `updatePrice`. For late-bound clients one name is both a
// method and a property; IsMeant in dispatch_table.h chooses.
#include "windows/server/update_price_object.h"

#include <array>

#include "windows/server/type_information.h"

namespace pricedown::windows {
namespace {

using UpdatePriceRow = DispatchRow<UpdatePrice>;

// The method returns nothing; callers read the property.
Value ReadSetting(UpdatePrice& price, DispatchArguments) {
  price.ReadItemClassType();
  return {};
}

Value Setting(UpdatePrice& price, DispatchArguments) { return price.ItemClassType(); }

constexpr std::array kUpdatePriceMembers{
    UpdatePriceRow{{u"ItemClassType", 1, DISPATCH_METHOD, {}}, ReadSetting},
    UpdatePriceRow{{u"ItemClassType", 1, DISPATCH_PROPERTYGET, {}}, Setting},
    UpdatePriceRow{{u"ItemClassTypeValue", 2, DISPATCH_PROPERTYGET, {}}, Setting},
};

}  // namespace

std::span<const DispatchRow<UpdatePrice>> UpdatePriceMembers() { return kUpdatePriceMembers; }

STDMETHODIMP UpdatePriceObject::GetTypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP UpdatePriceObject::GetTypeInfo(UINT index, LCID, ITypeInfo** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return index == 0 ? GetTypeInformation(IID__updatePrice, result) : DISP_E_BADINDEX;
}

STDMETHODIMP UpdatePriceObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                              DISPID* ids) noexcept {
  return TableNamesToIds(UpdatePriceMembers(), names, count, ids);
}

STDMETHODIMP UpdatePriceObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                       VARIANT* result, EXCEPINFO* record,
                                       UINT* badArgument) noexcept {
  if (GetCurrentThreadId() != thread_) return RefuseThread();
  const auto hold = ComPtr<IUnknown>::Share(Identity());
  return InvokeTable(UpdatePriceMembers(), price_, id, flags, parameters, result, record,
                     badArgument);
}

STDMETHODIMP UpdatePriceObject::ItemClassType() noexcept {
  if (GetCurrentThreadId() != thread_) return RefuseThread();
  const auto hold = ComPtr<IUnknown>::Share(Identity());
  return AtBoundary([&] { price_.ReadItemClassType(); }, IID__updatePrice);
}

STDMETHODIMP UpdatePriceObject::get_ItemClassTypeValue(short* result) noexcept {
  if (result == nullptr) return E_POINTER;
  if (GetCurrentThreadId() != thread_) return RefuseThread();
  *result = price_.ItemClassType();
  return S_OK;
}

STDMETHODIMP UpdatePriceObject::InterfaceSupportsErrorInfo(REFIID id) noexcept {
  return id == IID__updatePrice || id == IID_IDispatch ? S_OK : S_FALSE;
}

}  // namespace pricedown::windows
