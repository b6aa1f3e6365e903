// Preview and print of what the item grid shows, and the choice of the display font.
// Who may run them is decided by the dispatch; what the font is applied to, by display_font.
#pragma once

#include <cstdint>
#include <functional>

#include "browser/browser_state.h"
#include "browser/display_font.h"
#include "browser/grid.h"
#include "browser/print_ledger.h"
#include "env/environment.h"

namespace pricedown {

// Fonts of screen and printer, and a button that applies the choice.
inline constexpr std::uint32_t kFontDialogFlags = 515;
// The number of the error that a dialog closed by cancel reports.
inline constexpr std::int32_t kDialogCancelled = static_cast<std::int32_t>(0x800A7FF3);

// The standard font dialog of the view's common dialog control `comDialog`.
class FontDialog {
 public:
  virtual ~FontDialog() = default;
  // Shows the dialog with `font` selected and answers the font chosen. Throws AutomationError,
  // with kDialogCancelled when the user has cancelled it.
  virtual Font Show(const Font& font, std::uint32_t flags) = 0;
};

class PrintCommands {
 public:
  // All must outlive the commands. Requires: `font` works on the ledger's appearance.
  PrintCommands(Environment& environment, const BrowserState& state, const Grid& sheet,
                PrintLedger& ledger, DisplayFont& font)
      : environment_(environment), state_(state), sheet_(sheet), ledger_(ledger), font_(font) {}

  // Each stops at the step that fails and shows its description in a message; none throws. A call
  // while another one runs, or after the control's end, does nothing.

  // Shows the pages. A font changed meanwhile is applied and kept.
  void Preview();
  void Print();
  // Lets the user choose the display font, then applies and keeps it. Cancel changes nothing and
  // tells nothing. No command calls it.
  void ChooseDisplayFont(FontDialog& dialog);

 private:
  void Run(const std::function<void()>& steps);
  void FillLedger();
  // Applies and keeps the ledger's font.
  void TakeFont();

  Environment& environment_;
  const BrowserState& state_;
  const Grid& sheet_;
  PrintLedger& ledger_;
  DisplayFont& font_;
  bool running_ = false;
};

}  // namespace pricedown
