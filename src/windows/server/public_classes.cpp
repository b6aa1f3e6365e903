// The module's two classes and its type library.
#include "windows/server/public_classes.h"

#include <array>

#include "windows/server/dll/resource_ids.h"
#include "windows/server/idl/ZEPPriceDownPrepare.h"
#include "windows/server/price_down_object.h"
#include "windows/server/update_price_object.h"

namespace pricedown::windows {
namespace {

template <typename T>
ComPtr<IUnknown> Create() {
  auto object = MakeCom<T>();
  return object.template As<IUnknown>();
}

}  // namespace

std::span<const PublicClass> PublicClasses() {
  static const std::array classes{PublicClass{CLSID_PriceDown, Create<PriceDownObject>},
                                  PublicClass{CLSID_updatePrice, Create<UpdatePriceObject>}};
  return classes;
}

ServerEntries RegistryEntries() {
  ServerEntries entries;
  entries.classes = {{.id = CLSID_PriceDown,
                      .name = L"ZEPPriceDownPrepare.PriceDown",
                      .progId = L"ZEPPriceDownPrepare.PriceDown",
                      .control = true,
                      .miscStatus = kControlStatus,
                      .toolboxBitmap = PRICEDOWN_TOOLBOX_BITMAP},
                     {.id = CLSID_updatePrice,
                      .name = L"ZEPPriceDownPrepare.updatePrice",
                      .progId = L"ZEPPriceDownPrepare.updatePrice"}};
  entries.library = TypeLibraryEntry{LIBID_ZEPPriceDownPrepare,
                                     L"ZEPPriceDownPrepare",
                                     L"1.0",
                                     {{IID__PriceDown, L"_PriceDown"},
                                      {IID__PriceDownState, L"_PriceDownState"},
                                      {DIID__PriceDownEvents, L"_PriceDownEvents", true},
                                      {IID__updatePrice, L"_updatePrice"}}};
  return entries;
}

}  // namespace pricedown::windows
