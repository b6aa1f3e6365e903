// The thread's one item class form, as one control uses it. The form lives as long as any control
// that has used it.
#pragma once

#include <memory>

#include "editor/class_editor.h"
#include "windows/control/control_window.h"
#include "windows/server/module.h"

namespace pricedown::windows {

class SharedEditor final : public ItemClassEditor {
 public:
  // The form is shown over the top-level window around `window`. Both must outlive the object.
  SharedEditor(Module& module, const ControlWindow& window)
      : module_(module), thread_(module.ThisThread()), window_(window) {}

  // ItemClassEditor
  ItemClassForm& Form() override;
  void ShowModal() override;

 private:
  Module& module_;
  ThreadEntry& thread_;
  const ControlWindow& window_;
  std::shared_ptr<ItemClassDialog> dialog_;
};

}  // namespace pricedown::windows
