// The lifetime of the UI Automation provider of a window: made when a client first asks,
// disconnected at the window's end. Clients may keep it longer.
#pragma once

#include <windows.h>

#include <utility>

#include "windows/base/ui_automation.h"
#include "windows/com/boundary.h"
#include "windows/com/com_class.h"

namespace pricedown::windows {

// `Provider` is a COM class with a member End() noexcept, after which it no longer uses its window.
template <typename Provider>
class WindowProvider {
 public:
  // `automation` must outlive the object.
  explicit WindowProvider(UiAutomation& automation) : automation_(automation) {}
  ~WindowProvider() { End(nullptr); }
  WindowProvider(const WindowProvider&) = delete;
  WindowProvider& operator=(const WindowProvider&) = delete;

  // The answer to WM_GETOBJECT when IsProviderRequest. `make` makes the provider if there is none;
  // it may throw.
  template <typename Make>
  LRESULT Return(HWND window, WPARAM wParam, LPARAM lParam, Make&& make) {
    if (!provider_) provider_ = make();
    const ComPtr<Provider> provider = provider_.Copy();
    return automation_.ReturnProvider(window, wParam, lParam, provider.get());
  }

  // Null while no client has asked.
  ComPtr<Provider> Get() const { return provider_.Copy(); }
  // Whether a client may listen for events.
  bool IsListenedTo() const { return provider_ && automation_.ClientsAreListening(); }
  UiAutomation& System() const { return automation_; }

  // The window ends; null when it has ended already.
  void End(HWND window) noexcept {
    const ComPtr<Provider> provider = std::move(provider_);
    if (!provider) return;
    provider->End();
    AtBoundary([&] {
      if (window != nullptr) automation_.ReturnProvider(window, 0, 0, nullptr);
      automation_.Disconnect(provider.get());
    });
  }

 private:
  UiAutomation& automation_;
  ComPtr<Provider> provider_;
};

}  // namespace pricedown::windows
