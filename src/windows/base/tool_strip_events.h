// What a tool strip reports to its parent.
#pragma once

#include "env/command.h"
#include "windows/base/focus_events.h"

namespace pricedown::windows {

class ToolStripEvents : public virtual FocusEvents {
 public:
  // The button of that row was pressed; the last step of the tool strip's message.
  virtual void CommandChosen(const Command& command) = 0;

 protected:
  ~ToolStripEvents() = default;
};

}  // namespace pricedown::windows
