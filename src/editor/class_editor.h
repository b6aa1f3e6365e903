// Port of the browser's commands to a thread's one item class form and its window.
#pragma once

#include "editor/item_class_form.h"

namespace pricedown {

class ItemClassEditor {
 public:
  virtual ~ItemClassEditor() = default;
  // The form, created on first use and not loaded. Throws AutomationError when it cannot be created
  // and while it is shown.
  virtual ItemClassForm& Form() = 0;
  // Loads the form as prepared, shows it modally and returns once it is unloaded. Throws
  // AutomationError when it cannot be loaded; it is then unloaded, too.
  virtual void ShowModal() = 0;
};

}  // namespace pricedown
