// The grid's window in UI Automation: its provider, and events for what has changed.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/lifetime.h"
#include "windows/base/window_provider.h"
#include "windows/grid/grid_provider.h"

namespace pricedown::windows {

class GridAccessibility {
 public:
  // Both must outlive the object.
  GridAccessibility(GridAccess& access, UiAutomation& automation)
      : access_(access), provider_(automation) {}

  // While one lives, no update raises anything; the end of the last one raises what the whole step
  // has changed. The window may end before it.
  class Step {
   public:
    Step(GridAccessibility& accessibility, Lifetime window)
        : accessibility_(accessibility), window_(std::move(window)) {
      ++accessibility_.steps_;
    }
    ~Step() {
      if (window_.HasEnded()) return;
      --accessibility_.steps_;
      accessibility_.Update();
    }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;

   private:
    GridAccessibility& accessibility_;
    Lifetime window_;
  };

  // The answer to WM_GETOBJECT when IsProviderRequest.
  LRESULT ReturnProvider(WPARAM wParam, LPARAM lParam);
  // Raises the events of the difference to the last update, each once; nothing before a client has
  // asked for the provider. Cheap while no client listens.
  void Update() noexcept;
  // The rows are being replaced: the next update raises a structure change, also for as many rows.
  void RowsReplaced() { reported_.rows = kReplaced; }
  // A text that a reader is to speak; nothing before a client has asked for the provider, and
  // while none listens.
  void Speak(std::u16string_view text) noexcept;
  // The same for a status, which is spoken once until another one follows.
  void Announce(std::u16string_view text) noexcept;
  // The window ends: the provider returns "not available" from here on.
  void End() noexcept { provider_.End(access_.Window()); }

 private:
  static constexpr std::int32_t kReplaced = -1;

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
  // `text` is what the cell that was the current one shows now.
  static void Report(GridProvider& provider, UiAutomation& automation, const State& before,
                     const State& now, std::u16string_view text);

  GridAccess& access_;
  WindowProvider<GridProvider> provider_;
  State reported_;
  int steps_ = 0;
  std::u16string announced_;
};

}  // namespace pricedown::windows
