// The part of the print preview that shows the page: paper with a shadow on grey, scroll bars,
// keys and wheel. Which page and which size that gives is the core's PreviewState.
#pragma once

#include <windows.h>

#include <functional>

#include "print/preview_state.h"
#include "windows/base/bound_window.h"
#include "windows/base/dpi.h"
#include "windows/print/preview_buttons.h"
#include "windows/print/preview_pages.h"

namespace pricedown::windows {

class PaneEvents {
 public:
  // Runs what the user did to the state, then shows the new state everywhere.
  virtual void PaneChanges(const std::function<void()>& change) = 0;
  virtual void PaneCommand(PreviewCommand command) = 0;

 protected:
  ~PaneEvents() = default;
};

class PreviewPane final : public BoundWindow {
 public:
  // All must outlive the pane.
  PreviewPane(PaneEvents& events, PreviewState& state, PreviewPages& pages)
      : events_(events), state_(state), pages_(pages) {}

  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, int id, const wchar_t* name);

  // The state or the page is another one.
  void ShowState();
  // The resolution may be another one.
  void TakeAppearance();
  // A key that the user pressed here or in another child that has no use for it; whether it was
  // used up.
  bool PressKey(WPARAM key);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnSize();
  void OnPaint();
  void Paint(HDC context, const RECT& area);
  void OnWheel(int delta, bool zooms);
  void OnScroll(int bar, int code);
  void ScrollBy(int x, int y);
  // Down by that much, and on to the next page at the end of this one.
  void Advance(int pixels);

  PaneEvents& events_;
  PreviewState& state_;
  PreviewPages& pages_;
  Dpi dpi_;
  int wheelRest_ = 0;
};

}  // namespace pricedown::windows
