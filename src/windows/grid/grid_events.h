// What the grid reports to the window that it is in.
#pragma once

#include <windows.h>

#include <memory>

#include "platform/key.h"
#include "windows/base/tool_strip_events.h"

namespace pricedown::windows {

// Reported as the last step of a message, because the report may end the control.
class GridEvents : public ToolStripEvents {
 public:
  // `child` has no use of its own for the key; returns whether the key belongs to a command and is
  // used up.
  virtual bool KeyPressed(HWND child, const KeyPress& press, bool repeated) = 0;
  // `child` should show its commands at `place` on the screen.
  virtual void MenuRequested(HWND child, POINT place) = 0;
  // The grid shows other rows.
  virtual void ItemsChanged() = 0;
  // The grid is being filled, and does not show it yet.
  virtual void ItemsFilling() = 0;
  virtual bool Waiting() const = 0;
  // Keeps the child alive while it is held. For a child that is not done when it takes the focus:
  // that may call the host, which may end the control.
  virtual std::shared_ptr<void> Hold() = 0;

 protected:
  ~GridEvents() = default;
};

}  // namespace pricedown::windows
