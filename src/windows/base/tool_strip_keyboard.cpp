// Part of ToolStripWindow: its keyboard, because toolbars of older systems have none.
#include "windows/base/tool_strip_window.h"

namespace pricedown::windows {

bool ToolStripWindow::CanPress(int index) const {
  const auto position = static_cast<std::size_t>(index);
  // The arrow follows the buttons.
  if (position == buttons_.size()) return HasRest();
  return position < shown_ && !buttons_[position]->separator && IsEnabled(*buttons_[position]);
}

int ToolStripWindow::NextButton(int from, int step) const {
  const int last = static_cast<int>(buttons_.size());
  for (int index = from + step; index >= 0 && index <= last; index += step) {
    if (CanPress(index)) return index;
  }
  return kNoButton;
}

bool ToolStripWindow::AcceptsFocus() const {
  return Handle() != nullptr && IsWindowVisible(Handle()) != FALSE &&
         NextButton(kNoButton, 1) != kNoButton;
}

int ToolStripWindow::HotButton() const {
  return static_cast<int>(SendMessageW(Handle(), TB_GETHOTITEM, 0, 0));
}

void ToolStripWindow::SetHot(int index) {
  if (index != kNoButton) SendMessageW(Handle(), TB_SETHOTITEM, static_cast<WPARAM>(index), 0);
}

// Returns whether the key was handled.
bool ToolStripWindow::OnKeyDown(WPARAM key, bool repeated) {
  switch (key) {
    case VK_TAB:
      events_.TabPressed(GetKeyState(VK_SHIFT) < 0);
      return true;
    case VK_LEFT:
    case VK_UP:
      SetHot(NextButton(HotButton(), -1));
      return true;
    case VK_RIGHT:
    case VK_DOWN:
      SetHot(NextButton(HotButton(), 1));
      return true;
    case VK_HOME:
      SetHot(NextButton(kNoButton, 1));
      return true;
    case VK_END:
      SetHot(NextButton(static_cast<int>(buttons_.size()) + 1, -1));
      return true;
    case VK_RETURN:
    case VK_SPACE:
      // A key that is held down presses once.
      if (!repeated) Press(HotButton());
      return true;
    default:
      return false;
  }
}

}  // namespace pricedown::windows
