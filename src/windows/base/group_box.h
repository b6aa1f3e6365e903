// A frame with a caption around sibling controls.
#pragma once

#include <windows.h>

#include "windows/base/bound_window.h"

namespace pricedown::windows {

class GroupBox final : public BoundWindow {
 public:
  // Creates it below the existing controls in Z order. Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, int id);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace pricedown::windows
