// The vertical splitter `imgSplitVer` and its drag bar `picSplitVer`.
#pragma once

#include <windows.h>

#include "windows/base/bound_window.h"
#include "windows/control/child_events.h"

namespace pricedown::windows {

class SplitterWindow final : public BoundWindow {
 public:
  explicit SplitterWindow(ChildEvents& events) : events_(events) {}
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnPaint();
  void OnPress(int x);
  void OnKeyDown(WPARAM key);
  void EndDrag(bool keep);

  ChildEvents& events_;
  bool dragging_ = false;
  HWND previousFocus_ = nullptr;
};

class DragBarWindow final : public BoundWindow {
 public:
  DragBarWindow() = default;
  // Hidden at first. Throws AutomationError.
  void Create(HWND parent, HINSTANCE module);
  void Show(const RECT& area);
  void Hide();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace pricedown::windows
