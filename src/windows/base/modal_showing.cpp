// Disables and enables windows, and runs the message loop. A window that was disabled before stays
// disabled.
#include "windows/base/modal_showing.h"

namespace pricedown::windows {
namespace {

struct Search {
  HWND except;
  std::vector<HWND>* found;
};

BOOL CALLBACK CollectEnabled(HWND window, LPARAM parameter) noexcept {
  const auto& search = *reinterpret_cast<const Search*>(parameter);
  if (window == search.except || IsWindowVisible(window) == FALSE ||
      IsWindowEnabled(window) == FALSE) {
    return TRUE;
  }
  try {
    search.found->push_back(window);
  } catch (...) {
    // Better one window left enabled than no dialog.
    return FALSE;
  }
  return TRUE;
}

}  // namespace

ModalShowing::ModalShowing(HWND window) : window_(window) {
  const Search search{window, &disabled_};
  EnumThreadWindows(GetCurrentThreadId(), &CollectEnabled, reinterpret_cast<LPARAM>(&search));
  for (const HWND other : disabled_) EnableWindow(other, FALSE);
}

ModalShowing::~ModalShowing() { End(); }

void ModalShowing::End() noexcept {
  // A sent message may destroy the window, and the loop would wait for a posted one.
  PostMessageW(nullptr, WM_NULL, 0, 0);
  if (ended_) return;
  ended_ = true;
  for (const HWND other : disabled_) {
    if (IsWindow(other) != FALSE) EnableWindow(other, TRUE);
  }
  disabled_.clear();
  // The window itself is still the active one, unless the user went on to another.
  const HWND place = focus_.Find();
  if (place != nullptr && GetActiveWindow() == window_) {
    SetFocus(place);
  } else {
    focus_.Restore();
  }
}

void ModalShowing::Run(const std::function<bool(MSG& message)>& translate) {
  MSG message{};
  while (IsWindow(window_) != FALSE) {
    const BOOL answer = GetMessageW(&message, nullptr, 0, 0);
    if (answer <= 0) {
      if (answer == 0) PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    if (translate(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

}  // namespace pricedown::windows
