// The vertical splitter `imgSplitVer` and its drag bar `picSplitVer`.
#pragma once

#include <windows.h>

#include <string_view>

#include "windows/base/bound_window.h"
#include "windows/base/window_provider.h"
#include "windows/control/child_events.h"
#include "windows/control/splitter_provider.h"

namespace pricedown::windows {

class SplitterWindow final : public BoundWindow, private SplitterAccess {
 public:
  explicit SplitterWindow(ChildEvents& events, UiAutomation& automation = SystemUiAutomation())
      : events_(events), provider_(automation) {}
  ~SplitterWindow() override;
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, std::u16string_view name);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnPaint();
  void OnPress(int x);
  void OnKeyDown(WPARAM key);
  void EndDrag(bool keep);
  LRESULT OnGetObject(WPARAM wParam, LPARAM lParam);
  void ReportPosition();

  // SplitterAccess
  HWND Window() const override { return Handle(); }
  bool MoveBy(int pixels) override;

  ChildEvents& events_;
  WindowProvider<SplitterProvider> provider_;
  int reportedPosition_ = 0;
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
