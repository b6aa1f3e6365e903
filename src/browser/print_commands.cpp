// The steps of preview, print and font choice, and the one place where their errors are trapped.
// The ledger's window runs messages: the control may have ended when it returns.
#include "browser/print_commands.h"

#include <new>
#include <string>

#include "browser/print_table.h"
#include "env/language.h"
#include "env/translation.h"
#include "platform/error.h"
#include "platform/skip.h"
#include "platform/text.h"

namespace pricedown {
namespace {

// Both are short enough to need no memory of their own.
constexpr std::u16string_view kNoMemory = u"内存不足";
constexpr std::u16string_view kUnexpected = u"意外错误";

// A command that is under way, for a scope.
struct Running {
  bool& flag;
  ~Running() { flag = false; }
};

// What the user is told of the exception being handled; nothing of a dialog that was cancelled.
std::u16string Telling() {
  try {
    throw;
  } catch (const AutomationError& error) {
    if (error.Number() == kDialogCancelled) return {};
    return error.Description().empty() ? Translate(kUnexpected) : Translate(error.Description());
  } catch (const std::bad_alloc&) {
    return Translate(kNoMemory);
  } catch (const std::exception& error) {
    return FromUtf8(error.what());
  } catch (...) {
    return Translate(kUnexpected);
  }
}

}  // namespace

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
  SetPageHeader(ledger_, {});
  FillPrintTable(sheet_, ledger_.Table());
  SetPageFooter(ledger_);
}

void PrintCommands::TakeFont() {
  font_.Apply();
  font_.Save();
}

void PrintCommands::Run(const std::function<void()>& steps) {
  if (running_ || released_) return;
  std::u16string description;
  try {
    running_ = true;
    const Running running{running_};
    steps();
  } catch (...) {
    // Copying a long text may lack memory too.
    if (!SkipFailing([&] { description = Telling(); })) description = kNoMemory;
  }
  if (description.empty() || released_) return;
  SkipFailing([&] { environment_.messages.Inform(description); });
}

}  // namespace pricedown
