// Keyboard navigation between the children: tab order, and the keys that a host must not handle.
#include <algorithm>
#include <array>
#include <optional>

#include "control/commands.h"
#include "windows/base/keyboard.h"
#include "windows/control/control_children.h"
#include "windows/control/control_window.h"

namespace pricedown::windows {
namespace {

// In tab order tree, grid and tool strip; for F6 tree, splitter and grid.
using Stops = std::array<HWND, 3>;

std::optional<std::size_t> StopOf(const Stops& stops, HWND focus) {
  for (std::size_t i = 0; i < stops.size(); ++i) {
    if (stops[i] != nullptr && (focus == stops[i] || IsChild(stops[i], focus) != FALSE)) return i;
  }
  return std::nullopt;
}

// Which of them the layout shows. The control itself may be hidden.
std::array<bool, std::tuple_size_v<Stops>> OpenOf(const Stops& stops, HWND control) {
  const auto isOpen = [control](HWND window) {
    for (; window != control; window = GetAncestor(window, GA_PARENT)) {
      if (window == nullptr || (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) == 0) return false;
    }
    return true;
  };
  std::array<bool, std::tuple_size_v<Stops>> open{};
  std::transform(stops.begin(), stops.end(), open.begin(), isOpen);
  return open;
}

}  // namespace

bool ControlChildren::MoveFocus(HWND from, bool backwards, bool wrap) const {
  const Stops stops{tree.Handle(), grid.Handle(),
                    toolStrip.AcceptsFocus() ? toolStrip.Handle() : nullptr};
  const HWND control = GetAncestor(tree.Handle(), GA_PARENT);
  const auto next = NextStop(OpenOf(stops, control), StopOf(stops, from), backwards, wrap);
  if (next) SetFocus(stops[*next]);
  return next.has_value();
}

FocusPlace ControlChildren::PlaceOf(HWND focus) const {
  if (focus == tree.Handle()) return FocusPlace::Tree;
  if (focus == grid.Handle()) return FocusPlace::Grid;
  if (IsChild(grid.Handle(), focus) != FALSE) return FocusPlace::CellEditor;
  if (IsChild(findBar.Handle(), focus) != FALSE) return FocusPlace::FindField;
  if (focus == toolStrip.Handle()) return FocusPlace::ToolStrip;
  return focus == splitter.Handle() ? FocusPlace::Splitter : FocusPlace::Other;
}

void ControlWindow::TabPressed(bool backwards) {
  children_->MoveFocus(GetFocus(), backwards, true);
}

void ControlWindow::SetFocusFirst(bool last) {
  if (Handle() != nullptr) children_->MoveFocus(nullptr, last, false);
}

// A key whose command is disabled is left to the host.
bool ControlWindow::UsesCommandKey(HWND focus, const KeyPress& press) const {
  const ControlChildren& c = *children_;
  if (focus == c.grid.Handle() && c.grid.UsesCellKey(press)) return true;
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
  if (message.message != WM_KEYDOWN) return false;
  const KeyPress press = PressOf(message.wParam);
  const ControlChildren& c = *children_;
  const bool inFindField = c.PlaceOf(focus) == FocusPlace::FindField;
  if (press.key == Key::Tab && !press.control) {
    if (!inFindField) return c.MoveFocus(GetFocus(), press.shift, false);
    FindTabPressed();
    return true;
  }
  if (press.key == Key::F6 && !press.control) {
    const Stops panes{c.tree.Handle(), c.splitter.Handle(), c.grid.Handle()};
    const HWND from = inFindField ? c.WindowOf(c.findBar.Pane()) : focus;
    const auto pane = StopOf(panes, from);
    // From outside to the first one.
    if (const auto next = NextStop(OpenOf(panes, Handle()), pane, pane && press.shift, true)) {
      SetFocus(panes[*next]);
    }
    return true;
  }
  if (!KeepsKey(c.PlaceOf(focus), press) && !UsesCommandKey(focus, press)) return false;
  TranslateMessage(&message);
  DispatchMessageW(&message);
  return true;
}

}  // namespace pricedown::windows
