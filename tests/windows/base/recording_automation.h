// UI Automation as a test sees it: the provider that a window returns, and its events as a log.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "windows/base/ui_automation.h"
#include "windows/com/com_ptr.h"

namespace pricedown::testing {

class RecordingAutomation final : public windows::UiAutomation {
 public:
  // Queries the window as a client does; null when it has no provider.
  windows::ComPtr<IRawElementProviderSimple> ProviderOf(HWND window);

  LRESULT ReturnProvider(HWND window, WPARAM wParam, LPARAM lParam,
                         IRawElementProviderSimple* provider) override;
  windows::ComPtr<IRawElementProviderSimple> HostProvider(HWND) override { return {}; }
  bool ClientsAreListening() override { return listening; }
  void RaiseEvent(IRawElementProviderSimple* provider, EVENTID event) override;
  void RaisePropertyChanged(IRawElementProviderSimple* provider, PROPERTYID property,
                            const VARIANT& value) override;
  void RaiseChildrenInvalidated(IRawElementProviderSimple* provider) override;
  void RaiseNotification(IRawElementProviderSimple* provider, std::u16string_view text) override;
  void Disconnect(IRawElementProviderSimple* provider) override;

  bool listening = true;
  // What a client does when it receives an event; may be empty.
  std::function<void()> onEvent;
  // "focus row5.column2", "children", "disconnect": the event and the id of its element.
  std::vector<std::string> log;
  // The texts of the notifications in it.
  std::vector<std::string> Spoken() const;

 private:
  windows::ComPtr<IRawElementProviderSimple> returned_;
};

// A property as a test reads it: a text, or a number or flag as a text; empty for none.
std::string PropertyOf(IRawElementProviderSimple* provider, PROPERTYID property);

}  // namespace pricedown::testing
