// A hook that sees each dialog being activated.
#include "tests/windows/dialog_closer.h"

namespace pricedown::testing {
namespace {

int& Count() {
  static int count = 0;
  return count;
}

LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam) {
  wchar_t name[16] = {};
  const HWND window = reinterpret_cast<HWND>(wParam);
  if (code == HCBT_ACTIVATE && GetClassNameW(window, name, 16) > 0 &&
      lstrcmpW(name, L"#32770") == 0 && GetPropW(window, L"answered") == nullptr) {
    SetPropW(window, L"answered", window);
    ++Count();
    PostMessageW(window, WM_COMMAND, IDOK, 0);
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

DialogCloser::DialogCloser()
    : hook_(SetWindowsHookExW(WH_CBT, Hook, nullptr, GetCurrentThreadId())) {
  Count() = 0;
}

DialogCloser::~DialogCloser() { UnhookWindowsHookEx(hook_); }

int DialogCloser::Closed() const { return Count(); }

}  // namespace pricedown::testing
