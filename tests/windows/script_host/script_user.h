// The user of a script: an object of the script whose Step is called repeatedly while a window of
// the control waits for a user, and the input that it may send.
#pragma once

#include <windows.h>

#include <string_view>

#include "platform/automation.h"

namespace pricedown::testing {

class ScriptUser {
 public:
  ScriptUser() = default;
  ~ScriptUser() { Stop(); }
  ScriptUser(const ScriptUser&) = delete;
  ScriptUser& operator=(const ScriptUser&) = delete;

  // From now on the player's Step is called, without arguments, whenever a form, a preview, a
  // print dialog or a message box is active and the previous call has returned. Null ends it.
  // Throws AutomationError.
  void Play(ObjectPtr player);

  // In the active window: its class and title, the text of a control by id (0: the title), typing
  // a text into it, pressing a key in a control, a tool by its position from 1 or a button by
  // id, and closing by the frame. Without such a control texts are empty and input is a
  // no-op.
  std::u16string WindowClass() const;
  std::u16string Text(int id) const;
  void Type(int id, std::u16string_view text);
  void PressKey(int id, int key);
  void PressTool(int toolBar, int position);
  void PressButton(int id);
  void CloseWindow();

 private:
  static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR timer, DWORD time) noexcept;
  void Stop();

  ObjectPtr player_;
  UINT_PTR timer_ = 0;
  bool playing_ = false;
};

}  // namespace pricedown::testing
