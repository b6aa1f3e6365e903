// Calls the functions of the system's library, looked up once; those it lacks do nothing.
#include "windows/base/ui_automation.h"

#include <array>
#include <string>

#include "windows/base/system_functions.h"
#include "windows/com/bstr.h"

namespace pricedown::windows {
namespace {

// Notifications of one activity replace each other.
constexpr std::u16string_view kActivity = u"PriceDown.Status";
constexpr const wchar_t* kLibrary = L"uiautomationcore.dll";

void LoadSystemLibrary(const wchar_t* name) {
  std::array<wchar_t, MAX_PATH> folder{};
  if (GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size())) == 0) return;
  // Stays loaded, because a client may hold a provider.
  // cppcheck-suppress leakReturnValNotUsed
  LoadLibraryW((std::wstring(folder.data()) + L"\\" + name).c_str());
}

// Null where the system lacks the function.
struct UiAutomationFunctions {
  UiAutomationFunctions() {
    LoadSystemLibrary(kLibrary);
    Find(returnProvider, "UiaReturnRawElementProvider");
    Find(hostProvider, "UiaHostProviderFromHwnd");
    Find(clientsAreListening, "UiaClientsAreListening");
    Find(raiseEvent, "UiaRaiseAutomationEvent");
    Find(raisePropertyChanged, "UiaRaiseAutomationPropertyChangedEvent");
    Find(raiseStructureChanged, "UiaRaiseStructureChangedEvent");
    Find(raiseNotification, "UiaRaiseNotificationEvent");
    Find(disconnect, "UiaDisconnectProvider");
  }

  template <typename Function>
  static void Find(Function& function, const char* name) {
    function = SystemFunction<Function>(kLibrary, name);
  }

  LRESULT(WINAPI* returnProvider)(HWND, WPARAM, LPARAM, IRawElementProviderSimple*) = nullptr;
  HRESULT(WINAPI* hostProvider)(HWND, IRawElementProviderSimple**) = nullptr;
  BOOL(WINAPI* clientsAreListening)() = nullptr;
  HRESULT(WINAPI* raiseEvent)(IRawElementProviderSimple*, EVENTID) = nullptr;
  HRESULT(WINAPI* raisePropertyChanged)
  (IRawElementProviderSimple*, PROPERTYID, VARIANT, VARIANT) = nullptr;
  HRESULT(WINAPI* raiseStructureChanged)
  (IRawElementProviderSimple*, StructureChangeType, int*, int) = nullptr;
  HRESULT(WINAPI* raiseNotification)
  (IRawElementProviderSimple*, NotificationKind, NotificationProcessing, BSTR, BSTR) = nullptr;
  HRESULT(WINAPI* disconnect)(IRawElementProviderSimple*) = nullptr;
};

// Loads the library at the first call.
const UiAutomationFunctions& Functions() {
  static const UiAutomationFunctions functions;
  return functions;
}

class SystemAutomationLibrary final : public UiAutomation {
 public:
  LRESULT ReturnProvider(HWND window, WPARAM wParam, LPARAM lParam,
                         IRawElementProviderSimple* provider) override {
    const auto function = Functions().returnProvider;
    return function == nullptr ? 0 : function(window, wParam, lParam, provider);
  }

  ComPtr<IRawElementProviderSimple> HostProvider(HWND window) override {
    const auto function = Functions().hostProvider;
    ComPtr<IRawElementProviderSimple> provider;
    if (function == nullptr || FAILED(function(window, provider.put()))) return {};
    return provider;
  }

  bool ClientsAreListening() override {
    const auto function = Functions().clientsAreListening;
    return function != nullptr && function() != FALSE;
  }

  void RaiseEvent(IRawElementProviderSimple* provider, EVENTID event) override {
    if (const auto function = Functions().raiseEvent) function(provider, event);
  }

  void RaisePropertyChanged(IRawElementProviderSimple* provider, PROPERTYID property,
                            const VARIANT& value) override {
    if (const auto function = Functions().raisePropertyChanged) {
      function(provider, property, VARIANT{}, value);
    }
  }

  void RaiseChildrenInvalidated(IRawElementProviderSimple* provider) override {
    if (const auto function = Functions().raiseStructureChanged) {
      function(provider, StructureChangeType_ChildrenInvalidated, nullptr, 0);
    }
  }

  void RaiseNotification(IRawElementProviderSimple* provider, std::u16string_view text) override {
    const auto function = Functions().raiseNotification;
    if (function == nullptr) return;
    function(provider, NotificationKind_Other, NotificationProcessing_MostRecent, Bstr(text).get(),
             Bstr(kActivity).get());
  }

  void Disconnect(IRawElementProviderSimple* provider) override {
    if (const auto function = Functions().disconnect) function(provider);
  }
};

}  // namespace

UiAutomation& SystemUiAutomation() {
  static SystemAutomationLibrary automation;
  return automation;
}

}  // namespace pricedown::windows
