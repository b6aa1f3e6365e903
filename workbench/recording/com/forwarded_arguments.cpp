// Exchanging recorded objects for the suite's own, and the other way round.
#include "workbench/recording/com/forwarded_arguments.h"

#include <oleauto.h>

#include "workbench/recording/com/recorded_object.h"

namespace workbench {
namespace {

bool IsObject(VARTYPE type) { return type == VT_DISPATCH || type == VT_UNKNOWN; }

// Where a by-reference argument holds an object; null when it holds none.
IUnknown** ObjectIn(VARIANT& argument) {
  if (argument.byref == nullptr) return nullptr;
  if (argument.vt == (VT_BYREF | VT_VARIANT)) {
    return IsObject(argument.pvarVal->vt) ? &argument.pvarVal->punkVal : nullptr;
  }
  const bool holdsObject =
      argument.vt == (VT_BYREF | VT_DISPATCH) || argument.vt == (VT_BYREF | VT_UNKNOWN);
  return holdsObject ? argument.ppunkVal : nullptr;
}

void RecordElements(SAFEARRAY& array, VARTYPE type, const std::string& name) noexcept {
  void* data = nullptr;
  if (FAILED(SafeArrayAccessData(&array, &data))) return;
  std::size_t count = 1;
  for (USHORT i = 0; i < array.cDims; ++i) count *= array.rgsabound[i].cElements;
  if (IsObject(type)) {
    auto* objects = static_cast<IUnknown**>(data);
    for (std::size_t i = 0; i < count; ++i) RecordedObject::WrapInPlace(objects[i], name);
  } else if (type == VT_VARIANT) {
    auto* variants = static_cast<VARIANT*>(data);
    for (std::size_t i = 0; i < count; ++i) {
      if (IsObject(variants[i].vt)) RecordedObject::WrapInPlace(variants[i].punkVal, name);
    }
  }
  SafeArrayUnaccessData(&array);
}

}  // namespace

ForwardedArguments::ForwardedArguments(DISPPARAMS* parameters) : forwarded_(parameters) {
  if (parameters == nullptr || parameters->cArgs == 0) return;
  values_.assign(parameters->rgvarg, parameters->rgvarg + parameters->cArgs);
  variables_.reserve(values_.size());
  bool copied = false;
  for (VARIANT& value : values_) {
    if (IsObject(value.vt)) {
      if (const RecordedObject* ours = RecordedObject::Of(value.punkVal)) {
        value.punkVal = ours->Real();
        copied = true;
      }
    } else if ((value.vt & VT_BYREF) != 0) {
      IUnknown** slot = ObjectIn(value);
      IUnknown* before = slot == nullptr ? nullptr : *slot;
      const RecordedObject* ours = RecordedObject::Of(before);
      variables_.push_back({&value, before, ours == nullptr ? nullptr : ours->Real()});
      if (ours != nullptr) {
        ours->Real()->AddRef();
        *slot = ours->Real();
      }
    }
  }
  if (!copied) return;
  copy_ = *parameters;
  copy_.rgvarg = values_.data();
  forwarded_ = &copy_;
}

void ForwardedArguments::Restore(const std::string& name) noexcept {
  for (const Variable& variable : variables_) {
    IUnknown** slot = ObjectIn(*variable.argument);
    IUnknown* now = slot == nullptr ? nullptr : *slot;
    if (variable.replaced != nullptr && now == variable.replaced) {
      *slot = variable.before;
      variable.replaced->Release();
      continue;
    }
    // The callee has released what it got in place of the caller's reference.
    if (variable.replaced != nullptr) variable.before->Release();
    if (now != nullptr && now != variable.before) RecordedObject::WrapInPlace(*slot, name);
  }
}

void RecordObjects(VARIANT& result, const std::string& name) noexcept {
  if (IsObject(result.vt)) {
    RecordedObject::WrapInPlace(result.punkVal, name);
  } else if ((result.vt & VT_ARRAY) != 0 && (result.vt & VT_BYREF) == 0 &&
             result.parray != nullptr) {
    RecordElements(*result.parray, static_cast<VARTYPE>(result.vt & VT_TYPEMASK), name);
  }
}

}  // namespace workbench
