// The core's values as VARIANTs and back: the one place with rules about variant types.
// Locales play no part; texts are not turned into numbers here.
#pragma once

#include "platform/cell_block.h"
#include "platform/value.h"
#include "windows/com/com_ptr.h"
#include "windows/com/variant.h"

namespace pricedown::windows {

// A copy of the content; objects get a reference. By-reference variants are read through, numbers
// without a kind of their own become Int32 where they fit and Double otherwise, one-dimensional
// arrays become lists, two-dimensional ones blocks.
// Throws AutomationError (TypeMismatch) for what the core has no kind for: error codes, records,
// objects without automation, other arrays.
Value FromVariant(const VARIANT& variant);

// The same without copying a two-dimensional array.
Value TakeVariant(Variant variant);

// A reference is followed. Throws AutomationError or std::bad_alloc.
Variant ToVariant(const Value& value);

// The view of a variant; its text is valid as long as the variant is unchanged.
CellView ViewOf(const VARIANT& variant);

// One cell of a block, its text copied once.
Variant CellToVariant(const CellBlock& block, std::size_t column, std::size_t row);

// The object behind an interface: our own object again when it is one of this module, else a
// ComObject, which adds a reference. Null for null.
ObjectPtr FromDispatch(IDispatch* object);

// The interface of an object: the one behind a ComObject, else a new DispatchObject.
ComPtr<IDispatch> ToDispatch(const ObjectPtr& object);

}  // namespace pricedown::windows
