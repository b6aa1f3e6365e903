// Creation and place of the frame, and the messages common to such windows.
#include "windows/base/modal_frame_window.h"

#include <algorithm>
#include <string>
#include <utility>

#include "windows/base/centring.h"
#include "windows/base/message_box_questions.h"
#include "windows/base/painting.h"
#include "windows/base/plain_control.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr DWORD kStyle =
    WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;

}  // namespace

void ModalFrameWindow::CreateFrame(const wchar_t* className, HWND owner,
                                   std::u16string_view title) {
  owner_ = owner;
  lastFocus_ = nullptr;
  waiting_ = busy_ = closeRequested_ = false;
  const std::wstring text = ToWide(title);
  Creation creation;
  creation.className = className;
  creation.text = text.c_str();
  creation.style = kStyle;
  creation.extendedStyle = kExtendedStyle;
  creation.parent = owner;
  creation.module = module_;
  CreateOwn(creation);
  try {
    CreateChildren();
    MakeFont();
    MakeIcons();
  } catch (...) {
    Destroy();
    throw;
  }
}

void ModalFrameWindow::MakeFont() {
  FontHandle font = MakeMessageFont(Dpi::Of(Handle()));
  SetFonts(font.Get());
  font_ = std::move(font);
}

// In the caption and where the system switches between windows.
void ModalFrameWindow::MakeIcons() {
  constexpr int kLargeIcon = 32;  // pixels at 96 dpi
  const Dpi dpi = Dpi::Of(Handle());
  smallIcon_ = LoadIconResource(icon_, IconSize(dpi));
  largeIcon_ = LoadIconResource(icon_, dpi.Scale(kLargeIcon));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon_.get()));
  SendMessageW(Handle(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeIcon_.get()));
}

SIZE ModalFrameWindow::OuterSize(SIZE client) const {
  RECT area{0, 0, client.cx, client.cy};
  AdjustFrame(area, kStyle, kExtendedStyle, Dpi::Of(Handle()));
  return {WidthOf(area), HeightOf(area)};
}

std::optional<RECT> ModalFrameWindow::OwnerArea() const { return AreaOfOwner(owner_); }

void ModalFrameWindow::Centre(SIZE size) { CentreOver(Handle(), owner_, size); }

void ModalFrameWindow::LayOut() {
  if (Handle() == nullptr || !font_) return;
  RECT client{};
  GetClientRect(Handle(), &client);
  PlaceChildren({client.right, client.bottom}, Dpi::Of(Handle()));
}

bool ModalFrameWindow::IsOurs(const MSG& message) const {
  return Handle() != nullptr &&
         (message.hwnd == Handle() || IsChild(Handle(), message.hwnd) != FALSE);
}

void ModalFrameWindow::FocusNext(bool backwards) {
  const HWND next = GetNextDlgTabItem(Handle(), GetFocus(), backwards ? TRUE : FALSE);
  if (next != nullptr) SetFocus(next);
}

HWND ModalFrameWindow::DialogOwner() const {
  if (Handle() != nullptr && IsWindowVisible(Handle()) != FALSE) return Handle();
  return owner_ != nullptr && IsWindow(owner_) != FALSE ? owner_ : GetActiveWindow();
}

void ModalFrameWindow::SetWaiting(bool waiting) {
  waiting_ = waiting;
  // At once: while a command runs, no message asks for the pointer.
  SetCursor(LoadCursorW(nullptr, waiting ? IDC_WAIT : IDC_ARROW));
}

void ModalFrameWindow::RunCommand(bool showsWait, const std::function<void()>& command) {
  if (busy_) return;
  busy_ = true;
  if (showsWait) SetWaiting(true);
  std::optional<Failure> failure;
  try {
    command();
  } catch (...) {
    failure = CurrentFailure();
  }
  if (showsWait) SetWaiting(false);
  try {
    CommandEnded();
  } catch (...) {
    if (!failure) failure = CurrentFailure();
  }
  // A command that failed because the window closed meanwhile needs no report.
  if (failure && Handle() != nullptr) ReportFailure(DialogOwner(), *failure);
  busy_ = false;
  if (std::exchange(closeRequested_, false)) RequestClose();
}

void ModalFrameWindow::RequestClose() {
  if (Handle() == nullptr) return;
  if (busy_) {
    closeRequested_ = true;
  } else {
    Close();
  }
}

// Enter and Escape come without a child.
void ModalFrameWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
  const int id = LOWORD(wParam);
  if (const auto child = reinterpret_cast<HWND>(lParam); child != nullptr) {
    OnChildCommand(child, id, HIWORD(wParam));
  } else if (id == IDCANCEL) {
    OnEscape();
  } else if (id == IDOK) {
    OnEnter();
  }
}

void ModalFrameWindow::OnActivate(bool active) {
  if (!active) {
    if (IsChild(Handle(), GetFocus()) != FALSE) lastFocus_ = GetFocus();
  } else if (lastFocus_ != nullptr && IsChild(Handle(), lastFocus_) != FALSE) {
    SetFocus(lastFocus_);
  }
}

void ModalFrameWindow::OnDpiChanged(const RECT& suggested) {
  UpdateResolution(Dpi::Of(Handle()));
  MakeFont();
  MakeIcons();
  SetPlaceOf(Handle(), suggested);
  LayOut();
}

void ModalFrameWindow::OnSystemChange(UINT message, WPARAM wParam, LPARAM lParam) {
  for (const HWND child : ThemedChildren()) {
    if (child != nullptr) SendMessageW(child, message, wParam, lParam);
  }
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

LRESULT ModalFrameWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      OnCommand(wParam, lParam);
      return 0;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_SIZE:
      LayOut();
      return 0;
    case WM_GETMINMAXINFO:
      if (font_) {
        const SIZE minimum = OuterSize(MinimumSize(Dpi::Of(Handle())));
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {minimum.cx, minimum.cy};
      }
      return 0;
    case WM_ERASEBKGND:
      return OnEraseButtonFace(Handle(), wParam);
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      return OnButtonFace(wParam);
    case WM_SETCURSOR:
      if (!waiting_) return Default(message, wParam, lParam);
      SetCursor(LoadCursorW(nullptr, IDC_WAIT));
      return TRUE;
    case WM_ACTIVATE:
      OnActivate(LOWORD(wParam) != WA_INACTIVE);
      return 0;
    case WM_SETFOCUS:
      FocusFirst();
      return 0;
    case WM_CLOSE:
      RequestClose();
      return 0;
    case WM_DESTROY:
      OnDestroy();
      return 0;
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      OnSystemChange(message, wParam, lParam);
      return 0;
    case kDpiChanged:
      OnDpiChanged(*reinterpret_cast<const RECT*>(lParam));
      return 0;
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace pricedown::windows
