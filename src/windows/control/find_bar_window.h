// The find bar: a field, and how many hits there are.
#pragma once

#include <windows.h>

#include <string_view>

#include "windows/base/bound_window.h"
#include "windows/base/plain_control.h"
#include "windows/control/child_events.h"

namespace pricedown::windows {

// The system's field with the bar's keys. While an input method composes a text, a change of it is
// reported as such.
class FindField final : public BoundWindow {
 public:
  explicit FindField(FindBarEvents& events) : events_(events) {}
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module);
  // Begins with that text.
  void Fill(std::u16string_view text);
  void ReportChange();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool OnKeyDown(WPARAM key);

  FindBarEvents& events_;
  bool composing_ = false;
};

class FindBarWindow final : public BoundWindow {
 public:
  explicit FindBarWindow(FindBarEvents& events) : events_(events), field_(events) {}
  ~FindBarWindow() override { Destroy(); }
  // Closed at first. Throws AutomationError.
  void Create(HWND parent, HINSTANCE module);
  void SetFont(HFONT font);

  // Shows the bar with that text; MoveTo sets its place.
  void Open(FindPane pane, std::u16string_view text);
  void Close();
  bool IsOpen() const { return open_ && Handle() != nullptr; }
  FindPane Pane() const { return pane_; }
  void MoveTo(const RECT& area);
  // To the field, with its text selected.
  void Focus();
  bool HasFocus() const;
  // While `counting` the bar reports whenever the thread is idle.
  void SetCount(std::u16string_view text, bool counting);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC context) const;
  void LayOut();

  FindBarEvents& events_;
  FindPane pane_ = FindPane::Grid;
  bool open_ = false;
  bool opening_ = false;
  bool counting_ = false;
  HFONT font_ = nullptr;  // the control's
  PlainControl label_;
  FindField field_;
  PlainControl count_;
};

}  // namespace pricedown::windows
