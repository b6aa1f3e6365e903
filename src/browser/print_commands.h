// Preview and print of the item list, and the choice of the display font.
#pragma once

#include <functional>

#include "browser/display_font.h"
#include "browser/grid.h"
#include "env/environment.h"
#include "print/font_dialog.h"
#include "print/print_output.h"

namespace pricedown {

class PrintCommands {
 public:
  // All must outlive the commands. Requires: `font` works on `document`.
  PrintCommands(Environment& environment, Grid& grid, PrintDocument& document, PrintOutput& output,
                DisplayFont& font)
      : environment_(environment), grid_(grid), document_(document), output_(output), font_(font) {}

  // None of them throws: each stops at the first failing step and shows its description to the
  // user. A call while another one runs, or after the control's end, is a no-op.

  // Shows the pages. A font changed meanwhile is applied and saved.
  void Preview();
  void Print();
  // Lets the user choose the display font, applies and saves it; a no-op when the user cancels. No
  // command calls it.
  void ChooseDisplayFont(FontDialog& dialog);

 private:
  void Run(const std::function<void()>& steps);
  // False when the control has ended meanwhile.
  bool FillDocument();
  void ApplyAndSaveFont();

  Environment& environment_;
  Grid& grid_;
  PrintDocument& document_;
  PrintOutput& output_;
  DisplayFont& font_;
  bool running_ = false;
};

}  // namespace pricedown
