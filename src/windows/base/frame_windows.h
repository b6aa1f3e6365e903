// Windows without a behaviour: the parking window, the grid pane `pic`, the separating lines
// `Line1` and `Line3`. They hold others or show an edge.
#pragma once

#include <windows.h>

#include <functional>

#include "windows/base/bound_window.h"

namespace pricedown::windows {

// A hidden top-level window, where the control stays while no container shows it. The system
// tells only top-level windows of changed settings; this one passes them on.
class ParkingWindow final : public BoundWindow {
 public:
  // Throws AutomationError.
  void Create(HINSTANCE module);
  // `handler` is called for WM_SETTINGCHANGE, WM_SYSCOLORCHANGE and WM_THEMECHANGED.
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
