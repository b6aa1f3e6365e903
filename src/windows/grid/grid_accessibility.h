// The grid's window in UI Automation: its provider, and events for what has changed.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "windows/base/window_provider.h"
#include "windows/grid/grid_provider.h"

namespace pricedown::windows {

class GridAccessibility {
 public:
  // Both must outlive the object.
  GridAccessibility(GridAccess& access, Automation& automation)
      : access_(access), provider_(automation) {}

  // The answer to WM_GETOBJECT when IsProviderRequest.
  LRESULT ReturnProvider(WPARAM wParam, LPARAM lParam);
  // Raises the events of the difference to the last update, each once; nothing before a client has
  // asked for the provider. Cheap while no client listens.
  void Update() noexcept;
  // A text that a reader is to speak, once until another one follows; nothing before a client has
  // asked for the provider, and while none listens.
  void Announce(std::u16string_view text) noexcept;
  // The window ends: the provider returns "not available" from here on.
  void End() noexcept { provider_.End(access_.Window()); }

 private:
  // What events report.
  struct State {
    bool focused = false;
    std::optional<GridElement> current;
    std::u16string text;  // of the current cell
    CellRange range;
    std::int32_t rows = 0;
    ScrollExtent vertical;
    ScrollExtent horizontal;
  };
  State Now() const;
  static void Report(GridProvider& provider, Automation& automation, const State& before,
                     const State& now);

  GridAccess& access_;
  WindowProvider<GridProvider> provider_;
  State reported_;
  std::u16string announced_;
};

}  // namespace pricedown::windows
