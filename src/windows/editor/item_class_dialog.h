// The item class form with its window, and its modal showing.
#pragma once

#include <windows.h>

#include <string>

#include "editor/item_class_form.h"
#include "env/environment.h"
#include "windows/base/message_box_questions.h"
#include "windows/base/windows_screen.h"
#include "windows/editor/item_class_window.h"

namespace pricedown::windows {

class ItemClassDialog {
 public:
  // `application` is the host program's name. Both references must outlive the dialog.
  ItemClassDialog(HINSTANCE module, ObjectFactory& factory, ThreadState& state,
                  std::u16string application);
  ~ItemClassDialog();
  ItemClassDialog(const ItemClassDialog&) = delete;
  ItemClassDialog& operator=(const ItemClassDialog&) = delete;

  ItemClassForm& Form() { return form_; }
  bool IsShown() const { return shown_; }
  // Loads the form, shows it over `owner` (may be null) and returns once it is unloaded. Throws
  // AutomationError when it could not be loaded. Requires: not shown; the dialog outlives the call.
  void ShowModal(HWND owner);

 private:
  ItemClassWindow window_;
  MessageBoxQuestions questions_;
  WindowsScreen screen_;
  Environment environment_;
  ItemClassForm form_;
  bool shown_ = false;
};

}  // namespace pricedown::windows
