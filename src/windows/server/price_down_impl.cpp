// Early-bound and late-bound calls of the control's members.
#include "windows/server/price_down_impl.h"

#include <algorithm>

#include "windows/com/bstr.h"
#include "windows/com/variant_value.h"
#include "windows/server/price_down_members.h"
#include "windows/server/type_information.h"

namespace pricedown::windows {
namespace {

// A null pointer to an object means no object.
Value Borrowed(IDispatch** object) {
  return object == nullptr ? Value(nullptr) : Value(FromDispatch(*object));
}

}  // namespace

STDMETHODIMP PriceDownImpl::GetTypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP PriceDownImpl::GetTypeInfo(UINT index, LCID, ITypeInfo** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return index == 0 ? GetTypeInformation(IID__PriceDown, result) : DISP_E_BADINDEX;
}

STDMETHODIMP PriceDownImpl::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) noexcept {
  return TableNamesToIds(PriceDownMembers(), names, count, ids);
}

STDMETHODIMP PriceDownImpl::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* record, UINT* badArgument) noexcept {
  if (!Hosted().IsOnItsThread()) return RefuseThread();
  const auto hold = ComPtr<IUnknown>::Share(Identity());
  return InvokeTable(PriceDownMembers(), Hosted(), id, flags, parameters, result, record,
                     badArgument);
}

Value PriceDownImpl::Call(DISPID id, std::initializer_list<Value> arguments) {
  const auto members = PriceDownMembers();
  const auto row = std::find_if(members.begin(), members.end(),
                                [&](const auto& one) { return one.member.id == id; });
  return row->run(Hosted(), DispatchArguments(arguments.begin(), arguments.size()));
}

HRESULT PriceDownImpl::Answer(DISPID id, VARIANT* result) noexcept {
  if (result == nullptr) return E_POINTER;
  VariantInit(result);
  return Hosted().Run([&] { *result = ToVariant(Call(id)).release(); }, IID__PriceDown);
}

STDMETHODIMP PriceDownImpl::NotifyMessage(BSTR strMsg, SAFEARRAY**) noexcept {
  return Hosted().Run(
      [&] {
        Call(member_ids::kNotifyMessage, {FromBstr(strMsg), Value()});
      },
      IID__PriceDown);
}

STDMETHODIMP PriceDownImpl::RefreshToolbar() noexcept {
  return Hosted().Run([&] { Call(member_ids::kRefreshToolbar); }, IID__PriceDown);
}

STDMETHODIMP PriceDownImpl::Show(IDispatch** ParentWnd, VARIANT_BOOL* result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = VARIANT_FALSE;
  return Hosted().Run(
      [&] {
        *result =
            Call(member_ids::kShow, {Borrowed(ParentWnd)}).Boolean() ? VARIANT_TRUE : VARIANT_FALSE;
      },
      IID__PriceDown);
}

STDMETHODIMP PriceDownImpl::put_ShowMode(short mode) noexcept {
  return Hosted().Run([&] { Call(member_ids::kShowMode, {static_cast<std::int16_t>(mode)}); },
                      IID__PriceDown);
}

STDMETHODIMP PriceDownImpl::ParentWindow_ToolBarClick(IDispatch** Tool, VARIANT_BOOL*) noexcept {
  return Hosted().Run(
      [&] {
        Call(member_ids::kToolBarClick, {Borrowed(Tool), false});
      },
      IID__PriceDown);
}

STDMETHODIMP PriceDownImpl::SelBlock(IDispatch* grd, VARIANT lCol, VARIANT lCol2, VARIANT lRow,
                                     VARIANT lRow2) noexcept {
  return Hosted().Run(
      [&] {
        Call(member_ids::kSelBlock,
             {FromDispatch(grd), FromVariantOrNullBlock(lCol), FromVariantOrNullBlock(lCol2),
              FromVariantOrNullBlock(lRow), FromVariantOrNullBlock(lRow2)});
      },
      IID__PriceDown);
}

STDMETHODIMP PriceDownImpl::PreviewPara(VARIANT* result) noexcept {
  return Answer(member_ids::kPreviewPara, result);
}

STDMETHODIMP PriceDownImpl::PrintPara(VARIANT* result) noexcept {
  return Answer(member_ids::kPrintPara, result);
}

STDMETHODIMP PriceDownImpl::ModelCurrent(VARIANT* result) noexcept {
  return Answer(member_ids::kModelCurrent, result);
}

STDMETHODIMP PriceDownImpl::addRecord(VARIANT* result) noexcept {
  return Answer(member_ids::kAddRecord, result);
}

STDMETHODIMP PriceDownImpl::editRecord(VARIANT* result) noexcept {
  return Answer(member_ids::kEditRecord, result);
}

STDMETHODIMP PriceDownImpl::delRecord(VARIANT* result) noexcept {
  return Answer(member_ids::kDelRecord, result);
}

STDMETHODIMP PriceDownImpl::get_Ready(VARIANT_BOOL* result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = VARIANT_FALSE;
  return Hosted().Run(
      [&] { *result = Call(member_ids::kReady).Boolean() ? VARIANT_TRUE : VARIANT_FALSE; },
      IID__PriceDownState);
}

STDMETHODIMP PriceDownImpl::get_CreationError(BSTR* result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return Hosted().Run([&] { *result = Bstr(Call(member_ids::kCreationError).Text()).release(); },
                      IID__PriceDownState);
}

STDMETHODIMP PriceDownImpl::get_Listener(IDispatch** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return Hosted().Run([&] { *result = ToDispatch(Call(member_ids::kListener).Object()).release(); },
                      IID__PriceDownState);
}

STDMETHODIMP PriceDownImpl::put_Listener(IDispatch* object) noexcept {
  return Hosted().Run([&] { Hosted().Events().SetListener(FromDispatch(object)); },
                      IID__PriceDownState);
}

STDMETHODIMP PriceDownImpl::putref_Listener(IDispatch* object) noexcept {
  return put_Listener(object);
}

}  // namespace pricedown::windows
