// Finds or makes the shared form, and keeps it alive while it is shown.
#include "windows/server/shared_editor.h"

#include "platform/error.h"

namespace pricedown::windows {

ItemClassForm& SharedEditor::Form() {
  if (dialog_ == nullptr) dialog_ = thread_.editor.lock();
  if (dialog_ == nullptr) {
    dialog_ = std::make_shared<ItemClassDialog>(module_.instance, module_.factory, thread_.state,
                                                ProgramName());
    thread_.editor = dialog_;
  }
  if (dialog_->IsShown()) {
    throw AutomationError(ErrorNumber::Unspecified, u"物料类别维护窗口已经打开", u"frmItemClass");
  }
  return dialog_->Form();
}

void SharedEditor::ShowModal() {
  // The control, and this object with it, may end while the form is shown.
  const std::shared_ptr<ItemClassDialog> dialog = dialog_;
  if (dialog != nullptr) dialog->ShowModal(window_.DialogOwner());
}

}  // namespace pricedown::windows
