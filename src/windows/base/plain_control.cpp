// Creates plain controls and sets texts, fonts and places of windows. A text that is already shown
// is not set again, to avoid flicker.
#include "windows/base/plain_control.h"

#include "windows/base/rectangles.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {

void PlainControl::Create(HWND parent, HINSTANCE module, const wchar_t* className, int id,
                          DWORD style, std::u16string_view text) {
  const std::wstring wide = ToWide(text);
  Creation creation;
  creation.className = className;
  creation.text = wide.c_str();
  creation.style = WS_CHILD | WS_CLIPSIBLINGS | style;
  creation.parent = parent;
  creation.id = id;
  creation.module = module;
  CreateControl(creation);
}

LRESULT PlainControl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  // A sized label keeps stale pixels of an ellipsis or of a text that is not at the left.
  if (message == WM_SIZE) InvalidateRect(Handle(), nullptr, TRUE);
  return Default(message, wParam, lParam);
}

void PlainControl::CreatePopup(HWND owner, HINSTANCE module, const wchar_t* className,
                               DWORD style) {
  Creation creation;
  creation.className = className;
  creation.style = WS_POPUP | style;
  creation.parent = owner;
  creation.module = module;
  CreateControl(creation);
}

std::u16string TextOf(HWND window) {
  const int length = window == nullptr ? 0 : GetWindowTextLengthW(window);
  if (length <= 0) return {};
  std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), length + 1)));
  return FromWide(text);
}

void SetTextOf(HWND window, std::u16string_view text) {
  if (window == nullptr || TextOf(window) == text) return;
  SetWindowTextW(window, ToWide(text).c_str());
}

void SetFontOf(HWND window, HFONT font) {
  if (window == nullptr) return;
  SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void SetPlaceOf(HWND window, const RECT& place) {
  if (window == nullptr) return;
  SetWindowPos(window, nullptr, place.left, place.top, WidthOf(place), HeightOf(place),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

RECT AreaInParent(HWND window) {
  RECT area{};
  GetWindowRect(window, &area);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&area), 2);
  return area;
}

bool HasVisibleStyle(HWND window) {
  return (GetWindowLongPtrW(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

}  // namespace pricedown::windows
