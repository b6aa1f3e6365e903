// A text field of the item class form: the system's, with the form's characters and keys.
#pragma once

#include <windows.h>

#include "editor/form_view.h"
#include "windows/base/bound_window.h"

namespace pricedown::windows {

class FieldEvents {
 public:
  // A key that opens the field's lookup. The last step of the message; the field's window may be
  // destroyed when it returns.
  virtual void LookupPressed(FormField field) = 0;

 protected:
  ~FieldEvents() = default;
};

class FormFieldWindow final : public BoundWindow {
 public:
  FormFieldWindow(FieldEvents& events, FormField field) : events_(events), field_(field) {}
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, int id);
  // Sets the focus here and selects the whole text.
  void Focus();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  FieldEvents& events_;
  FormField field_;
};

}  // namespace pricedown::windows
