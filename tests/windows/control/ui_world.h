// A host window with the control's windows and the real core on a scripted suite.
// Everything is visible and accepts input as in a real host.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "control/price_down.h"
#include "tests/control/control_fixture.h"
#include "tests/windows/base/recording_automation.h"
#include "tests/windows/support/run_messages.h"
#include "windows/base/windows_screen.h"
#include "windows/control/control_window.h"

namespace pricedown::testing {

// A plain overlapped window; destroyed with the object unless it already has been.
class HostWindow {
 public:
  HostWindow(int width, int height);
  ~HostWindow();
  HostWindow(const HostWindow&) = delete;
  HostWindow& operator=(const HostWindow&) = delete;

  HWND Handle() const { return handle_; }
  RECT Inside() const;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND handle_ = nullptr;
};

// Simulated keyboard and mouse: messages are posted and processed before a method returns.
class Input {
 public:
  // To the window that has the focus.
  void Press(WPARAM key);
  // With Shift or Control held down.
  void PressWith(int modifier, WPARAM key);
  void Type(std::u16string_view text);
  // In the window's client coordinates.
  void Click(HWND window, POINT point, WPARAM keys = 0);
  void DoubleClick(HWND window, POINT point);
  void Drag(HWND window, POINT from, POINT to);
  // Before a move is posted: newer Wine adds a move to where the cursor is.
  static void MoveCursor(HWND window, POINT to);
};

class UiWorld : public Input {
 public:
  // The scripted company has twelve classes; the third one has no items.
  explicit UiWorld(int width = 900, int height = 560);
  ~UiWorld();

  // Creates the core, initializes and shows it in the host window. `output` must outlive the world;
  // without one the recording output is the control's.
  void Start(PrintOutput* output = nullptr);
  // Answers the grid statement of that class with `count` items.
  void ScriptItems(std::u16string_view classNumber, int count);

  HWND Child(int id) const;
  HWND Tree() const;
  HWND Grid() const;
  HWND Strip() const;

  // The middle of a tree node's text; scrolls the node into view.
  POINT NodePoint(NodeIndex node) const;
  // The middle of a tool strip button, position from 1.
  POINT ButtonPoint(std::size_t position) const;

  ControlWorld suite;
  HostWindow host;
  RecordingAutomation automation;
  std::unique_ptr<windows::ControlWindow> window;
  std::unique_ptr<windows::WindowsScreen> screen;
  std::unique_ptr<PriceDown> control;
};

// Whether the control is held while a client of accessibility destroys its window at the first text
// that `cause` makes it speak.
bool IsHeldWhenAClientEndsIt(UiWorld& world, const std::function<void()>& cause);

}  // namespace pricedown::testing
