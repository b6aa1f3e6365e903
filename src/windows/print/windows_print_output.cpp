// Each command starts with the user's current printer.
#include "windows/print/windows_print_output.h"

#include "platform/scope_exit.h"
#include "windows/print/dialog_printing.h"
#include "windows/print/page_setup_dialog.h"

namespace pricedown::windows {

void WindowsPrintOutput::Preview(PrintDocument& document) {
  printer_.UseDefault();
  PreviewDialog dialog(module_, document, *this);
  const ScopeExit hidden([this] { shown_ = nullptr; });
  // `hidden` resets it first.
  // cppcheck-suppress danglingLifetime
  shown_ = &dialog;
  dialog.ShowModal(window_.DialogOwner());
}

void WindowsPrintOutput::Close() noexcept {
  if (shown_ != nullptr) shown_->Close();
}

std::u16string WindowsPrintOutput::Date() { return TodayText(); }

void WindowsPrintOutput::Print(HWND owner, const PrintDocument& document) {
  PrintWithDialog(module_, owner, document, printer_, lifetime_);
}

void WindowsPrintOutput::SetUpPage(HWND owner) { AskPageSetup(owner, printer_); }

}  // namespace pricedown::windows
