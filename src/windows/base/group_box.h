// A frame with a caption around controls that are its siblings.
// It only paints; which controls stand inside is the layout's business.
#pragma once

#include <windows.h>

#include "windows/base/bound_window.h"

namespace pricedown::windows {

class GroupBox final : public BoundWindow {
 public:
  // Made after the controls inside, so that it lies behind them. Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, int id);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace pricedown::windows
