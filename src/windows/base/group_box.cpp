// The system's group box with its inside painted, which the system leaves to the parent.
#include "windows/base/group_box.h"

#include "windows/base/painting.h"

namespace pricedown::windows {

void GroupBox::Create(HWND parent, HINSTANCE module, int id) {
  Creation creation;
  creation.className = L"BUTTON";
  creation.style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | BS_GROUPBOX;
  creation.parent = parent;
  creation.id = id;
  creation.module = module;
  CreateControl(creation);
}

LRESULT GroupBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_ERASEBKGND) return OnEraseButtonFace(Handle(), wParam);
  return Default(message, wParam, lParam);
}

}  // namespace pricedown::windows
