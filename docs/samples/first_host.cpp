// The first host: the system's container in a window, `Show`, focus and keys. Link ole32, oleaut32,
// uuid and user32. What a real host adds, toolbar and messages, is in host.cpp. With --once it
// prints where the focus is and closes.
#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>

#include <ole2.h>

#include <cstring>

#include "late_binding.h"

// Null when the library or the function is missing.
template <typename Function>
Function AtlFunction(const char* name) {
  const HMODULE atl = LoadLibraryW(L"atl.dll");
  return atl == nullptr
             ? nullptr
             : reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(atl, name)));
}

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto control = reinterpret_cast<HWND>(GetWindowLongPtrW(window, GWLP_USERDATA));
  // To the control itself: the container may not pass the focus on.
  if (message == WM_SETFOCUS && control != nullptr) SetFocus(control);
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

int Fail(const wchar_t* reason) {
  sample::Print(reason);
  return 1;
}

int main(int count, char** words) {
  OleInitialize(nullptr);
  const auto initialize = AtlFunction<BOOL(WINAPI*)()>("AtlAxWinInit");
  const auto controlIn = AtlFunction<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl");
  if (initialize == nullptr || controlIn == nullptr) return Fail(L"no container: atl.dll");
  initialize();
  WNDCLASSW frameClass{};
  frameClass.lpfnWndProc = FrameProcedure;
  frameClass.lpszClassName = L"FirstHost";
  RegisterClassW(&frameClass);
  const HWND frame = CreateWindowW(L"FirstHost", L"物料类别维护", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                   0, 0, 1000, 650, nullptr, nullptr, nullptr, nullptr);
  const HWND container =
      CreateWindowW(L"AtlAxWin", L"ZEPPriceDownPrepare.PriceDown", WS_CHILD | WS_VISIBLE, 0, 0, 980,
                    600, frame, nullptr, nullptr, nullptr);
  IUnknown* object = nullptr;
  controlIn(container, &object);
  if (object == nullptr)
    return Fail(L"no control: it is not registered, or its manifest is missing");
  IDispatch* dispatch = nullptr;
  IOleInPlaceActiveObject* keys = nullptr;
  object->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch));
  object->QueryInterface(IID_IOleInPlaceActiveObject, reinterpret_cast<void**>(&keys));
  object->Release();
  if (dispatch == nullptr || keys == nullptr) return Fail(L"not a control");
  sample::Read(sample::Variant::Object(dispatch), L"Show", {sample::Variant::Object(nullptr)});
  HWND control = nullptr;
  keys->GetWindow(&control);
  SetWindowLongPtrW(frame, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(control));
  SetFocus(control);
  if (count > 1 && std::strcmp(words[1], "--once") == 0) {
    sample::Print(IsChild(control, GetFocus()) ? L"focus: in the control" : L"focus: elsewhere");
    PostMessageW(frame, WM_CLOSE, 0, 0);
  }
  MSG message{};
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (IsChild(container, message.hwnd) != FALSE && keys->TranslateAccelerator(&message) == S_OK) {
      continue;
    }
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  keys->Release();
  dispatch->Release();
  OleUninitialize();
  return sample::failedCalls == 0 ? 0 : 1;
}
