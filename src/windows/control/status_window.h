// The status bar `sbStatusBar` with its panels "Status", "Passtime" and "wait".
#pragma once

#include <windows.h>

#include <array>
#include <string>
#include <string_view>

#include "windows/base/bound_window.h"
#include "windows/base/dpi.h"

namespace pricedown::windows {

enum class StatusPanel { Status, Passtime, Wait };

class StatusWindow final : public BoundWindow {
 public:
  StatusWindow() = default;
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, std::u16string_view name);
  void SetPanel(StatusPanel panel, std::u16string_view text);
  // Places the panels again after a change of width or resolution.
  void ArrangePanels(Dpi dpi);

 private:
  static constexpr std::size_t kPanels = 3;

  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    return Default(message, wParam, lParam);
  }

  std::array<std::u16string, kPanels> texts_;
};

}  // namespace pricedown::windows
