// The first host: the system's container in a window, `Show`, and keys. Link ole32, oleaut32, uuid
// and user32. What a real host adds, toolbar and messages, is in host.cpp.
#ifndef UNICODE
#define UNICODE
#endif
#include <windows.h>

#include <ole2.h>

#include "late_binding.h"

template <typename Function>
Function AtlFunction(const char* name) {
  return reinterpret_cast<Function>(
      reinterpret_cast<void*>(GetProcAddress(LoadLibraryW(L"atl.dll"), name)));
}

LRESULT CALLBACK FrameProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DESTROY) PostQuitMessage(0);
  return DefWindowProcW(window, message, wParam, lParam);
}

int main() {
  OleInitialize(nullptr);
  AtlFunction<BOOL(WINAPI*)()>("AtlAxWinInit")();
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
  AtlFunction<HRESULT(WINAPI*)(HWND, IUnknown**)>("AtlAxGetControl")(container, &object);
  IDispatch* dispatch = nullptr;
  IOleInPlaceActiveObject* keys = nullptr;
  if (object == nullptr) return 1;
  object->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&dispatch));
  object->QueryInterface(IID_IOleInPlaceActiveObject, reinterpret_cast<void**>(&keys));
  object->Release();
  sample::Read(sample::Variant::Object(dispatch), L"Show", {sample::Variant::Object(nullptr)});
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
  return 0;
}
