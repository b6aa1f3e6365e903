// Members of a dual interface as a table, and the one Invoke that reads it.
// Objects without a type library are dispatch_object.h.
#pragma once

#include <oaidl.h>

#include <algorithm>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

#include "platform/value.h"
#include "windows/com/boundary.h"
#include "windows/com/variant.h"

namespace pricedown::windows {

// What an argument becomes before the member sees it. Any leaves it as it is.
enum class Coercion { Any, Text, Object, Boolean, Int16 };

struct DispatchParameter {
  std::u16string_view name;
  Coercion coercion = Coercion::Any;
  bool optional = false;
};

// One member; a property that can be read and one of the same name that can be run are two rows.
struct DispatchMember {
  std::u16string_view name;
  DISPID id = DISPID_UNKNOWN;
  WORD kind = 0;  // DISPATCH_METHOD, DISPATCH_PROPERTYGET or DISPATCH_PROPERTYPUT
  std::span<const DispatchParameter> parameters;
};

// `run` gets one argument for each parameter, references followed; what was left out is Missing.
template <typename T>
struct DispatchRow {
  DispatchMember member;
  Value (*run)(T& object, std::span<const Value> arguments);
};

using DispatchArguments = std::span<const Value>;
using MemberRunner = std::function<Value(DispatchArguments)>;

// Whether a call with these flags means that member. A name that is both an operation and a
// property is read by a call that asks for a result and allows reading, and run by any other.
bool IsMeant(const DispatchMember& member, DISPID id, WORD flags, bool wantsResult, bool exact);

// Converts the arguments, runs the member and reports as IDispatch::Invoke does: refusals of the
// arguments as a code, failures of the member as an exception record.
HRESULT InvokeMember(const DispatchMember& member, const MemberRunner& run,
                     const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* record,
                     UINT* badArgument) noexcept;

// The id of a name and, behind it, the positions of parameter names.
HRESULT NamesToIds(std::span<const DispatchMember* const> members, LPOLESTR* names, UINT count,
                   DISPID* ids);

template <typename T>
const DispatchRow<T>* FindRow(std::span<const DispatchRow<T>> rows, DISPID id, WORD flags,
                              bool wantsResult) {
  for (const bool exact : {true, false}) {
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const DispatchRow<T>& candidate) {
      return IsMeant(candidate.member, id, flags, wantsResult, exact);
    });
    if (row != rows.end()) return &*row;
  }
  return nullptr;
}

template <typename T>
HRESULT InvokeTable(std::span<const DispatchRow<T>> rows, T& object, DISPID id, WORD flags,
                    DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* record,
                    UINT* badArgument) noexcept {
  if (parameters == nullptr) return E_INVALIDARG;
  if (result != nullptr) VariantInit(result);
  const DispatchRow<T>* row = FindRow(rows, id, flags, result != nullptr);
  if (row == nullptr) return DISP_E_MEMBERNOTFOUND;
  return InvokeMember(
      row->member, [&](DispatchArguments arguments) { return row->run(object, arguments); },
      *parameters, result, record, badArgument);
}

template <typename T>
HRESULT TableNamesToIds(std::span<const DispatchRow<T>> rows, LPOLESTR* names, UINT count,
                        DISPID* ids) noexcept {
  return AtBoundary([&] {
    std::vector<const DispatchMember*> members;
    for (const DispatchRow<T>& row : rows) members.push_back(&row.member);
    return NamesToIds(members, names, count, ids);
  });
}

}  // namespace pricedown::windows
