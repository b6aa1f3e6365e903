// What scripts may call without a prefix: Print, Check, CheckEqual, HostControl, Picture,
// CloseWindows, and the user's part of script_user.h: Play, WindowClass, TextIn, TypeInto,
// PressKey, PressTool, PressButton, CloseForm.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/local_object.h"
#include "tests/windows/script_host/script_user.h"

namespace pricedown::testing {

class ScriptServices : public LocalObject<ScriptServices> {
 public:
  ~ScriptServices() override { CloseWindows(); }

  int FailedChecks() const { return failedChecks_; }

  // Prints a line in UTF-8.
  void Print(std::u16string_view text);
  // Prints "ok" or "FAILED" and the name.
  void Check(std::u16string_view name, bool holds);
  // A control in the system's container, in a visible window with that caption.
  Value HostControl(std::u16string_view progId, std::u16string_view caption);
  // PictureOf each of these windows.
  std::u16string Picture() const;
  void CloseWindows();
  ScriptUser& User() { return user_; }

  static std::span<const Member<ScriptServices>> Members();

 private:
  int failedChecks_ = 0;
  std::vector<HWND> windows_;
  ScriptUser user_;
};

}  // namespace pricedown::testing
