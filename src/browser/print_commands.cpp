// The steps of preview, print and font choice, and the one place where their errors are trapped.
// The ledger's window runs messages: the control may have ended when it returns.
#include "browser/print_commands.h"

#include <string>

#include "browser/print_table.h"
#include "env/language.h"
#include "env/translation.h"
#include "platform/error.h"
#include "platform/text.h"

namespace pricedown {

void PrintCommands::Preview() {
  Run([&] {
    FillLedger();
    const Font before = ledger_.Appearance().font;
    ledger_.Preview();
    if (!released_ && ledger_.Appearance().font != before) TakeFont();
  });
}

void PrintCommands::Print() {
  Run([&] {
    FillLedger();
    ledger_.Print();
  });
}

void PrintCommands::ChooseDisplayFont(FontDialog& dialog) {
  Run([&] {
    Font& font = ledger_.Appearance().font;
    const Font chosen = dialog.Show(font, kFontDialogFlags);
    if (released_ || chosen.name.empty()) return;
    font = chosen;
    TakeFont();
  });
}

void PrintCommands::FillLedger() {
  SetPageTypeface(ledger_, ReadFontProperties(environment_.factory));
  SetPageHeader(ledger_, state_.reportSubTitle);
  FillPrintTable(sheet_, ledger_.Table());
  SetPageFooter(ledger_);
}

void PrintCommands::TakeFont() {
  font_.Apply();
  font_.Save();
}

void PrintCommands::Run(const std::function<void()>& steps) {
  if (running_ || released_) return;
  running_ = true;
  std::u16string description;
  try {
    steps();
  } catch (const AutomationError& error) {
    if (error.Number() != kDialogCancelled) description = error.Description();
  } catch (const std::exception& error) {
    description = FromUtf8(error.what());
  }
  running_ = false;
  if (!description.empty() && !released_) environment_.messages.Inform(Translate(description));
}

}  // namespace pricedown
