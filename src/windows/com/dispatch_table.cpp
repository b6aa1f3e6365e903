// The reading of member tables.
#include "windows/com/dispatch_table.h"

#include "platform/convert.h"
#include "platform/error.h"
#include "platform/text.h"
#include "windows/com/call_result.h"
#include "windows/com/incoming_arguments.h"
#include "windows/com/variant_value.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr WORD kPuts = DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF;

Value Coerce(const Value& value, Coercion coercion) {
  switch (coercion) {
    case Coercion::Text:
      return ToText(value);
    case Coercion::Object:
      return value.Object();
    case Coercion::Boolean:
      return ToBoolean(value);
    case Coercion::Int16:
      return ToInt16(value);
    case Coercion::Any:
    case Coercion::Lenient:
    case Coercion::Ignored:
      break;
  }
  return value;
}

std::size_t RequiredCount(const DispatchMember& member) {
  std::size_t count = 0;
  for (const DispatchParameter& parameter : member.parameters) count += parameter.optional ? 0 : 1;
  return count;
}

[[noreturn]] void Refuse(HRESULT code, std::u16string_view why, std::u16string_view name) {
  throw AutomationError(code, Concatenate({why, name}), std::u16string(name));
}

Value Convert(const DispatchMember& member, std::size_t position, const VARIANT& argument) {
  const Coercion coercion =
      position < member.parameters.size() ? member.parameters[position].coercion : Coercion::Any;
  if (coercion == Coercion::Ignored) return {};
  return coercion == Coercion::Lenient ? FromVariantOrNullBlock(argument) : FromVariant(argument);
}

std::vector<Value> Arguments(const DispatchMember& member, const DISPPARAMS& parameters,
                             UINT* badArgument) {
  IncomingArguments incoming(parameters, (member.kind & kPuts) != 0, badArgument,
                             [&](std::size_t position, const VARIANT& argument) {
                               return Convert(member, position, argument);
                             });
  const std::span<Value> given = incoming.Values();
  if (given.size() > member.parameters.size() || given.size() < RequiredCount(member)) {
    Refuse(DISP_E_BADPARAMCOUNT, u"参数个数错误: ", member.name);
  }
  std::vector<Value> arguments(member.parameters.size(), Missing{});
  for (std::size_t i = 0; i < given.size(); ++i) {
    const DispatchParameter& parameter = member.parameters[i];
    if (badArgument != nullptr) *badArgument = incoming.IndexOf(i);
    const Value& value = given[i].Resolved();
    if (!value.Is(Value::Kind::Missing)) {
      arguments[i] = Coerce(value, parameter.coercion);
    } else if (!parameter.optional) {
      Refuse(DISP_E_PARAMNOTOPTIONAL, u"缺少参数: ", parameter.name);
    }
  }
  return arguments;
}

}  // namespace

bool IsMeant(const DispatchMember& member, DISPID id, WORD flags, bool wantsResult, bool exact) {
  if (member.id != id || (member.kind & flags) == 0) return false;
  const bool read = (flags & DISPATCH_PROPERTYGET) != 0 && wantsResult;
  return !exact || (member.kind == DISPATCH_PROPERTYGET) == read;
}

HRESULT InvokeMember(const DispatchMember& member, const MemberRunner& run,
                     const DISPPARAMS& parameters, VARIANT* result, EXCEPINFO* record,
                     UINT* badArgument) noexcept {
  std::vector<Value> arguments;
  try {
    arguments = Arguments(member, parameters, badArgument);
  } catch (...) {
    return PublishFailure(CurrentFailure(), IID_IDispatch);
  }
  try {
    Variant answer = ToVariant(run(arguments));
    if (result != nullptr) *result = answer.release();
    return S_OK;
  } catch (...) {
    return ReportException(CurrentFailure(), record);
  }
}

HRESULT NamesToIds(std::span<const DispatchMember* const> members, LPOLESTR* names, UINT count,
                   DISPID* ids) {
  if (names == nullptr || ids == nullptr || count == 0) return E_INVALIDARG;
  std::fill(ids, ids + count, DISPID_UNKNOWN);
  const std::u16string name = FromWide(names[0]);
  const auto found = std::find_if(
      members.begin(), members.end(),
      [&](const DispatchMember* member) { return EqualsIgnoringCase(member->name, name); });
  if (found == members.end()) return DISP_E_UNKNOWNNAME;
  ids[0] = (*found)->id;
  HRESULT code = S_OK;
  const auto parameters = (*found)->parameters;
  for (UINT i = 1; i < count; ++i) {
    const std::u16string wanted = FromWide(names[i]);
    const auto position = std::find_if(
        parameters.begin(), parameters.end(),
        [&](const DispatchParameter& one) { return EqualsIgnoringCase(one.name, wanted); });
    if (position == parameters.end()) {
      code = DISP_E_UNKNOWNNAME;
    } else {
      ids[i] = static_cast<DISPID>(position - parameters.begin());
    }
  }
  return code;
}

}  // namespace pricedown::windows
