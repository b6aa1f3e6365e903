// Creation, and the messages of keyboard and focus.
#include "windows/editor/form_field.h"

#include "editor/form_keys.h"
#include "windows/base/keyboard.h"

namespace pricedown::windows {

void FormFieldWindow::Create(HWND parent, HINSTANCE module, int id) {
  Creation creation;
  creation.className = L"EDIT";
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | WS_TABSTOP | ES_AUTOHSCROLL;
  creation.extendedStyle = WS_EX_CLIENTEDGE;
  creation.parent = parent;
  creation.id = id;
  creation.module = module;
  CreateControl(creation);
  // 0 is the most that the system allows; without the message the limit is 32,767 characters.
  SendMessageW(Handle(), EM_SETLIMITTEXT, MaximumLength(field_), 0);
}

void FormFieldWindow::Focus() {
  if (Handle() == nullptr) return;
  SetFocus(Handle());
  SendMessageW(Handle(), EM_SETSEL, 0, -1);
}

LRESULT FormFieldWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_CHAR && !IsTypeable(field_, static_cast<char16_t>(wParam))) return 0;
  const LRESULT result = Default(message, wParam, lParam);
  // With Alt down a key is a system key.
  const bool isKey = message == WM_KEYDOWN || message == WM_SYSKEYDOWN;
  if (isKey && OpensLookup(PressOf(wParam))) events_.LookupPressed(field_);
  return result;
}

}  // namespace pricedown::windows
