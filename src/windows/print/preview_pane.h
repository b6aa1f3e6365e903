// The part of the print preview that shows the page: paper with a shadow on grey, scroll bars and
// wheel.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "print/preview_state.h"
#include "windows/base/bound_window.h"
#include "windows/base/dpi.h"
#include "windows/base/window_provider.h"
#include "windows/print/page_provider.h"
#include "windows/print/preview_pages.h"

namespace pricedown::windows {

class PaneEvents {
 public:
  // Runs a change of the state, then shows the new state everywhere.
  virtual void PaneChanges(const std::function<void()>& change) = 0;
  virtual void PaneCommand(PreviewCommand command) = 0;

 protected:
  ~PaneEvents() = default;
};

class PreviewPane final : public BoundWindow, private PageAccess {
 public:
  // All must outlive the pane.
  PreviewPane(PaneEvents& events, PreviewState& state, PreviewPages& pages,
              UiAutomation& automation = SystemUiAutomation())
      : events_(events), state_(state), pages_(pages), provider_(automation) {}
  ~PreviewPane() override;

  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, int id, const wchar_t* name);

  // The state or the page is another one.
  void ShowState();
  // The resolution may be another one.
  void UpdateAppearance();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnSize();
  void OnPaint();
  void Paint(HDC context, const RECT& area);
  void OnWheel(int delta, bool zooms);
  void OnScroll(int bar, int code);
  LRESULT OnGetObject(WPARAM wParam, LPARAM lParam);
  // For clients that listen, when the page is another one.
  void ReportText();

  // PageAccess
  HWND Window() const override { return Handle(); }
  std::vector<ReadingLine> Lines() const override;
  RECT ShownArea(const Rectangle& paper) const override;

  PaneEvents& events_;
  PreviewState& state_;
  PreviewPages& pages_;
  WindowProvider<PageProvider> provider_;
  std::optional<std::u16string> reportedText_;  // none while nobody listens
  Dpi dpi_;
};

}  // namespace pricedown::windows
