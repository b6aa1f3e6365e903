// The two window procedures of the library: one for its own classes, one that subclasses the
// system's controls.
#include "windows/base/bound_window.h"

#include <utility>

#include "windows/com/system_error.h"

namespace pricedown::windows {
namespace {

HMENU MenuOfId(int id) { return reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)); }

// The procedure of the window's class.
WNDPROC ClassProcedure(HWND window) {
  return reinterpret_cast<WNDPROC>(GetClassLongPtrW(window, GCLP_WNDPROC));
}

}  // namespace

BoundWindow::~BoundWindow() {
  Destroy();
  // Fails while other windows of the class exist; the last one unregisters it, so that no class
  // outlives the module.
  if (own_) UnregisterClassW(className_.c_str(), module_);
}

void BoundWindow::Destroy() noexcept {
  if (handle_ == nullptr) return;
  const HWND window = std::exchange(handle_, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  if (lifetime_.End()) DestroyWindow(window);
}

void BoundWindow::CreateOwn(const Creation& creation) {
  own_ = true;
  className_ = creation.className;
  module_ = creation.module;
  WNDCLASSEXW description{};
  description.cbSize = sizeof description;
  description.style = creation.classStyle;
  description.lpfnWndProc = &OwnProcedure;
  description.hInstance = creation.module;
  description.hCursor = LoadCursorW(nullptr, creation.cursor);
  description.lpszClassName = creation.className;
  // A second try, because a control that ends on another thread may unregister the class between
  // the two calls.
  for (int attempt = 0; attempt < 2; ++attempt) {
    if (RegisterClassExW(&description) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) break;
    lifetime_ = Lifetime();
    if (CreateWindowExW(creation.extendedStyle, creation.className, creation.text, creation.style,
                        0, 0, 0, 0, creation.parent, MenuOfId(creation.id), creation.module,
                        this) != nullptr) {
      return;
    }
    if (GetLastError() != ERROR_CANNOT_FIND_WND_CLASS) break;
  }
  ThrowLastError();
}

void BoundWindow::CreateControl(const Creation& creation) {
  lifetime_ = Lifetime();
  const HWND window =
      CreateWindowExW(creation.extendedStyle, creation.className, creation.text, creation.style, 0,
                      0, 0, 0, creation.parent, MenuOfId(creation.id), creation.module, nullptr);
  if (window == nullptr) ThrowLastError();
  // SetWindowSubclass looks its list up by name at each message, which costs more than most
  // messages. Controls leave GWLP_USERDATA to their creator.
  SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  controlProcedure_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&ControlProcedure)));
  handle_ = window;
}

LRESULT BoundWindow::Default(UINT message, WPARAM wParam, LPARAM lParam) {
  if (handle_ == nullptr) return 0;
  return own_ ? DefWindowProcW(handle_, message, wParam, lParam)
              : CallWindowProcW(controlProcedure_, handle_, message, wParam, lParam);
}

LRESULT CALLBACK BoundWindow::OwnProcedure(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam) noexcept {
  auto* object = reinterpret_cast<BoundWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_NCCREATE && object == nullptr) {
    object =
        static_cast<BoundWindow*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
    object->handle_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(object));
  }
  if (object == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_DESTROY) object->lifetime_.End();
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    object->handle_ = nullptr;
    return DefWindowProcW(window, message, wParam, lParam);
  }
  try {
    return object->OnMessage(message, wParam, lParam);
  } catch (...) {
    // The object may have been destroyed. The default handling validates a window that could not be
    // painted.
    return DefWindowProcW(window, message, wParam, lParam);
  }
}

// Stays until the control is destroyed: others may have subclassed it since.
LRESULT CALLBACK BoundWindow::ControlProcedure(HWND window, UINT message, WPARAM wParam,
                                               LPARAM lParam) noexcept {
  auto* object = reinterpret_cast<BoundWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (object == nullptr) {
    return CallWindowProcW(ClassProcedure(window), window, message, wParam, lParam);
  }
  if (message == WM_DESTROY) object->lifetime_.End();
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    object->handle_ = nullptr;
    return CallWindowProcW(object->controlProcedure_, window, message, wParam, lParam);
  }
  try {
    return object->OnMessage(message, wParam, lParam);
  } catch (...) {
    return 0;
  }
}

}  // namespace pricedown::windows
