// The window of the find bar. The count goes on while it is painted: the system paints once there
// is no input left.
#include "windows/control/find_bar_window.h"

#include "env/translation.h"
#include "windows/base/control_ids.h"
#include "windows/base/dpi.h"
#include "windows/base/fonts.h"
#include "windows/base/gdi.h"
#include "windows/base/keyboard.h"
#include "windows/base/painting.h"
#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {
namespace {

constexpr std::u16string_view kBarName = u"查找";
constexpr const wchar_t* kWidestCount = L"9999999 / 9999999";
constexpr int kMargin = 5;     // pixels at 96 dpi
constexpr int kFieldRoom = 4;  // above and below the field's text together, with its border

// Ctrl+F, which opened the bar, and Ctrl+A, which fields of older systems ignore.
bool SelectsAll(const KeyPress& press) {
  return press == KeyPress{.key = Key::F, .control = true} ||
         press == KeyPress{.key = Key::A, .control = true};
}

// The characters that follow those keys.
constexpr WPARAM kControlA = 'A' - '@';
constexpr WPARAM kControlF = 'F' - '@';

}  // namespace

void FindField::Create(HWND parent, HINSTANCE module) {
  Creation creation;
  creation.className = L"EDIT";
  // No stop of the dialog manager: Tab in the field returns to its pane, and Shift+Tab would
  // alternate between the two.
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_BORDER | ES_AUTOHSCROLL;
  creation.parent = parent;
  creation.id = control_ids::kFindField;
  creation.module = module;
  CreateControl(creation);
}

void FindField::Fill(std::u16string_view text) {
  // The bar may have closed over a composition, whose end then never came.
  composing_ = false;
  SetTextOf(Handle(), text);
}

void FindField::ReportChange() { events_.FindTextChanged(TextOf(Handle()), composing_); }

// Returns whether the key was handled.
bool FindField::OnKeyDown(WPARAM key) {
  const KeyPress press = PressOf(key);
  if (press.key == Key::Tab) {
    events_.FindTabPressed();
    return true;
  }
  if (SelectsAll(press)) {
    SendMessageW(Handle(), EM_SETSEL, 0, -1);
    return true;
  }
  const FindKey meaning = FindKeyOf(press);
  if (meaning != FindKey::None) events_.FindKeyPressed(meaning);
  return meaning != FindKey::None;
}

LRESULT FindField::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      if (OnKeyDown(wParam)) return 0;
      break;
    case WM_CHAR:
      // They were used as keys.
      if (wParam == VK_RETURN || wParam == VK_ESCAPE || wParam == VK_TAB || wParam == kControlA ||
          wParam == kControlF) {
        return 0;
      }
      break;
    case WM_IME_STARTCOMPOSITION:
      composing_ = true;
      break;
    case WM_IME_ENDCOMPOSITION: {
      const LRESULT result = Default(message, wParam, lParam);
      composing_ = false;
      ReportChange();
      return result;
    }
    case WM_LBUTTONDOWN:
    case WM_CONTEXTMENU: {
      // The default handling sets the focus, too, and is not prepared for a host that then ends
      // the control.
      const Lifetime window = WindowLifetime();
      SetFocus(Handle());
      if (window.HasEnded()) return 0;
      break;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
      const LRESULT result = Default(message, wParam, lParam);
      const HWND other = reinterpret_cast<HWND>(wParam);
      if (message == WM_SETFOCUS) {
        events_.FocusEntered();
      } else {
        events_.FocusLeft(other);
      }
      return result;
    }
    case WM_GETDLGCODE:
      return DLGC_WANTALLKEYS | DLGC_HASSETSEL;
    default:
      break;
  }
  return Default(message, wParam, lParam);
}

void FindBarWindow::Create(HWND parent, HINSTANCE module) {
  const std::wstring name = ToWide(Translate(kBarName));
  Creation creation;
  creation.className = L"PriceDown.FindBar";
  creation.text = name.c_str();
  creation.style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
  creation.extendedStyle = WS_EX_CONTROLPARENT;
  creation.parent = parent;
  creation.id = control_ids::kFindBar;
  creation.module = module;
  creation.classStyle = CS_HREDRAW | CS_VREDRAW;
  CreateOwn(creation);
  constexpr DWORD label = WS_VISIBLE | SS_NOPREFIX | SS_CENTERIMAGE;
  label_.Create(Handle(), module, L"STATIC", control_ids::kFindLabel, label | SS_LEFT,
                Translate(kBarName));
  field_.Create(Handle(), module);
  count_.Create(Handle(), module, L"STATIC", control_ids::kFindCount, label | SS_RIGHT);
}

void FindBarWindow::SetFont(HFONT font) {
  font_ = font;
  for (const BoundWindow* child :
       std::initializer_list<const BoundWindow*>{&label_, &field_, &count_}) {
    SetFontOf(child->Handle(), font);
  }
  LayOut();
}

void FindBarWindow::Open(FindPane pane, std::u16string_view text) {
  if (Handle() == nullptr) return;
  pane_ = pane;
  open_ = true;
  // The core has this text already.
  opening_ = true;
  field_.Fill(text);
  opening_ = false;
  SetWindowPos(Handle(), HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void FindBarWindow::Close() {
  open_ = counting_ = false;
  if (Handle() != nullptr) ShowWindow(Handle(), SW_HIDE);
}

void FindBarWindow::MoveTo(const RECT& area) {
  SetPlaceOf(Handle(), area);
  LayOut();
}

void FindBarWindow::LayOut() {
  if (Handle() == nullptr || font_ == nullptr) return;
  RECT client{};
  GetClientRect(Handle(), &client);
  const Dpi dpi = Dpi::Of(Handle());
  const WindowContext context(Handle());
  const FindMeasures measures{TextWidth(context.Get(), font_, ToWide(TextOf(label_.Handle()))),
                              TextWidth(context.Get(), font_, kWidestCount),
                              LineHeight(context.Get(), font_) + dpi.Scale(kFieldRoom),
                              dpi.Scale(kMargin)};
  const FindPlaces places = PlaceFindBar({client.right, client.bottom}, measures);
  SetPlaceOf(label_.Handle(), ToRect(places.label));
  SetPlaceOf(field_.Handle(), ToRect(places.field));
  SetPlaceOf(count_.Handle(), ToRect(places.count));
}

void FindBarWindow::Focus() {
  if (Handle() == nullptr) return;
  SetFocus(field_.Handle());
  SendMessageW(field_.Handle(), EM_SETSEL, 0, -1);
}

bool FindBarWindow::HasFocus() const {
  return Handle() != nullptr && GetFocus() == field_.Handle();
}

void FindBarWindow::SetCount(std::u16string_view text, bool counting) {
  counting_ = counting;
  if (Handle() == nullptr) return;
  SetTextOf(count_.Handle(), text);
  if (counting) InvalidateRect(Handle(), nullptr, FALSE);
}

void FindBarWindow::Paint(HDC context) const {
  RECT area{};
  GetClientRect(Handle(), &area);
  FillButtonFace(context, area);
  DrawEdge(context, &area, BDR_RAISEDINNER, BF_RECT);
}

LRESULT FindBarWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      Paint(PaintDc(Handle()).Get());
      if (counting_) events_.FindIdle();
      return 0;
    case WM_PRINTCLIENT:
      Paint(reinterpret_cast<HDC>(wParam));
      return 0;
    case WM_COMMAND:
      if (HIWORD(wParam) == EN_CHANGE && !opening_) field_.ReportChange();
      return 0;
    case WM_CTLCOLORSTATIC:
      return OnButtonFace(wParam);
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace pricedown::windows
