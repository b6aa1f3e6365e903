// The core's values as VARIANTs and back: the one place with rules about variant types.
#pragma once

#include "platform/value.h"
#include "windows/com/dispatch_value.h"
#include "windows/com/variant.h"

namespace pricedown::windows {

// A copy of the content, with a reference to an object. By-reference variants are read through,
// numbers without a kind of their own become Int32 where they fit and Double otherwise,
// one-dimensional arrays become lists, two-dimensional ones blocks. Throws AutomationError
// (TypeMismatch) for what the core has no kind for: error codes, records, objects without
// automation, other arrays.
Value FromVariant(const VARIANT& variant);

// The same, but a null block for what the core has no kind for. ToVariant refuses it, so it cannot
// be passed on.
Value FromVariantOrNullBlock(const VARIANT& variant);

// The same as FromVariant without copying a two-dimensional array.
Value ConsumeVariant(Variant variant);

// A reference is followed. Throws AutomationError (TypeMismatch for a null block) or
// std::bad_alloc.
Variant ToVariant(const Value& value);

}  // namespace pricedown::windows
