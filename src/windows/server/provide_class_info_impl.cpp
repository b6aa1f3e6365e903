// Answers from the type library, and the connection point of the events.
#include "windows/server/provide_class_info_impl.h"

#include <olectl.h>

#include "windows/com/enumerator.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"
#include "windows/server/type_information.h"

namespace pricedown::windows {
namespace {

struct ConnectionPoints {
  using Item = ComPtr<IConnectionPoint>;
  using Element = IConnectionPoint*;
  static IConnectionPoint* Copy(const Item& point) { return point.Copy().release(); }
  static void Free(IConnectionPoint* element) { element->Release(); }
};

}  // namespace

STDMETHODIMP ProvideClassInfoImpl::GetClassInfo(ITypeInfo** info) noexcept {
  return GetTypeInformation(CLSID_PriceDown, info);
}

STDMETHODIMP ProvideClassInfoImpl::GetGUID(DWORD kind, GUID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  *id = GUID{};
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *id = DIID__PriceDownEvents;
  return S_OK;
}

EventConnectionPoint& ProvideClassInfoImpl::Point() {
  if (!point_) point_.emplace(*this, Hosted());
  return *point_;
}

STDMETHODIMP ProvideClassInfoImpl::InterfaceSupportsErrorInfo(REFIID id) noexcept {
  return id == IID__PriceDown || id == IID__PriceDownState || id == IID_IDispatch ||
                 id == IID_IOleObject
             ? S_OK
             : S_FALSE;
}

STDMETHODIMP ProvideClassInfoImpl::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
  if (points == nullptr) return E_POINTER;
  *points = nullptr;
  return Hosted().Run([&] {
    auto list = std::make_shared<std::vector<ComPtr<IConnectionPoint>>>();
    list->push_back(ComPtr<IConnectionPoint>::Share(&Point()));
    *points =
        MakeCom<Enumerator<IEnumConnectionPoints, ConnectionPoints>>(std::move(list)).release();
  });
}

STDMETHODIMP ProvideClassInfoImpl::FindConnectionPoint(REFIID id,
                                                       IConnectionPoint** point) noexcept {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  if (id != DIID__PriceDownEvents) return CONNECT_E_NOCONNECTION;
  return Hosted().Run([&] { *point = ComPtr<IConnectionPoint>::Share(&Point()).release(); });
}

}  // namespace pricedown::windows
