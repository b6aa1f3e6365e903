// What the control's children report to the control's window.
#pragma once

#include <cstdint>

#include <string_view>

#include "browser/node_collection.h"
#include "control/find.h"
#include "windows/base/focus_events.h"
#include "windows/base/tool_strip_events.h"
#include "windows/grid/grid_events.h"

namespace pricedown::windows {

enum class SplitterAction {
  Press,     // the mouse went down
  Drag,      // to `pixels` from the splitter's left edge
  Release,   // the mouse went up
  StepLeft,  // from the keyboard
  StepRight,
};

// What the find bar reports, as the last step of a message.
class FindBarEvents : public virtual FocusEvents {
 public:
  // `composing` while an input method's composition is open.
  virtual void FindTextChanged(std::u16string_view text, bool composing) = 0;
  virtual void FindKeyPressed(FindKey key) = 0;
  // The thread is idle.
  virtual void FindIdle() = 0;
  virtual void FindTabPressed() = 0;

 protected:
  ~FindBarEvents() = default;
};

// Reported as the last step of a message, because the report may end the control.
class ChildEvents : public GridEvents, public ToolStripEvents, public FindBarEvents {
 public:
  // The user clicked a node, or selected it by keyboard.
  virtual void NodeClicked(NodeIndex node) = 0;
  virtual void SplitterEvent(SplitterAction action, std::int32_t pixels) = 0;

 protected:
  ~ChildEvents() = default;
};

}  // namespace pricedown::windows
