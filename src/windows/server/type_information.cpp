// Loading the embedded type library.
#include "windows/server/type_information.h"

#include "windows/com/boundary.h"
#include "windows/com/com_ptr.h"
#include "windows/com/module_path.h"
#include "windows/com/system_error.h"
#include "windows/server/module.h"

namespace pricedown::windows {

HRESULT GetTypeInformation(REFGUID id, ITypeInfo** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return AtBoundary([&] {
    ComPtr<ITypeLib> library;
    const std::wstring path = ModulePath(TheModule().instance);
    ThrowIfFailed(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.put()));
    ThrowIfFailed(library->GetTypeInfoOfGuid(id, result));
  });
}

}  // namespace pricedown::windows
