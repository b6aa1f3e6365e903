// Sends raw calls and formats their results.
#include "tests/windows/raw_call.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "tests/support/utf8.h"
#include "windows/com/bstr.h"
#include "windows/com/com_ptr.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

std::string Utf8Of(BSTR text) { return Utf8(windows::FromBstr(text)); }

std::string Outcome(HRESULT code, const EXCEPINFO& record, UINT badArgument) {
  if (code == DISP_E_EXCEPTION) {
    return "exception " + Hexadecimal(record.scode) + " " + Utf8Of(record.bstrSource) + ": " +
           Utf8Of(record.bstrDescription);
  }
  std::string text = Hexadecimal(code);
  if (code == DISP_E_TYPEMISMATCH || code == DISP_E_OVERFLOW || code == DISP_E_PARAMNOTOPTIONAL) {
    text += " argument " + std::to_string(badArgument);
  }
  return text;
}

}  // namespace

std::string Send(IDispatch* object, DISPID id, const RawCall& call) {
  std::vector<VARIANT> reversed(call.arguments.rbegin(), call.arguments.rend());
  std::vector<DISPID> named = call.namedIds;
  DISPPARAMS parameters{reversed.data(), named.data(), static_cast<UINT>(reversed.size()),
                        static_cast<UINT>(named.size())};
  windows::Variant result;
  EXCEPINFO record{};
  UINT badArgument = 99;
  SetErrorInfo(0, nullptr);
  const HRESULT code =
      object->Invoke(id, IID{}, LOCALE_USER_DEFAULT, call.flags, &parameters,
                     call.wantsResult ? result.put() : nullptr, &record, &badArgument);
  std::string text;
  if (FAILED(code)) {
    text = Outcome(code, record, badArgument);
    SysFreeString(record.bstrSource);
    SysFreeString(record.bstrDescription);
    SysFreeString(record.bstrHelpFile);
  } else {
    text = "S_OK";
    if (call.wantsResult) text += " " + Readable(windows::FromVariant(result.get()));
  }
  if (const std::string info = ConsumeErrorInfo(); !info.empty()) text += ", info: " + info;
  return text;
}

std::string SendTo(IDispatch* object, const wchar_t* name, const RawCall& call) {
  std::wstring spelled = name;
  LPOLESTR names[] = {spelled.data()};
  DISPID id = DISPID_UNKNOWN;
  const HRESULT code = object->GetIDsOfNames(IID{}, names, 1, LOCALE_USER_DEFAULT, &id);
  if (FAILED(code)) return "no name " + Hexadecimal(code);
  return Send(object, id, call);
}

std::string Statement(IDispatch* object, const wchar_t* name, std::vector<VARIANT> arguments) {
  return SendTo(object, name, {.arguments = std::move(arguments), .wantsResult = false});
}

std::string Expression(IDispatch* object, const wchar_t* name, std::vector<VARIANT> arguments) {
  return SendTo(
      object, name,
      {.flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET, .arguments = std::move(arguments)});
}

std::string Assignment(IDispatch* object, const wchar_t* name, VARIANT value) {
  return SendTo(object, name,
                {.flags = DISPATCH_PROPERTYPUT,
                 .arguments = {value},
                 .namedIds = {DISPID_PROPERTYPUT},
                 .wantsResult = false});
}

std::string IdOf(IDispatch* object, const wchar_t* name) {
  std::wstring spelled = name;
  LPOLESTR names[] = {spelled.data()};
  DISPID id = DISPID_UNKNOWN;
  const HRESULT code = object->GetIDsOfNames(IID{}, names, 1, LOCALE_USER_DEFAULT, &id);
  SetErrorInfo(0, nullptr);
  return FAILED(code) ? Hexadecimal(code) : std::to_string(id);
}

std::string Hexadecimal(HRESULT code) {
  std::array<char, 8> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(),
                                 static_cast<std::uint32_t>(code), 16)
                       .ptr;
  std::string text(digits.data(), end);
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
  return text;
}

std::string ConsumeErrorInfo() {
  windows::ComPtr<IErrorInfo> info;
  if (GetErrorInfo(0, info.put()) != S_OK) return {};
  windows::Bstr description;
  windows::Bstr source;
  info->GetDescription(description.put());
  info->GetSource(source.put());
  return Utf8(source.Text()) + ": " + Utf8(description.Text());
}

VARIANT Number(LONG number) {
  VARIANT variant = Nothing(VT_I4);
  variant.lVal = number;
  return variant;
}

VARIANT Truth(bool truth) {
  VARIANT variant = Nothing(VT_BOOL);
  variant.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
  return variant;
}

VARIANT Text(BSTR text) {
  VARIANT variant = Nothing(VT_BSTR);
  variant.bstrVal = text;
  return variant;
}

VARIANT Nothing(VARTYPE type) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = type;
  return variant;
}

VARIANT Omitted() {
  VARIANT variant = Nothing(VT_ERROR);
  variant.scode = DISP_E_PARAMNOTFOUND;
  return variant;
}

VARIANT ObjectOf(IDispatch* object) {
  VARIANT variant = Nothing(VT_DISPATCH);
  variant.pdispVal = object;
  return variant;
}

VARIANT Reference(VARTYPE type, void* target) {
  VARIANT variant = Nothing(static_cast<VARTYPE>(type | VT_BYREF));
  variant.byref = target;
  return variant;
}

}  // namespace pricedown::testing
