// Part of PreviewWindow: keys, and the numbers that the user types in the fields.
#include <windows.h>

#include "print/preview_fields.h"
#include "windows/base/keyboard.h"
#include "windows/print/preview_children.h"
#include "windows/print/preview_window.h"

namespace pricedown::windows {

void PreviewWindow::EnterPage() {
  SetFocus(children_->pageField.Handle());
  SendMessageW(children_->pageField.Handle(), EM_SETSEL, 0, -1);
}

void PreviewWindow::GoToTypedPage() {
  const HWND field = children_->pageField.Handle();
  const auto page = TypedPage(TextOf(field));
  if (page) {
    PaneChanges([&] { state_.GoTo(*page); });
  } else {
    MessageBeep(MB_ICONWARNING);
  }
  ShowPageNumber();
  SendMessageW(field, EM_SETSEL, 0, -1);
}

void PreviewWindow::ApplyZoomChoice() {
  const HWND zoom = children_->zoom.Handle();
  const auto line = static_cast<int>(SendMessageW(zoom, CB_GETCURSEL, 0, 0));
  if (line == CB_ERR) return;
  if (const auto command = ZoomCommandOf(line)) {
    Run(*command);
  } else {
    ApplyTypedZoom();
  }
}

void PreviewWindow::ApplyTypedZoom() {
  const HWND zoom = children_->zoom.Handle();
  if (const auto percent = TypedPercent(TextOf(zoom))) {
    PaneChanges([&] { state_.SetPercent(*percent); });
  } else {
    MessageBeep(MB_ICONWARNING);
  }
  ShowZoom();
  SendMessageW(zoom, CB_SETEDITSEL, 0, MAKELPARAM(0, -1));
}

void PreviewWindow::OnEnter() {
  const HWND focus = GetFocus();
  const HWND zoom = children_->zoom.Handle();
  if (focus == children_->pageField.Handle()) GoToTypedPage();
  if (focus == zoom || IsChild(zoom, focus) != FALSE) ApplyTypedZoom();
}

PreviewFocus PreviewWindow::FocusOf(HWND window) const {
  const PreviewChildren& c = *children_;
  if (window == c.pane.Handle()) return PreviewFocus::Page;
  if (window == c.documentBar.toolStrip.Handle() || window == c.viewBar.toolStrip.Handle()) {
    return PreviewFocus::Buttons;
  }
  return PreviewFocus::Field;
}

bool PreviewWindow::OnKeyDown(const MSG& message) {
  const auto command = CommandOfKey(PressOf(message.wParam), FocusOf(message.hwnd));
  if (command) Run(*command);
  return command.has_value();
}

bool PreviewWindow::TranslateKey(MSG& message) {
  if (!IsOurs(message)) return false;
  const HWND zoom = children_->zoom.Handle();
  if (message.message == WM_MOUSEWHEEL && message.hwnd != children_->pane.Handle() &&
      SendMessageW(zoom, CB_GETDROPPEDSTATE, 0, 0) == FALSE) {
    // Wherever the focus is, the wheel moves the page.
    SendMessageW(children_->pane.Handle(), message.message, message.wParam, message.lParam);
    return true;
  }
  if (message.message == WM_KEYDOWN) {
    // The list's own keys, also those that choose and that close it.
    if (SendMessageW(zoom, CB_GETDROPPEDSTATE, 0, 0) != FALSE) return false;
    if (OnKeyDown(message)) return true;
    // The tool strips press their buttons themselves.
    if (message.wParam == VK_RETURN && FocusOf(message.hwnd) == PreviewFocus::Buttons) return false;
  }
  return IsDialogMessageW(Handle(), &message) != FALSE;
}

}  // namespace pricedown::windows
