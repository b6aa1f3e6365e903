// The one item class form of a process together with its window, as the browser's commands use it.
// Who makes it, and what the window looks like, is the Windows layer's.
#pragma once

#include "editor/item_class_form.h"

namespace pricedown {

class ItemClassEditor {
 public:
  virtual ~ItemClassEditor() = default;
  // The form, made on first use and unloaded now. Throws AutomationError when its window cannot be
  // made and when the form is being shown already.
  virtual ItemClassForm& Form() = 0;
  // Loads the form as it was prepared, shows it modally and returns once it is unloaded. Throws
  // AutomationError when it could not be loaded; it is unloaded then as well.
  virtual void ShowModal() = 0;
};

}  // namespace pricedown
