// Objects of the core as IDispatch and back. Values may be objects, and an object's calls convert
// values: this header breaks that circle; dispatch_object.cpp defines both functions.
#pragma once

#include <oaidl.h>

#include "platform/automation.h"
#include "windows/com/com_ptr.h"

namespace pricedown::windows {

// The object behind an interface: our own object again when it is one of this module, else a
// ComObject, which adds a reference. Null for null.
ObjectPtr FromDispatch(IDispatch* object);

// The interface of an object: the one behind a ComObject, else a new DispatchObject.
ComPtr<IDispatch> ToDispatch(const ObjectPtr& object);

}  // namespace pricedown::windows
