// A text field of the item class form: characters go through the form before the system has them.
// What a key does, and which characters a field refuses, is the core's.
#pragma once

#include <windows.h>

#include "editor/form_view.h"
#include "windows/base/bound_window.h"

namespace pricedown::windows {

class FieldEvents {
 public:
  // Whether the character may be typed.
  virtual bool FieldKeyPressed(FormField field, char16_t character) = 0;
  // The last step of the message; it may end with the field's window gone.
  virtual void FieldKeyDown(FormField field, std::int32_t keyCode) = 0;

 protected:
  ~FieldEvents() = default;
};

class FormFieldWindow final : public BoundWindow {
 public:
  FormFieldWindow(FieldEvents& events, FormField field) : events_(events), field_(field) {}
  // Throws AutomationError.
  void Create(HWND parent, HINSTANCE module, int id);
  // Takes the focus with the whole text selected.
  void Focus();

 private:
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  FieldEvents& events_;
  FormField field_;
};

}  // namespace pricedown::windows
