// What the control's and the form's children tell the window that they are in.
// A child reports as the last step of its message, because the report may end the control.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <memory>

#include "browser/node_collection.h"
#include "windows/ui/user_commands.h"

namespace pricedown::windows {

enum class SplitterAction {
  Press,    // the mouse went down
  Drag,     // to `pixels` from the splitter's left edge
  Release,  // the mouse went up
  Step,     // from the keyboard, by `pixels`
};

// What a row of buttons tells the window that it is in.
class StripEvents {
 public:
  // Position from 1.
  virtual void StripButtonClicked(std::size_t position) = 0;
  // Tab, which the host did not use.
  virtual void TabPressed(bool backwards) = 0;
  // A child has the focus now; `from` lost it and may be null.
  virtual void FocusEntered(HWND from) = 0;

 protected:
  ~StripEvents() = default;
};

class ChildEvents : public StripEvents {
 public:
  // The user clicked a node, or selected it by keyboard.
  virtual void NodeClicked(NodeIndex node) = 0;
  // A key of that command was pressed.
  virtual void CommandChosen(UserCommand command) = 0;
  // `child` should show its commands at `place` on the screen.
  virtual void MenuRequested(HWND child, POINT place) = 0;
  virtual void SplitterEvent(SplitterAction action, std::int32_t pixels) = 0;
  // The sheet shows other rows.
  virtual void ItemsChanged() = 0;
  // The sheet is being filled, and does not show it yet.
  virtual void ItemsFilling() = 0;
  virtual bool Waiting() const = 0;
  // Keeps the child alive while it is held. For a child that is not done when it takes the focus:
  // that may call the host, which may end the control.
  virtual std::shared_ptr<void> Hold() = 0;

 protected:
  ~ChildEvents() = default;
};

}  // namespace pricedown::windows
