// Windows without behaviour: the parking window, the grid pane `pic`, the separating lines `Line1`
// and `Line3`.
#pragma once

#include <windows.h>

#include <functional>

#include "windows/base/bound_window.h"

namespace pricedown::windows {

// A hidden top-level window, the parent of the control while no container shows it. Only top-level
// windows are notified of changed settings; this one forwards them.
class ParkingWindow final : public BoundWindow {
 public:
  // Throws AutomationError.
  void Create(HINSTANCE module);
  // `handler` is called for WM_SETTINGCHANGE, WM_SYSCOLORCHANGE and WM_THEMECHANGED; it
  // may destroy this object.
  void OnSystemChange(std::function<void(UINT message)> handler) { handler_ = std::move(handler); }

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  std::function<void(UINT message)> handler_;
};

class PaneWindow final : public BoundWindow {
 public:
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

// An etched line, as thick as the window is high.
class LineWindow final : public BoundWindow {
 public:
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, int id);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC context) const;
};

}  // namespace pricedown::windows
