// Binds one C++ object to one window, of a class of ours or a control of the system.
#pragma once

#include <windows.h>

#include <string>

#include "platform/lifetime.h"

namespace pricedown::windows {

// Exceptions of OnMessage stop here. The handle is null once the window is destroyed; destroying
// the object destroys its window.
class BoundWindow {
 public:
  BoundWindow(const BoundWindow&) = delete;
  BoundWindow& operator=(const BoundWindow&) = delete;

  // Null before creation and after WM_NCDESTROY.
  HWND Handle() const { return handle_; }

 protected:
  struct Creation {
    const wchar_t* className = nullptr;
    const wchar_t* text = L"";
    DWORD style = 0;
    DWORD extendedStyle = 0;
    HWND parent = nullptr;
    int id = 0;  // of a child
    HINSTANCE module = nullptr;
    // For our own classes.
    UINT classStyle = 0;
    const wchar_t* cursor = IDC_ARROW;
  };

  BoundWindow() = default;
  virtual ~BoundWindow();

  // Creates a window of a class of ours; registers the class if necessary. Throws
  // AutomationError.
  void CreateOwn(const Creation& creation);
  // Creates a control of the system and subclasses it. Throws AutomationError.
  void CreateControl(const Creation& creation);
  // Ends when the destruction of the current window begins. Copy it before a call that may destroy
  // this object, and ask the copy afterwards.
  const Lifetime& WindowLifetime() const { return lifetime_; }
  // Destroys the window now; if the system is already destroying it, only detaches this object. A
  // derived class that handles messages of its own destruction calls it in its destructor.
  void Destroy() noexcept;

  // Every message between creation and WM_NCDESTROY. The object may have been destroyed when it
  // returns.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  // The default handling by the class or the system.
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK OwnProcedure(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept;
  static LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam) noexcept;

  HWND handle_ = nullptr;
  Lifetime lifetime_;
  bool own_ = false;
  WNDPROC controlProcedure_ = nullptr;  // that of the subclassed control
  std::wstring className_;
  HINSTANCE module_ = nullptr;
};

}  // namespace pricedown::windows
