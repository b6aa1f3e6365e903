// The class objects of a module: what DllGetClassObject returns.
#pragma once

#include <unknwn.h>

#include <span>

#include "windows/com/com_ptr.h"

namespace pricedown::windows {

struct PublicClass {
  CLSID id;
  // A new object; throws AutomationError or std::bad_alloc.
  ComPtr<IUnknown> (*create)();
};

// The class object of one of `classes` with a reference for the caller.
HRESULT GetClassObject(std::span<const PublicClass> classes, REFCLSID classId, REFIID interfaceId,
                       void** result) noexcept;

}  // namespace pricedown::windows
