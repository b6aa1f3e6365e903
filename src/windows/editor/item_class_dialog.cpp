// One modal showing: create the windows, load the form, run messages until it is unloaded.
#include "windows/editor/item_class_dialog.h"

#include <optional>
#include <utility>

#include "platform/scope_exit.h"
#include "platform/skip.h"
#include "windows/base/modal_showing.h"

namespace pricedown::windows {

ItemClassDialog::ItemClassDialog(HINSTANCE module, ObjectFactory& factory, ThreadState& state,
                                 std::u16string application)
    : window_(module),
      questions_(window_),
      screen_(window_),
      environment_(factory, state, questions_, screen_, std::move(application)),
      form_(environment_, window_, window_.Members()) {
  window_.Attach(&form_);
}

ItemClassDialog::~ItemClassDialog() {
  SkipFailing([this] { form_.Unload(); });
  window_.Attach(nullptr);
}

void ItemClassDialog::ShowModal(HWND owner) {
  // Outlives the form's unloading, which ends it.
  std::optional<ModalShowing> modal;
  shown_ = true;
  const ScopeExit unloaded([this] {
    SkipFailing([this] { form_.Unload(); });
    // A form that could not begin to load does not unload its window.
    SkipFailing([this] { window_.Unload(); });
    shown_ = false;
    // The last control may have ended meanwhile without releasing them.
    environment_.state.ReleaseUnusedLedger();
  });
  window_.Create(owner);
  window_.SetWaiting(true);
  form_.Load();
  window_.SetWaiting(false);
  // Its owner may have been destroyed meanwhile.
  if (!form_.IsLoaded()) return;
  modal.emplace(window_.Window());
  window_.Show([&modal] { modal->End(); });
  modal->Run([this](MSG& message) { return window_.TranslateKey(message); });
}

}  // namespace pricedown::windows
