// The stub's logging.
#include "tests/windows/com/stub_dispatch.h"

#include "tests/support/utf8.h"
#include "windows/com/variant_value.h"
#include "windows/com/wide_text.h"

namespace pricedown::testing {
namespace {

std::string Shown(const VARIANT& argument) {
  const std::string value = Readable(windows::FromVariant(argument));
  if (argument.vt == (VT_BYREF | VT_VARIANT)) return "variant& " + value;
  return (argument.vt & VT_BYREF) != 0 ? "& " + value : value;
}

}  // namespace

STDMETHODIMP StubDispatch::GetTypeInfoCount(UINT* count) noexcept {
  *count = 0;
  return S_OK;
}

STDMETHODIMP StubDispatch::GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept { return E_NOTIMPL; }

STDMETHODIMP StubDispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID,
                                         DISPID* ids) noexcept {
  log.push_back("find " + Utf8(windows::FromWide(names[0])));
  const bool known = lstrcmpiW(names[0], L"Member") == 0;
  ids[0] = known ? 7 : DISPID_UNKNOWN;
  return known ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP StubDispatch::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                  VARIANT* result, EXCEPINFO* record, UINT*) noexcept {
  std::string line = std::to_string(id) + " flags " + std::to_string(flags);
  for (UINT i = 0; i < parameters->cNamedArgs; ++i) {
    line += " named " + std::to_string(parameters->rgdispidNamedArgs[i]);
  }
  line += " (";
  for (UINT i = parameters->cArgs; i > 0; --i) {
    line += Shown(parameters->rgvarg[i - 1]) + (i > 1 ? ", " : "");
  }
  log.push_back(line + (result != nullptr ? ") result" : ")"));
  return behaviour_ ? behaviour_(*parameters, result, record) : S_OK;
}

STDMETHODIMP StubDispatch::InterfaceSupportsErrorInfo(REFIID id) noexcept {
  return id == IID_IDispatch ? S_OK : S_FALSE;
}

}  // namespace pricedown::testing
