// What a tool strip reports to the window that it is in.
#pragma once

#include <windows.h>

#include "env/command.h"

namespace pricedown::windows {

// A child reports as the last step of its message, because the report may end the control.
class ToolStripEvents {
 public:
  // The button of that row was pressed.
  virtual void CommandChosen(const Command& command) = 0;
  // Tab, which the host did not use.
  virtual void TabPressed(bool backwards) = 0;
  // A child has the focus now; `from` lost it and may be null.
  virtual void FocusEntered(HWND from) = 0;

 protected:
  ~ToolStripEvents() = default;
};

}  // namespace pricedown::windows
