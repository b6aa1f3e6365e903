// The keyboard between the children: tab order, and the keys that a host must not take.
// Part of ControlWindow.
#include <array>

#include "control/commands.h"
#include "windows/base/keyboard.h"
#include "windows/control/control_children.h"
#include "windows/control/control_window.h"

namespace pricedown::windows {
namespace {

bool IsKeyDown(const MSG& message, WPARAM key) {
  return message.message == WM_KEYDOWN && message.wParam == key;
}

bool IsMoveKey(WPARAM key) {
  switch (key) {
    case VK_LEFT:
    case VK_RIGHT:
    case VK_UP:
    case VK_DOWN:
    case VK_HOME:
    case VK_END:
    case VK_PRIOR:
    case VK_NEXT:
      return true;
    default:
      return false;
  }
}

// In tab order tree, grid and strip; for F6 tree, splitter and grid.
using Stops = std::array<HWND, 3>;

int StopOf(const Stops& stops, HWND focus) {
  for (std::size_t i = 0; i < stops.size(); ++i) {
    if (stops[i] != nullptr && (focus == stops[i] || IsChild(stops[i], focus) != FALSE)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

}  // namespace

bool ControlChildren::MoveFocus(bool backwards, bool wrap) const {
  const Stops stops{tree.Handle(), grid.Handle(), strip.CanTakeFocus() ? strip.Handle() : nullptr};
  const int count = static_cast<int>(stops.size());
  const int step = backwards ? -1 : 1;
  int stop = StopOf(stops, GetFocus());
  if (stop < 0) stop = backwards ? count : -1;
  for (int tries = 0; tries < count; ++tries) {
    stop += step;
    if (stop < 0 || stop >= count) {
      if (!wrap) return false;
      stop = (stop + count) % count;
    }
    const HWND window = stops[static_cast<std::size_t>(stop)];
    if (window == nullptr || IsWindowVisible(window) == FALSE) continue;
    SetFocus(window);
    return true;
  }
  return false;
}

void ControlWindow::TabPressed(bool backwards) { children_->MoveFocus(backwards, true); }

void ControlWindow::SetFocusFirst(bool last) {
  if (Handle() == nullptr) return;
  const ControlChildren& c = *children_;
  SetFocus(!last ? c.tree.Handle() : c.strip.CanTakeFocus() ? c.strip.Handle() : c.grid.Handle());
}

// A key whose command is disabled is left to the host.
bool ControlWindow::UsesCommandKey(HWND focus, const KeyPress& press) const {
  const ControlChildren& c = *children_;
  if (focus == c.grid.Handle() && c.grid.EditsWith(press)) return true;
  if (focus != c.tree.Handle() && focus != c.grid.Handle()) return false;
  const ControlCommand* command = CommandOfPress(press, MenuOf(focus));
  return command != nullptr && control_ != nullptr && control_->IsEnabled(*command);
}

bool ControlWindow::TranslateKey(MSG& message) {
  if (Handle() == nullptr || message.message < WM_KEYFIRST || message.message > WM_KEYLAST) {
    return false;
  }
  const HWND focus = message.hwnd;
  if (focus != Handle() && IsChild(Handle(), focus) == FALSE) return false;
  const bool control = GetKeyState(VK_CONTROL) < 0;
  if (IsKeyDown(message, VK_TAB) && !control) {
    return children_->MoveFocus(GetKeyState(VK_SHIFT) < 0, false);
  }
  const ControlChildren& c = *children_;
  if (IsKeyDown(message, VK_F6) && !control) {
    const Stops panes{c.tree.Handle(), c.splitter.Handle(), c.grid.Handle()};
    const int pane = StopOf(panes, focus);
    const int next = pane < 0 ? 0 : pane + (GetKeyState(VK_SHIFT) < 0 ? 2 : 1);
    SetFocus(panes[static_cast<std::size_t>(next) % panes.size()]);
    return true;
  }
  const bool inStrip = focus == c.strip.Handle();
  const bool inGrid = focus == c.grid.Handle();
  const bool inEditor = IsChild(c.grid.Handle(), focus) != FALSE;
  bool ours = message.message == WM_KEYDOWN && IsMoveKey(message.wParam);
  ours = ours || (message.message == WM_KEYDOWN && UsesCommandKey(focus, PressOf(message.wParam)));
  if (inStrip) ours = ours || IsKeyDown(message, VK_RETURN) || IsKeyDown(message, VK_SPACE);
  if (inGrid) {
    ours = ours || (control && (IsKeyDown(message, 'C') || IsKeyDown(message, 'A') ||
                                IsKeyDown(message, VK_INSERT)));
  }
  if (inEditor) {
    // A host's own Delete or Ctrl+V would mean something else than the number that is typed.
    ours = ours ||
           (message.message == WM_KEYDOWN && PressOf(message.wParam) == KeyPress{Key::F5}) ||
           IsKeyDown(message, VK_DELETE) || IsKeyDown(message, VK_INSERT) ||
           (control &&
            (IsKeyDown(message, 'A') || IsKeyDown(message, 'C') || IsKeyDown(message, 'V') ||
             IsKeyDown(message, 'X') || IsKeyDown(message, 'Z')));
  }
  if (inEditor || focus == c.splitter.Handle()) {
    ours = ours || IsKeyDown(message, VK_RETURN) || IsKeyDown(message, VK_ESCAPE);
  }
  if (!ours) return false;
  TranslateMessage(&message);
  DispatchMessageW(&message);
  return true;
}

}  // namespace pricedown::windows
