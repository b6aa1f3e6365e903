// Loads and stores through by-reference variants, by size; conversions are the system's.
#include "windows/com/by_reference.h"

#include <cstring>
#include <utility>

#include "platform/error.h"
#include "windows/com/system_error.h"

namespace pricedown::windows {
namespace {

constexpr VARTYPE kVariantReference = VT_BYREF | VT_VARIANT;

[[noreturn]] void ThrowReferenceMismatch() {
  throw AutomationError(ErrorNumber::TypeMismatch, u"按引用传递的参数类型不匹配");
}

// Bytes of a variant's content of that type; 0 for types that are not kept in its union.
std::size_t ContentSize(VARTYPE type) {
  if ((type & VT_ARRAY) != 0) return sizeof(SAFEARRAY*);
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    default:
      return 0;
  }
}

VARTYPE ReferredType(const VARIANT& reference) {
  if (reference.byref == nullptr) ThrowReferenceMismatch();
  return static_cast<VARTYPE>(reference.vt & ~VT_BYREF);
}

void StoreDecimal(DECIMAL& target, Variant value) {
  VARIANT converted;
  VariantInit(&converted);
  ThrowIfFailed(VariantChangeTypeEx(&converted, value.share(), LOCALE_INVARIANT, 0, VT_DECIMAL));
  target = converted.decVal;
  target.wReserved = 0;
}

void StoreTyped(void* target, VARTYPE type, Variant value) {
  const std::size_t size = ContentSize(type);
  if (size == 0) ThrowReferenceMismatch();
  Variant converted;
  ThrowIfFailed(VariantChangeTypeEx(converted.put(), value.share(), LOCALE_INVARIANT,
                                    VARIANT_ALPHABOOL, type));
  VARIANT old;
  VariantInit(&old);
  VARIANT next = converted.release();
  std::memcpy(&old.llVal, target, size);
  old.vt = type;
  std::memcpy(target, &next.llVal, size);
  VariantClear(&old);
}

}  // namespace

VARIANT Dereferenced(const VARIANT& reference) {
  const VARTYPE type = ReferredType(reference);
  if (type == VT_VARIANT) {
    if (reference.pvarVal->vt == kVariantReference) ThrowReferenceMismatch();
    return *reference.pvarVal;
  }
  VARIANT content;
  VariantInit(&content);
  if (type == VT_DECIMAL) {
    content.decVal = *reference.pdecVal;
  } else if (const std::size_t size = ContentSize(type); size != 0) {
    std::memcpy(&content.llVal, reference.byref, size);
  } else {
    ThrowReferenceMismatch();
  }
  content.vt = type;
  return content;
}

void StoreByReference(const VARIANT& reference, Variant value) {
  const VARTYPE type = ReferredType(reference);
  if (type == VT_DECIMAL) {
    StoreDecimal(*reference.pdecVal, std::move(value));
  } else if (type != VT_VARIANT) {
    StoreTyped(reference.byref, type, std::move(value));
  } else if ((reference.pvarVal->vt & VT_BYREF) == 0) {
    VARIANT next = value.release();
    std::swap(*reference.pvarVal, next);
    VariantClear(&next);
  } else if (reference.pvarVal->vt != kVariantReference) {
    StoreByReference(*reference.pvarVal, std::move(value));
  } else {
    ThrowReferenceMismatch();
  }
}

}  // namespace pricedown::windows
