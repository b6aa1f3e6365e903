// The engine's site and running a script. No import library has the interface ids of scripting, so
// they are defined here.
#include <initguid.h>

#include "tests/windows/script_host/script_engine.h"

#include <activscp.h>

#include <cstdio>
#include <string>

#include "platform/text.h"
#include "windows/com/boundary.h"
#include "windows/com/bstr.h"
#include "windows/com/com_class.h"
#include "windows/com/system_error.h"
#include "windows/com/variant_value.h"

namespace pricedown::testing {
namespace {

using windows::Bstr;
using windows::ComPtr;
using windows::ThrowIfFailed;

constexpr wchar_t kGlobals[] = L"Host";

class ScriptSite final : public windows::ComClass<IActiveScriptSite, IActiveScriptSiteWindow> {
 public:
  ScriptSite(std::u16string_view file, ObjectPtr globals)
      : file_(ToUtf8(file)), globals_(std::move(globals)) {}

  bool Failed() const { return failed_; }

  STDMETHODIMP GetLCID(LCID* locale) noexcept override {
    if (locale == nullptr) return E_POINTER;
    *locale = LOCALE_USER_DEFAULT;
    return S_OK;
  }
  STDMETHODIMP GetItemInfo(LPCOLESTR, DWORD wanted, IUnknown** item,
                           ITypeInfo** info) noexcept override {
    if (info != nullptr) *info = nullptr;
    if ((wanted & SCRIPTINFO_IUNKNOWN) == 0 || item == nullptr) return TYPE_E_ELEMENTNOTFOUND;
    return windows::AtBoundary([&] { *item = windows::ToDispatch(globals_).release(); });
  }
  STDMETHODIMP GetDocVersionString(BSTR*) noexcept override { return E_NOTIMPL; }
  STDMETHODIMP OnScriptTerminate(const VARIANT*, const EXCEPINFO*) noexcept override {
    return S_OK;
  }
  STDMETHODIMP OnStateChange(SCRIPTSTATE) noexcept override { return S_OK; }
  STDMETHODIMP OnScriptError(IActiveScriptError* error) noexcept override {
    return windows::AtBoundary([&] { Report(*error); });
  }
  STDMETHODIMP OnEnterScript() noexcept override { return S_OK; }
  STDMETHODIMP OnLeaveScript() noexcept override { return S_OK; }

  STDMETHODIMP GetWindow(HWND* window) noexcept override {
    if (window == nullptr) return E_POINTER;
    *window = nullptr;
    return S_OK;
  }
  STDMETHODIMP EnableModeless(BOOL) noexcept override { return S_OK; }

 private:
  void Report(IActiveScriptError& error) {
    failed_ = true;
    EXCEPINFO record{};
    DWORD context = 0;
    ULONG line = 0;
    LONG position = 0;
    error.GetExceptionInfo(&record);
    error.GetSourcePosition(&context, &line, &position);
    Bstr description;
    Bstr source;
    description.attach(record.bstrDescription);
    source.attach(record.bstrSource);
    SysFreeString(record.bstrHelpFile);
    std::printf("%s(%lu): %08lX %s: %s\n", file_.c_str(), line + 1,
                static_cast<unsigned long>(record.scode), ToUtf8(source.Text()).c_str(),
                ToUtf8(description.Text()).c_str());
    std::fflush(stdout);
  }

  std::string file_;
  ObjectPtr globals_;
  bool failed_ = false;
};

}  // namespace

bool RunScript(std::u16string_view script, std::u16string_view file, const ObjectPtr& globals) {
  CLSID engineId{};
  ComPtr<IActiveScript> engine;
  ThrowIfFailed(CLSIDFromProgID(L"VBScript", &engineId));
  ThrowIfFailed(CoCreateInstance(engineId, nullptr, CLSCTX_INPROC_SERVER, IID_IActiveScript,
                                 engine.putVoid()));
  const auto parser = engine.As<IActiveScriptParse>();
  if (!parser) ThrowIfFailed(E_NOINTERFACE);
  const auto site = windows::MakeCom<ScriptSite>(file, globals);
  ThrowIfFailed(engine->SetScriptSite(site.get()));
  ThrowIfFailed(parser->InitNew());
  ThrowIfFailed(engine->AddNamedItem(kGlobals, SCRIPTITEM_ISVISIBLE | SCRIPTITEM_GLOBALMEMBERS));
  EXCEPINFO record{};
  const std::wstring text = windows::ToWide(script);
  HRESULT code = parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                         SCRIPTTEXT_ISVISIBLE, nullptr, &record);
  if (SUCCEEDED(code)) code = engine->SetScriptState(SCRIPTSTATE_STARTED);
  engine->Close();
  if (FAILED(code) && !site->Failed()) ThrowIfFailed(code);
  return !site->Failed();
}

}  // namespace pricedown::testing
