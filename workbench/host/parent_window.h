// The object that the host hands to the control's `Show`: its child window, by late binding.
// It owns no window; the child window detaches it before it dies.
//
// Members: MergeToolBar(bar), Caption, hWnd; and ToolChanged(tool), which makes it the bar's
// listener.
#pragma once

#include "platform/local_object.h"

namespace workbench {

class ChildWindow;

class ParentWindow : public pricedown::LocalObject<ParentWindow> {
 public:
  explicit ParentWindow(ChildWindow& child) : child_(&child) {}
  void Detach() { child_ = nullptr; }
  // Throws AutomationError when the window is gone.
  ChildWindow& Child();

  static std::span<const pricedown::Member<ParentWindow>> Members();

 private:
  ChildWindow* child_;
};

}  // namespace workbench
