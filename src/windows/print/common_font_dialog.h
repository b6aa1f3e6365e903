// The system's font dialog.
#pragma once

#include <windows.h>

#include <functional>

#include "print/font_dialog.h"
#include "windows/base/command_window.h"

namespace pricedown::windows {

class CommonFontDialog final : public FontDialog {
 public:
  // The dialog belongs to the top-level window around `window`, which must outlive this object.
  // `apply` is called for the dialog's button 应用 with the selected font, and may throw; without
  // it the button is hidden.
  explicit CommonFontDialog(const CommandWindow& window,
                            std::function<void(const Font&)> apply = nullptr)
      : window_(window), apply_(std::move(apply)) {}

  // FontDialog. What the user does not change stays, the size to the fraction. Printer fonts are
  // offered when there is a default printer.
  Font Show(const Font& font, std::uint32_t flags) override;

 private:
  const CommandWindow& window_;
  std::function<void(const Font&)> apply_;
};

}  // namespace pricedown::windows
