// Members of a dual interface as a table, and the one Invoke that reads it.
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

// The type to which an argument is converted before the member runs. Any leaves it as it is.
// Lenient leaves it too, and an argument that the core has no kind for is a null block. Ignored is
// never converted: always Empty.
enum class Coercion { Any, Text, Object, Boolean, Int16, Lenient, Ignored };

struct DispatchParameter {
  std::u16string_view name;
  Coercion coercion = Coercion::Any;
  bool optional = false;
};

// One member; a property and a method of the same name are two rows.
struct DispatchMember {
  std::u16string_view name;
  DISPID id = DISPID_UNKNOWN;
  WORD kind = 0;  // one of the DISPATCH_ flags
  std::span<const DispatchParameter> parameters;
};

// `run` is passed one argument for each parameter, references followed, Missing where omitted.
template <typename T>
struct DispatchRow {
  DispatchMember member;
  Value (*run)(T& object, std::span<const Value> arguments);
};

using DispatchArguments = std::span<const Value>;
using MemberRunner = std::function<Value(DispatchArguments)>;

// Whether a call with these flags means that member. A name that is both a method and a property
// is the property for a call that wants a result and allows reading, and the method otherwise.
bool IsMeant(const DispatchMember& member, DISPID id, WORD flags, bool wantsResult, bool exact);

// Converts the arguments, runs the member and reports as IDispatch::Invoke does: bad arguments as a
// code, failures of the member as an exception record.
HRESULT InvokeMember(const DispatchMember& member, const MemberRunner& run,
                     const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* record,
                     UINT* badArgument) noexcept;

// The id of a name, followed by the positions of parameter names.
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
