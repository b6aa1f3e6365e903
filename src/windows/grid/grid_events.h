// What the grid reports to its parent window.
#pragma once

#include <windows.h>

#include "platform/key.h"
#include "windows/base/focus_events.h"

namespace pricedown::windows {

// Reported as the last step of a message, because the report may end the control.
class GridEvents : public virtual FocusEvents {
 public:
  // `child` does not handle the key itself; returns whether the key belongs to a command and is
  // handled.
  virtual bool KeyPressed(HWND child, const KeyPress& press, bool repeated) = 0;
  // The user asks for the context menu of `child` at `place` on the screen.
  virtual void MenuRequested(HWND child, POINT place) = 0;
  // The grid shows other rows.
  virtual void ItemsChanged() = 0;
  // Progress callback during a long fill.
  virtual void ItemsFilling() = 0;
  virtual bool Waiting() const = 0;

 protected:
  ~GridEvents() = default;
};

}  // namespace pricedown::windows
