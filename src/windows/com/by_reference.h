// By-reference variants: reading what they point to, and storing a callee's result there.
#pragma once

#include "windows/com/variant.h"

namespace pricedown::windows {

// What a by-reference variant points to, as a variant that owns nothing.
// Requires: `reference` is one. Throws AutomationError (TypeMismatch) for a null pointer, a type
// without a fixed size, or a reference to a reference to a variant.
VARIANT Dereferenced(const VARIANT& reference);

// Stores `value` where a by-reference variant points, converted to the type found there; the old
// content is freed. Throws AutomationError (TypeMismatch, Overflow) and then changes nothing.
void StoreByReference(const VARIANT& reference, Variant value);

}  // namespace pricedown::windows
