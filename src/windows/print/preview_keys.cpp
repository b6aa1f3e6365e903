// Keys of the preview's window, and the numbers that the user types in its fields.
// Part of PreviewWindow.
#include <windows.h>

#include <algorithm>
#include <optional>
#include <string_view>

#include "platform/text.h"
#include "windows/print/preview_children.h"
#include "windows/print/preview_window.h"

namespace pricedown::windows {
namespace {

// The first two lines of the zoom's list.
constexpr int kFitPageLine = 0;
constexpr int kFitWidthLine = 1;
constexpr std::int32_t kGreatestTyped = 10'000'000;

// A whole number in digits of either width, with a percent sign where it may have one; larger ones
// than can be meant are the largest.
std::optional<std::int32_t> TypedNumber(std::u16string_view typed, bool percent) {
  std::u16string_view text = Trim(typed);
  if (percent && !text.empty() && (text.back() == u'%' || text.back() == u'％'))
    text.remove_suffix(1);
  text = Trim(text);
  if (text.empty()) return std::nullopt;
  std::int32_t number = 0;
  for (const char16_t unit : text) {
    int digit = -1;
    if (unit >= u'0' && unit <= u'9') digit = unit - u'0';
    if (unit >= u'０' && unit <= u'９') digit = unit - u'０';
    if (digit < 0) return std::nullopt;
    number = std::min(number * 10 + digit, kGreatestTyped);
  }
  return number;
}

}  // namespace

void PreviewWindow::GoToTypedPage() {
  const HWND field = children_->pageField.Handle();
  const auto page = TypedNumber(TextOf(field), false);
  if (page) {
    PaneChanges([&] { state_.GoTo(*page); });
  } else {
    MessageBeep(MB_ICONWARNING);
  }
  ShowPageNumber();
  SendMessageW(field, EM_SETSEL, 0, -1);
}

void PreviewWindow::TakeZoomChoice() {
  const HWND zoom = children_->zoom.Handle();
  const auto line = static_cast<int>(SendMessageW(zoom, CB_GETCURSEL, 0, 0));
  if (line == kFitPageLine) {
    Run(PreviewCommand::FitPage);
  } else if (line == kFitWidthLine) {
    Run(PreviewCommand::FitWidth);
  } else if (line != CB_ERR) {
    TakeTypedZoom();
  }
}

void PreviewWindow::TakeTypedZoom() {
  const HWND zoom = children_->zoom.Handle();
  if (const auto percent = TypedNumber(TextOf(zoom), true); percent && *percent > 0) {
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
  if (focus == zoom || IsChild(zoom, focus) != FALSE) TakeTypedZoom();
}

// Keys that mean the same wherever the focus is.
bool PreviewWindow::OnKeyDown(const MSG& message) {
  PreviewChildren& c = *children_;
  const bool control = GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
  const bool inStrip =
      message.hwnd == c.documentBar.strip.Handle() || message.hwnd == c.viewBar.strip.Handle();
  switch (message.wParam) {
    case 'P':
      if (control) Run(PreviewCommand::Print);
      return control;
    case 'G':
      if (control) {
        SetFocus(c.pageField.Handle());
        SendMessageW(c.pageField.Handle(), EM_SETSEL, 0, -1);
      }
      return control;
    case VK_PRIOR:
    case VK_NEXT:
      return message.hwnd != c.pane.Handle() && c.pane.PressKey(message.wParam);
    case VK_HOME:
    case VK_END:
      return control && inStrip && c.pane.PressKey(message.wParam);
    case VK_ADD:
    case VK_SUBTRACT:
    case VK_OEM_PLUS:
    case VK_OEM_MINUS:
      return (control || inStrip) && message.hwnd != c.pane.Handle() &&
             c.pane.PressKey(message.wParam);
    default:
      return false;
  }
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
    const bool inStrip = message.hwnd == children_->documentBar.strip.Handle() ||
                         message.hwnd == children_->viewBar.strip.Handle();
    // The bars press their buttons themselves.
    if (message.wParam == VK_RETURN && inStrip) return false;
  }
  return IsDialogMessageW(Handle(), &message) != FALSE;
}

}  // namespace pricedown::windows
