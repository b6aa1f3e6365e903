// The window of a long print. It may be destroyed with its owner at any message, which cancels the
// job.
#include "windows/print/print_progress.h"

#include <commctrl.h>

#include <string>

#include "env/translation.h"
#include "platform/icon_ids.h"
#include "print/preview_fields.h"
#include "print/preview_layout.h"
#include "windows/base/centring.h"
#include "windows/base/dpi.h"
#include "windows/base/painting.h"
#include "windows/base/rectangles.h"
#include "windows/com/system_error.h"
#include "windows/com/wide_text.h"
#include "windows/print/preview_ids.h"

namespace pricedown::windows {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr int kBarUnits = 1000;

}  // namespace

PrintProgress::PrintProgress(HINSTANCE module, HWND owner, DWORD patience)
    : module_(module), owner_(owner), showAt_(GetTickCount64() + patience), styles_(module) {}

PrintProgress::~PrintProgress() {
  // Enables the others before this window is destroyed, or another program would be activated.
  modal_.reset();
  Destroy();
}

bool PrintProgress::Continue(std::int64_t sheet, std::int64_t count) {
  if (!shown_) {
    if (GetTickCount64() < showAt_) return true;
    Show();
  }
  if (Handle() != nullptr) {
    SetTextOf(text_.Handle(), PrintProgressText(sheet, count));
    SendMessageW(bar_.Handle(), PBM_SETPOS, static_cast<WPARAM>((sheet - 1) * kBarUnits / count),
                 0);
    UpdateWindow(Handle());
  }
  HandleMessages();
  return !cancelled_ && Handle() != nullptr;
}

void PrintProgress::Show() {
  shown_ = true;
  const VisualStyles::Scope styles(styles_);
  Creation creation;
  creation.className = L"PriceDown.PrintProgress";
  const std::wstring title = ToWide(Translate(u"打印"));
  creation.text = title.c_str();
  creation.style = kStyle;
  creation.extendedStyle = kExtendedStyle;
  creation.parent = owner_;
  creation.module = module_;
  CreateOwn(creation);
  icon_ = LoadIconResource(PRICEDOWN_ICON_PRINT, IconSize(Dpi::Of(owner_)));
  SendMessageW(Handle(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon_.get()));
  text_.Create(Handle(), module_, L"STATIC", preview_ids::kProgressText, WS_VISIBLE | SS_NOPREFIX);
  bar_.Create(Handle(), module_, PROGRESS_CLASSW, preview_ids::kProgressBar, WS_VISIBLE);
  button_.Create(Handle(), module_, L"BUTTON", IDCANCEL, WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON,
                 Translate(u"取消"));
  SendMessageW(bar_.Handle(), PBM_SETRANGE32, 0, kBarUnits);
  LayOut();
  modal_.emplace(Handle());
  ShowWindow(Handle(), SW_SHOW);
  SetFocus(button_.Handle());
  // Keys that were meant for the dialog before it press no button of this window.
  MSG key{};
  while (PeekMessageW(&key, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE) != FALSE) {
    // Comes whatever is asked for; the messages are handled next.
    if (key.message == WM_QUIT) return PostQuitMessage(static_cast<int>(key.wParam));
  }
}

void PrintProgress::LayOut() {
  const Dpi dpi = Dpi::Of(owner_);
  const ProgressPlaces places = PlaceProgress(dpi.Value());
  font_ = MakeMessageFont(dpi);
  for (const HWND child : {text_.Handle(), button_.Handle()}) SetFontOf(child, font_.Get());
  RECT frame{0, 0, places.client.width, places.client.height};
  AdjustFrame(frame, kStyle, kExtendedStyle, dpi);
  CentreOver(Handle(), owner_, {WidthOf(frame), HeightOf(frame)});
  SetPlaceOf(text_.Handle(), ToRect(places.text));
  SetPlaceOf(bar_.Handle(), ToRect(places.bar));
  SetPlaceOf(button_.Handle(), ToRect(places.button));
}

void PrintProgress::HandleMessages() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      cancelled_ = true;
      return;
    }
    if (Handle() != nullptr && IsDialogMessageW(Handle(), &message) != FALSE) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

LRESULT PrintProgress::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wParam) == IDCANCEL && HIWORD(wParam) == BN_CLICKED) cancelled_ = true;
      return 0;
    case WM_CLOSE:
      cancelled_ = true;
      return 0;
    case WM_SETFOCUS:
      // As when the user returns from another program.
      SetFocus(button_.Handle());
      return 0;
    case WM_ERASEBKGND:
      return OnEraseButtonFace(Handle(), wParam);
    case WM_CTLCOLORSTATIC:
      return OnButtonFace(wParam);
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace pricedown::windows
