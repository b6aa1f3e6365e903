// The steps of preview, print and font choice, and the one place where their errors are trapped.
// The ledger's window runs messages: the control may have ended when it returns.
#include "browser/print_commands.h"

#include "browser/print_table.h"
#include "env/language.h"
#include "platform/failure.h"
#include "platform/skip.h"

namespace pricedown {
namespace {

// A command that is under way, for a scope.
struct Running {
  bool& flag;
  ~Running() { flag = false; }
};

}  // namespace

void PrintCommands::Preview() {
  Run([&] {
    FillLedger();
    const Font before = ledger_.Appearance().font;
    ledger_.Preview();
    if (!environment_.lifetime.HasEnded() && ledger_.Appearance().font != before) TakeFont();
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
    if (environment_.lifetime.HasEnded() || chosen.name.empty()) return;
    font = chosen;
    TakeFont();
  });
}

void PrintCommands::FillLedger() {
  SetPageTypeface(ledger_, ReadFontProperties(environment_.factory));
  SetPageHeader(ledger_, {});
  FillPrintTable(sheet_, ledger_.Table());
  SetPageFooter(ledger_);
}

void PrintCommands::TakeFont() {
  font_.Apply();
  font_.Save();
}

void PrintCommands::Run(const std::function<void()>& steps) {
  if (running_ || environment_.lifetime.HasEnded()) return;
  Failure failure;
  try {
    running_ = true;
    const Running running{running_};
    steps();
    return;
  } catch (...) {
    failure = CurrentFailure();
  }
  if (failure.code == kDialogCancelled || environment_.lifetime.HasEnded()) return;
  SkipFailing([&] { environment_.messages.Inform(FailureText(failure)); });
}

}  // namespace pricedown
