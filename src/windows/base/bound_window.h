// Binds one C++ object to one window: our own classes, and controls of the system.
// It unpacks nothing; what a message means is the derived class's.
#pragma once

#include <windows.h>

#include <string>

namespace pricedown::windows {

// A window procedure's outer wrapper is here: no exception leaves OnMessage's caller. After the
// window is gone the handle is null; when the object dies first, so does its window.
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

  // A window of a class of ours; the class is registered when it is not yet. Throws
  // AutomationError.
  void CreateOwn(const Creation& creation);
  // A control of the system, whose messages come here first. Throws AutomationError.
  void CreateControl(const Creation& creation);
  // Destroys the window now; derived classes whose messages need them call it in their
  // destructor.
  void Destroy() noexcept;

  // Every message between creation and WM_NCDESTROY. The object may be gone when it returns.
  virtual LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  // What the class or the system does with a message.
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK OwnProcedure(HWND window, UINT message, WPARAM wParam,
                                       LPARAM lParam) noexcept;
  static LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam,
                                           LPARAM lParam) noexcept;

  HWND handle_ = nullptr;
  bool own_ = false;
  WNDPROC controlProcedure_ = nullptr;  // a control's own one
  std::wstring className_;
  HINSTANCE module_ = nullptr;
};

}  // namespace pricedown::windows
