// Answers from the type library, and an empty list of events.
#include "windows/server/provide_class_info_impl.h"

#include <olectl.h>

#include "windows/com/boundary.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"
#include "windows/server/type_information.h"

namespace pricedown::windows {
namespace {

class NoConnectionPoints final : public ComClass<IEnumConnectionPoints> {
 public:
  STDMETHODIMP Next(ULONG wanted, IConnectionPoint** points, ULONG* fetched) noexcept override {
    if (points == nullptr || (fetched == nullptr && wanted != 1)) return E_POINTER;
    if (fetched != nullptr) *fetched = 0;
    return wanted == 0 ? S_OK : S_FALSE;
  }
  STDMETHODIMP Skip(ULONG count) noexcept override { return count == 0 ? S_OK : S_FALSE; }
  STDMETHODIMP Reset() noexcept override { return S_OK; }
  STDMETHODIMP Clone(IEnumConnectionPoints** copy) noexcept override {
    if (copy == nullptr) return E_POINTER;
    *copy = nullptr;
    return AtBoundary([&] { *copy = MakeCom<NoConnectionPoints>().release(); });
  }
};

}  // namespace

STDMETHODIMP ProvideClassInfoImpl::GetClassInfo(ITypeInfo** info) noexcept {
  return GetTypeInformation(CLSID_PriceDown, info);
}

STDMETHODIMP ProvideClassInfoImpl::GetGUID(DWORD kind, GUID* id) noexcept {
  if (id == nullptr) return E_POINTER;
  // The only kind there is asks for the interface of events, of which there is none.
  *id = GUID{};
  return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? E_FAIL : E_INVALIDARG;
}

STDMETHODIMP ProvideClassInfoImpl::InterfaceSupportsErrorInfo(REFIID id) noexcept {
  return id == IID__PriceDown || id == IID_IDispatch || id == IID_IOleObject ? S_OK : S_FALSE;
}

STDMETHODIMP ProvideClassInfoImpl::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept {
  if (points == nullptr) return E_POINTER;
  *points = nullptr;
  return AtBoundary([&] { *points = MakeCom<NoConnectionPoints>().release(); });
}

STDMETHODIMP ProvideClassInfoImpl::FindConnectionPoint(REFIID, IConnectionPoint** point) noexcept {
  if (point == nullptr) return E_POINTER;
  *point = nullptr;
  return CONNECT_E_NOCONNECTION;
}

}  // namespace pricedown::windows
