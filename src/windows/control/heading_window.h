// A heading panel above a pane, `SSPTitleClass` or `SSPTitleItem`: a raised panel with a caption.
// The caption is the window's text.
#pragma once

#include <windows.h>

#include <string_view>

#include "windows/base/bound_window.h"

namespace pricedown::windows {

class HeadingWindow final : public BoundWindow {
 public:
  HeadingWindow() = default;
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, int id, std::u16string_view caption);

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC context, const RECT& area);

  HFONT font_ = nullptr;  // the control's
};

}  // namespace pricedown::windows
