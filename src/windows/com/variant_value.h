// The core's values as VARIANTs and back: the one place with rules about variant types.
#pragma once

#include <vector>

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

// The same as FromVariant, but an array of variants with one dimension becomes a row that is read
// in place, for a callee that keeps no array longer than the call.
Value FromArgument(const VARIANT& argument);

// The list as a row that is converted to a variant without copying it.
Value ToRow(const std::vector<Value>& list);

// A reference is followed. Throws AutomationError (TypeMismatch for a null block) or
// std::bad_alloc.
Variant ToVariant(const Value& value);

}  // namespace pricedown::windows
