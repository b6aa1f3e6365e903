// Answers message boxes while a test waits in them, and records how they look. Only boxes of this
// thread are answered; a box without an answer gets its default button.
#pragma once

#include <windows.h>

#include <deque>
#include <string>
#include <vector>

namespace pricedown::testing {

class MessageBoxes {
 public:
  MessageBoxes();
  ~MessageBoxes();
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;

  // The buttons to press in the next boxes: IDYES, IDNO, IDOK; 0 leaves a box open.
  void WillPress(std::deque<int> buttons) { buttons_ = std::move(buttons); }

  struct Shown {
    std::string title;
    std::string text;
    HWND owner;
    // Null without an icon; the system's icons are shared.
    HICON icon;
    // Those of IDOK, IDCANCEL, IDYES and IDNO that can be pressed.
    std::vector<int> buttons;
  };
  const std::vector<Shown>& All() const { return shown_; }

 private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
  static BOOL CALLBACK OnWindow(HWND window, LPARAM self);
  void Answer(HWND box);

  UINT_PTR timer_;
  std::deque<int> buttons_;
  std::vector<Shown> shown_;
  std::vector<HWND> answered_;
};

}  // namespace pricedown::testing
