// UI Automation of the system: passes providers of windows and their events to its clients.
#pragma once

#include <windows.h>

#include <string_view>

#include "windows/base/uia_provider.h"
#include "windows/com/com_ptr.h"

namespace pricedown::windows {

// Events and disconnecting are requests to the system: a failure has no effect on the window.
class UiAutomation {
 public:
  // The result of WM_GETOBJECT. A null provider disconnects the earlier one.
  virtual LRESULT ReturnProvider(HWND window, WPARAM wParam, LPARAM lParam,
                                 IRawElementProviderSimple* provider) = 0;
  // What the system provides of a window by itself; null on failure.
  virtual ComPtr<IRawElementProviderSimple> HostProvider(HWND window) = 0;
  virtual bool ClientsAreListening() = 0;
  virtual void RaiseEvent(IRawElementProviderSimple* provider, EVENTID event) = 0;
  // The old value is not reported.
  virtual void RaisePropertyChanged(IRawElementProviderSimple* provider, PROPERTYID property,
                                    const VARIANT& value) = 0;
  // All children may be others.
  virtual void RaiseChildrenInvalidated(IRawElementProviderSimple* provider) = 0;
  // A text for the user that has no element, such as a status.
  virtual void RaiseNotification(IRawElementProviderSimple* provider, std::u16string_view text) = 0;
  // The system releases the provider; its clients may still hold it.
  virtual void Disconnect(IRawElementProviderSimple* provider) = 0;

 protected:
  ~UiAutomation() = default;
};

// The system's. Its library is loaded when a client first asks a window, and stays.
UiAutomation& SystemUiAutomation();

// Whether a client asks for the provider of the window, by WM_GETOBJECT.
inline bool IsProviderRequest(LPARAM lParam) {
  return static_cast<LONG>(lParam) == UiaRootObjectId;
}

}  // namespace pricedown::windows
