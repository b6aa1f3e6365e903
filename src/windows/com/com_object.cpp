// Name look-up and calls through IDispatch.
#include "windows/com/com_object.h"

#include <algorithm>
#include <utility>

#include "platform/error.h"
#include "platform/text.h"
#include "windows/com/bstr.h"
#include "windows/com/outgoing_arguments.h"
#include "windows/com/system_error.h"
#include "windows/com/variant_value.h"

namespace pricedown::windows {
namespace {

// The texts of a failed call; frees them.
class CallFailure {
 public:
  CallFailure() = default;
  CallFailure(const CallFailure&) = delete;
  CallFailure& operator=(const CallFailure&) = delete;
  ~CallFailure() {
    SysFreeString(info_.bstrSource);
    SysFreeString(info_.bstrDescription);
    SysFreeString(info_.bstrHelpFile);
  }

  EXCEPINFO* put() { return &info_; }

  // `source` is named where the callee names none.
  [[noreturn]] void Throw(HRESULT code, IDispatch* object, std::u16string source) {
    if (code != DISP_E_EXCEPTION) ThrowErrorInfo(code, object, std::move(source));
    // The failure goes on as an exception; no error info is left if it is skipped.
    SetErrorInfo(0, nullptr);
    if (info_.pfnDeferredFillIn != nullptr) info_.pfnDeferredFillIn(&info_);
    if (info_.wCode != 0) {
      // The callee's own number, in the facility that automation reserves for it.
      code = MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, info_.wCode);
    } else if (FAILED(info_.scode)) {
      code = info_.scode;
    }
    if (SysStringLen(info_.bstrSource) > 0) source = FromBstr(info_.bstrSource);
    ThrowTexts(code, FromBstr(info_.bstrDescription), std::move(source));
  }

 private:
  [[noreturn]] static void ThrowTexts(HRESULT code, std::u16string description,
                                      std::u16string source) {
    if (description.empty()) description = SystemText(code);
    throw AutomationError(code, std::move(description), std::move(source));
  }

  // Some servers return a plain code and leave the description in the thread's error info.
  [[noreturn]] static void ThrowErrorInfo(HRESULT code, IDispatch* object, std::u16string caller) {
    Bstr description;
    Bstr source;
    const auto support = ComPtr<IDispatch>::Share(object).As<ISupportErrorInfo>();
    ComPtr<IErrorInfo> info;
    if (support && support->InterfaceSupportsErrorInfo(IID_IDispatch) == S_OK &&
        GetErrorInfo(0, info.put()) == S_OK) {
      info->GetDescription(description.put());
      info->GetSource(source.put());
    }
    SetErrorInfo(0, nullptr);
    if (const std::u16string named = source.Text(); !named.empty()) caller = named;
    ThrowTexts(code, description.Text(), std::move(caller));
  }

  EXCEPINFO info_{};
};

WORD FlagsOf(Access access) {
  switch (access) {
    case Access::Put:
      return DISPATCH_PROPERTYPUT;
    case Access::PutReference:
      return DISPATCH_PROPERTYPUTREF;
    case Access::Call:
      break;
  }
  return DISPATCH_METHOD | DISPATCH_PROPERTYGET;
}

}  // namespace

std::u16string ComObject::Names::SourceOf(MemberId member) const {
  const auto found = std::find_if(members.begin(), members.end(),
                                  [member](const auto& known) { return known.second == member; });
  if (found == members.end()) return object.empty() ? u"_Default" : object;
  return object.empty() ? found->first : Concatenate({object, u".", found->first});
}

MemberId ComObject::Find(std::u16string_view name) {
  if (name.empty()) return kDefaultMember;
  std::u16string key(name);
  const auto names = names_;
  if (const auto found = names->members.find(key); found != names->members.end()) {
    return found->second;
  }
  DISPID id = DISPID_UNKNOWN;
  const HRESULT code = FindId(name, id);
  if (FAILED(code)) SetErrorInfo(0, nullptr);
  if (code == DISP_E_UNKNOWNNAME) {
    throw AutomationError(ErrorNumber::UnknownName,
                          Concatenate({u"对象不支持此属性或方法: ", name}), names->object);
  }
  ThrowIfFailed(code);
  names->members.emplace(std::move(key), id);
  return id;
}

// Objects of script languages may leave the plain interface unfinished.
HRESULT ComObject::FindId(std::u16string_view name, DISPID& id) {
  const auto object = object_.Copy();
  if (!extended_) {
    std::wstring wide = ToWide(name);
    LPOLESTR names[] = {wide.data()};
    const HRESULT code = object->GetIDsOfNames(IID{}, names, 1, LOCALE_USER_DEFAULT, &id);
    if (code != E_NOTIMPL) return code;
    extended_ = object.As<IDispatchEx>();
    if (!extended_) return code;
  }
  const auto extended = extended_.Copy();
  return extended->GetDispID(Bstr(name).get(), fdexNameCaseInsensitive, &id);
}

HRESULT ComObject::Send(DISPID member, WORD flags, DISPPARAMS& parameters, VARIANT* result,
                        EXCEPINFO& record) {
  if (const auto extended = extended_.Copy()) {
    return extended->InvokeEx(member, LOCALE_USER_DEFAULT, flags, &parameters, result, &record,
                              nullptr);
  }
  const auto object = object_.Copy();
  UINT badArgument = 0;
  return object->Invoke(member, IID{}, LOCALE_USER_DEFAULT, flags, &parameters, result, &record,
                        &badArgument);
}

Value ComObject::Invoke(MemberId member, Access access, std::span<Value> arguments) {
  return ConsumeVariant(InvokeVariant(member, access, arguments));
}

void ComObject::Perform(MemberId member, std::span<Value> arguments) {
  InvokeVariant(member, Access::Call, arguments);
}

Value ComObject::Prepared(Value argument) {
  return argument.Is(Value::Kind::List) ? ToRow(argument.List()) : argument;
}

Variant ComObject::InvokeVariant(MemberId member, Access access, std::span<Value> arguments) {
  OutgoingArguments outgoing(arguments);
  const std::span<VARIANT> reversed = outgoing.Reversed();
  const bool put = access != Access::Call;
  DISPID putId = DISPID_PROPERTYPUT;
  DISPPARAMS parameters{};
  parameters.rgvarg = reversed.data();
  parameters.cArgs = static_cast<UINT>(reversed.size());
  if (put) {
    parameters.rgdispidNamedArgs = &putId;
    parameters.cNamedArgs = 1;
  }
  Variant result;
  CallFailure failure;
  // The call may release this object.
  const auto object = object_.Copy();
  const auto names = names_;
  const HRESULT code =
      Send(member, FlagsOf(access), parameters, put ? nullptr : result.put(), *failure.put());
  if (FAILED(code)) failure.Throw(code, object.get(), names->SourceOf(member));
  outgoing.WriteBack();
  return result;
}

}  // namespace pricedown::windows
