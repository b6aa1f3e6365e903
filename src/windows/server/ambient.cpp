// The reading of ambient properties.
#include "windows/server/ambient.h"

#include "windows/com/com_ptr.h"
#include "windows/com/variant.h"

namespace pricedown::windows {

bool AmbientFlag(IOleClientSite* site, DISPID property, bool fallback) noexcept {
  const auto ambient = ComPtr<IOleClientSite>::Share(site).As<IDispatch>();
  if (!ambient) return fallback;
  DISPPARAMS none{};
  Variant value;
  const HRESULT code = ambient->Invoke(property, IID{}, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET,
                                       &none, value.put(), nullptr, nullptr);
  if (FAILED(code) || value.get().vt != VT_BOOL) return fallback;
  return value.get().boolVal != VARIANT_FALSE;
}

}  // namespace pricedown::windows
