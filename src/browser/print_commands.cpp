// The steps of preview, print and font choice, and the one place where their errors are trapped.
// Previewing and printing run messages: the control may have ended when they return.
#include "browser/print_commands.h"

#include "browser/print_list.h"
#include "env/language.h"
#include "platform/failure.h"
#include "platform/scope_exit.h"
#include "platform/skip.h"

namespace pricedown {
void PrintCommands::Preview() {
  Run([&] {
    if (!FillDocument()) return;
    const Font before = document_.font;
    output_.Preview(document_);
    if (!environment_.lifetime.HasEnded() && document_.font != before) ApplyAndSaveFont();
  });
}

void PrintCommands::Print() {
  Run([&] {
    if (FillDocument()) output_.Print(document_);
  });
}

void PrintCommands::ChooseDisplayFont(FontDialog& dialog) {
  Run([&] {
    const Font chosen = dialog.Show(document_.font, kFontDialogFlags);
    if (environment_.lifetime.HasEnded() || chosen.name.empty()) return;
    document_.font = chosen;
    ApplyAndSaveFont();
  });
}

bool PrintCommands::FillDocument() {
  grid_.AcceptTyping();
  if (environment_.lifetime.HasEnded()) return false;
  Font titleFont;
  ReadFontProperties(environment_.factory, titleFont);
  if (environment_.lifetime.HasEnded()) return false;
  SetPageLines(titleFont, document_);
  FillPrintTable(grid_, document_.table);
  return true;
}

void PrintCommands::ApplyAndSaveFont() {
  font_.Apply();
  font_.Save();
}

void PrintCommands::Run(const std::function<void()>& steps) {
  if (running_ || environment_.lifetime.HasEnded()) return;
  Failure failure;
  try {
    running_ = true;
    const ScopeExit ended([this] { running_ = false; });
    steps();
    return;
  } catch (...) {
    failure = CurrentFailure();
  }
  if (failure.code == kDialogCancelled || environment_.lifetime.HasEnded()) return;
  environment_.NotifyFailed(failure);
  if (environment_.lifetime.HasEnded()) return;
  SkipFailing([&] { environment_.messages.Inform(FailureText(failure)); });
}

}  // namespace pricedown
