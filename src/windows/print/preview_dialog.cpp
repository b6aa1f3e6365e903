// The life of one showing: pages, window, messages until the window is destroyed. However it ends,
// the other windows are enabled again.
#include "windows/print/preview_dialog.h"

#include <optional>

#include "windows/base/modal_showing.h"
#include "windows/print/common_font_dialog.h"

namespace pricedown::windows {

PreviewDialog::PreviewDialog(HINSTANCE module, PrintDocument& document, PreviewPrinting& printing)
    : pages_(document, printing), window_(module, pages_) {}

PreviewDialog::~PreviewDialog() { window_.RequestClose(); }

void PreviewDialog::ShowModal(HWND owner) {
  CommonFontDialog fonts(window_, [this](const Font& font) { window_.ApplyFont(font); });
  ShowModal(owner, fonts);
}

void PreviewDialog::ShowModal(HWND owner, FontDialog& fonts) {
  // Outlives the window's closing, which ends it.
  std::optional<ModalShowing> modal;
  struct Shown {
    PreviewWindow& window;
    ~Shown() { window.RequestClose(); }
  };
  const Shown shown{window_};
  pages_.Remake();
  window_.Create(owner, fonts);
  modal.emplace(window_.Window());
  window_.Show([&modal] { modal->End(); });
  modal->Run([this](MSG& message) { return window_.TranslateKey(message); });
}

}  // namespace pricedown::windows
