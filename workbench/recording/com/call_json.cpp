// Names of variant types, and the parts of a line.
#include "workbench/recording/com/call_json.h"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string>

#include "platform/text.h"
#include "windows/com/bstr.h"
#include "windows/com/variant_value.h"
#include "workbench/recording/com/recorded_object.h"
#include "workbench/recording/com/recorder.h"
#include "workbench/recording/passwords.h"

namespace workbench {
namespace {

using pricedown::ObjectPtr;
using pricedown::ToUtf8;
using pricedown::Value;
using pricedown::windows::Bstr;
using pricedown::windows::FromBstr;

struct TypeName {
  VARTYPE type;
  const char* name;
};

constexpr std::array kTypeNames{
    TypeName{VT_EMPTY, "VT_EMPTY"},     TypeName{VT_NULL, "VT_NULL"},
    TypeName{VT_I2, "VT_I2"},           TypeName{VT_I4, "VT_I4"},
    TypeName{VT_R4, "VT_R4"},           TypeName{VT_R8, "VT_R8"},
    TypeName{VT_CY, "VT_CY"},           TypeName{VT_DATE, "VT_DATE"},
    TypeName{VT_BSTR, "VT_BSTR"},       TypeName{VT_DISPATCH, "VT_DISPATCH"},
    TypeName{VT_ERROR, "VT_ERROR"},     TypeName{VT_BOOL, "VT_BOOL"},
    TypeName{VT_VARIANT, "VT_VARIANT"}, TypeName{VT_UNKNOWN, "VT_UNKNOWN"},
    TypeName{VT_DECIMAL, "VT_DECIMAL"}, TypeName{VT_I1, "VT_I1"},
    TypeName{VT_UI1, "VT_UI1"},         TypeName{VT_UI2, "VT_UI2"},
    TypeName{VT_UI4, "VT_UI4"},         TypeName{VT_I8, "VT_I8"},
    TypeName{VT_UI8, "VT_UI8"},         TypeName{VT_INT, "VT_INT"},
    TypeName{VT_UINT, "VT_UINT"},
};

std::string NameOf(VARTYPE type) {
  std::string name = (type & VT_BYREF) != 0 ? "VT_BYREF|" : "";
  if ((type & VT_ARRAY) != 0) name += "VT_ARRAY|";
  const auto plain = static_cast<VARTYPE>(type & VT_TYPEMASK);
  for (const TypeName& one : kTypeNames) {
    if (one.type == plain) return name + one.name;
  }
  return name + std::to_string(plain);
}

bool PointsToVariant(const VARIANT& variant) {
  return variant.vt == (VT_BYREF | VT_VARIANT) && variant.pvarVal != nullptr;
}

ObjectNumber NumberOf(const ObjectPtr& object) {
  return RecordedObject::NumberOf(pricedown::windows::ToDispatch(object).get());
}

Json ValueOf(const VARIANT& variant) {
  return ToJson(pricedown::windows::FromVariantOrNullBlock(variant), NumberOf);
}

std::string Hexadecimal(HRESULT code) {
  std::array<char, 16> text{};
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg)
  std::snprintf(text.data(), text.size(), "0x%08X", static_cast<unsigned>(code));
  return text.data();
}

HRESULT NumberIn(HRESULT code, const EXCEPINFO* record) {
  if (record == nullptr) return code;
  if (record->wCode != 0) {
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, record->wCode);
  }
  return FAILED(record->scode) ? record->scode : code;
}

}  // namespace

Json ContentOf(const VARIANT& variant) {
  Json content;
  std::string type = NameOf(variant.vt);
  if (PointsToVariant(variant)) type += " " + NameOf(variant.pvarVal->vt);
  content["type"] = type;
  if (Recorder::Instance().WithValues()) {
    content["value"] = ValueOf(variant);
  } else if (variant.vt == VT_DISPATCH || variant.vt == VT_UNKNOWN) {
    content["object"] = variant.punkVal == nullptr ? 0 : RecordedObject::NumberOf(variant.punkVal);
  }
  return content;
}

// The last argument comes first in DISPPARAMS; a put's value is the last one.
Json ArgumentsOf(const DISPPARAMS& parameters) {
  Json arguments = Json::array();
  for (UINT i = parameters.cArgs; i-- > 0;) arguments.push_back(ContentOf(parameters.rgvarg[i]));
  return arguments;
}

void AddAnswers(Json& arguments, const DISPPARAMS& parameters) {
  if (!Recorder::Instance().WithValues() || arguments.size() != parameters.cArgs) return;
  for (UINT i = 0; i < parameters.cArgs; ++i) {
    const VARIANT& argument = parameters.rgvarg[i];
    if ((argument.vt & VT_BYREF) == 0) continue;
    Json after = ValueOf(argument);
    Json& content = arguments[parameters.cArgs - 1 - i];
    if (after != content["value"]) content["after"] = std::move(after);
  }
}

long RowsIn(const VARIANT& variant) {
  if ((variant.vt & (VT_ARRAY | VT_BYREF)) != VT_ARRAY || variant.parray == nullptr ||
      SafeArrayGetDim(variant.parray) != 2) {
    return 0;
  }
  LONG lower = 0;
  LONG upper = -1;
  SafeArrayGetLBound(variant.parray, 2, &lower);
  SafeArrayGetUBound(variant.parray, 2, &upper);
  return upper - lower + 1;
}

Json FailureOf(HRESULT code, const EXCEPINFO* record, IErrorInfo* info) {
  if (code != DISP_E_EXCEPTION) record = nullptr;
  std::u16string source;
  std::u16string description;
  if (record != nullptr) {
    source = FromBstr(record->bstrSource);
    description = FromBstr(record->bstrDescription);
  } else if (info != nullptr) {
    Bstr text;
    info->GetSource(text.put());
    source = text.Text();
    info->GetDescription(text.put());
    description = text.Text();
  }
  Json failure;
  failure["code"] = Hexadecimal(code);
  failure["number"] = Hexadecimal(NumberIn(code, record));
  failure["source"] = ToUtf8(source);
  // The callee's words may quote the company.
  if (Recorder::Instance().WithValues())
    failure["description"] = WithoutPasswords(ToUtf8(description));
  // Left to the caller, who is asked to do it once.
  if (record != nullptr && record->pfnDeferredFillIn != nullptr) failure["deferred"] = true;
  return failure;
}

}  // namespace workbench
