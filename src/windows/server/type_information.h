// The descriptions of the public classes from the type library inside the module.
#pragma once

#include <oaidl.h>

namespace pricedown::windows {

// The description of an interface or a class, with a reference for the caller.
HRESULT GetTypeInformation(REFGUID id, ITypeInfo** result) noexcept;

}  // namespace pricedown::windows
