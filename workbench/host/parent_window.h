// The object that the host hands to the control's `Show`: its child window, by late binding.
// The child window detaches it before it is destroyed.
//
// Members: MergeToolBar(bar), Caption, hWnd; and ToolChanged(tool), which makes it the bar's
// listener.
#pragma once

#include <windows.h>

#include <string>

#include "platform/local_object.h"

namespace workbench {

// The window that the control merges its command bar into.
class MergeTarget {
 public:
  virtual HWND Handle() const = 0;
  virtual std::wstring Caption() const = 0;
  virtual void MergeToolBar(const pricedown::ObjectPtr& bar) = 0;
  // A tool of the bar changed one of its states.
  virtual void ToolChanged() = 0;

 protected:
  ~MergeTarget() = default;
};

class ParentWindow : public pricedown::LocalObject<ParentWindow> {
 public:
  explicit ParentWindow(MergeTarget& child) : child_(&child) {}
  void Detach() { child_ = nullptr; }
  // Throws AutomationError when the window is destroyed.
  MergeTarget& Child();

  static std::span<const pricedown::Member<ParentWindow>> Members();

 private:
  MergeTarget* child_;
};

}  // namespace workbench
