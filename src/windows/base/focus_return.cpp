// Looks for the window that had the focus, or its parent, and sets the focus there.
#include "windows/base/focus_return.h"

namespace pricedown::windows {

FocusedWindow::FocusedWindow()
    : window_(GetFocus()),
      parent_(window_ == nullptr ? nullptr : GetAncestor(window_, GA_PARENT)) {}

HWND FocusedWindow::Find() const {
  for (const HWND place : {window_, parent_}) {
    if (place != nullptr && IsWindowVisible(place) != FALSE && IsWindowEnabled(place) != FALSE) {
      return place;
    }
  }
  return nullptr;
}

void FocusedWindow::Restore() const {
  const HWND place = Find();
  if (place != nullptr && GetAncestor(place, GA_ROOT) == GetActiveWindow()) SetFocus(place);
}

}  // namespace pricedown::windows
