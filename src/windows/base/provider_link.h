// The connection of the UI Automation providers of one window to it. Clients may keep providers
// longer than the window lives.
#pragma once

#include <windows.h>

#include "windows/base/ui_automation.h"
#include "windows/com/boundary.h"

namespace pricedown::windows {

// `Access` is what the providers need from the window.
template <typename Access>
struct ProviderLink {
  Access* access;  // null after the window's end
  UiAutomation& automation;

  // Runs `body`, which returns an HRESULT, with the window; UIA_E_ELEMENTNOTAVAILABLE after its
  // end.
  template <typename Body>
  HRESULT Run(Body&& body) const noexcept {
    return AtBoundary(
        [&]() -> HRESULT { return access == nullptr ? UIA_E_ELEMENTNOTAVAILABLE : body(*access); });
  }

  // `*result` is what `body` returns, and empty when it fails.
  template <typename Result, typename Body>
  HRESULT Answer(Result* result, Body&& body) const noexcept {
    if (result == nullptr) return E_POINTER;
    *result = Result{};
    return Run([&](Access& window) -> HRESULT {
      *result = body(window);
      return S_OK;
    });
  }
};

}  // namespace pricedown::windows
