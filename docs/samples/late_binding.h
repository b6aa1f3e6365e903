// Calls by name as any client of the control makes them: an owned VARIANT, reading, setting,
// calling, and the description of a failure.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstddef>
#include <cstdio>
#include <cwchar>
#include <string>
#include <utility>
#include <vector>

namespace sample {

constexpr WORD kRead = DISPATCH_METHOD | DISPATCH_PROPERTYGET;

// Prints a line in UTF-8.
inline void Print(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.c_str(), length, bytes.data(), size, nullptr, nullptr);
  std::printf("%s\n", bytes.c_str());
  std::fflush(stdout);
}

// A VARIANT that owns what it holds.
class Variant {
 public:
  Variant() { VariantInit(&value_); }
  Variant(const Variant& other) {
    VariantInit(&value_);
    // Older headers declare the source without const.
    VariantCopy(&value_, const_cast<VARIANT*>(&other.value_));
  }
  Variant& operator=(Variant other) {
    std::swap(value_, other.value_);
    return *this;
  }
  ~Variant() { VariantClear(&value_); }

  static Variant Text(const wchar_t* text) {
    Variant variant;
    variant.value_.vt = VT_BSTR;
    variant.value_.bstrVal = SysAllocString(text);
    return variant;
  }
  static Variant Number(LONG number) {
    Variant variant;
    variant.value_.vt = VT_I4;
    variant.value_.lVal = number;
    return variant;
  }
  static Variant Truth(bool truth) {
    Variant variant;
    variant.value_.vt = VT_BOOL;
    variant.value_.boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
  }
  // Adds a reference.
  static Variant Object(IDispatch* object) {
    Variant variant;
    variant.value_.vt = VT_DISPATCH;
    variant.value_.pdispVal = object;
    if (object != nullptr) object->AddRef();
    return variant;
  }

  const VARIANT& Get() const { return value_; }
  VARIANT* Put() {
    VariantClear(&value_);
    return &value_;
  }
  std::wstring AsText() const {
    if (value_.vt != VT_BSTR || value_.bstrVal == nullptr) return {};
    return {value_.bstrVal, SysStringLen(value_.bstrVal)};
  }
  LONG AsNumber() const { return value_.vt == VT_I4 ? value_.lVal : 0; }
  bool AsTruth() const { return value_.vt == VT_BOOL && value_.boolVal != VARIANT_FALSE; }
  // Borrowed; null when there is none.
  IDispatch* AsObject() const { return value_.vt == VT_DISPATCH ? value_.pdispVal : nullptr; }

 private:
  VARIANT value_;
};

// Calls that failed so far.
inline int failedCalls = 0;

inline void Report(const wchar_t* member, HRESULT code, EXCEPINFO& record) {
  ++failedCalls;
  std::wstring text = std::wstring(member) + L": ";
  if (record.bstrDescription != nullptr) {
    text += record.bstrDescription;
  } else {
    wchar_t number[16] = {};
    std::swprintf(number, 16, L"0x%08lX", static_cast<unsigned long>(code));
    text += number;
  }
  SysFreeString(record.bstrDescription);
  SysFreeString(record.bstrSource);
  SysFreeString(record.bstrHelpFile);
  Print(text);
}

// Calls, reads or sets a member by its name.
inline Variant Invoke(IDispatch* object, const wchar_t* member, WORD kind,
                      const std::vector<Variant>& arguments) {
  Variant result;
  if (object == nullptr) return result;
  std::wstring name = member;
  LPOLESTR names[] = {name.data()};
  DISPID id = DISPID_UNKNOWN;
  EXCEPINFO record{};
  HRESULT code = object->GetIDsOfNames(IID{}, names, 1, LOCALE_USER_DEFAULT, &id);
  if (SUCCEEDED(code)) {
    // Automation passes arguments from the last to the first.
    std::vector<VARIANT> backwards;
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
      backwards.push_back(argument->Get());
    }
    DISPID newValue = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{};
    parameters.rgvarg = backwards.data();
    parameters.cArgs = static_cast<UINT>(backwards.size());
    const bool puts = kind == DISPATCH_PROPERTYPUT;
    if (puts) {
      parameters.rgdispidNamedArgs = &newValue;
      parameters.cNamedArgs = 1;
    }
    code = object->Invoke(id, IID{}, LOCALE_USER_DEFAULT, kind, &parameters,
                          puts ? nullptr : result.Put(), &record, nullptr);
  }
  if (FAILED(code)) Report(member, code, record);
  return result;
}

inline Variant Read(const Variant& object, const wchar_t* member,
                    const std::vector<Variant>& arguments = {}) {
  return Invoke(object.AsObject(), member, kRead, arguments);
}

inline void Put(const Variant& object, const wchar_t* member, const Variant& value) {
  Invoke(object.AsObject(), member, DISPATCH_PROPERTYPUT, {value});
}

}  // namespace sample
