// Part of PreviewWindow: its commands, and the messages that ask for them.
#include <windows.h>

#include <commctrl.h>

#include <utility>

#include "platform/error.h"
#include "windows/print/preview_children.h"
#include "windows/print/preview_ids.h"
#include "windows/print/preview_window.h"

namespace pricedown::windows {
namespace {

// Posted to the window itself, to run once the list has written its text into the field.
constexpr UINT kZoomChosen = WM_APP + 1;

}  // namespace

// Sizing and scrolling work while a command runs, as when its dialog is moved over the window.
void PreviewWindow::PaneChanges(const std::function<void()>& change) {
  if (IsBusy() || !complete_) {
    change();
    if (complete_) children_->pane.ShowState();
    return;
  }
  RunCommand(false, [&] {
    change();
    pages_.Turn(state_.Page());
  });
}

void PreviewWindow::Run(PreviewCommand command) {
  if (Scrolls(command)) {
    PaneChanges([&] { state_.Run(command); });
  } else if (command == PreviewCommand::EnterPage) {
    EnterPage();
  } else if (IsBusy() || Handle() == nullptr || !state_.IsEnabled(command)) {
    return;
  } else if (command == PreviewCommand::Close) {
    RequestClose();
  } else {
    RunCommand(true, [&] { Execute(command); });
  }
}

void PreviewWindow::Execute(PreviewCommand command) {
  switch (command) {
    case PreviewCommand::Print:
      pages_.Printing().Print(Handle(), pages_.Document());
      RemakePages();
      break;
    case PreviewCommand::PageSetup:
      pages_.Printing().SetUpPage(Handle());
      RemakePages();
      break;
    case PreviewCommand::Font:
      ChooseFont();
      break;
    default:
      state_.Run(command);
      break;
  }
  pages_.Turn(state_.Page());
}

void PreviewWindow::ChooseFont() {
  try {
    const Font chosen = fonts_->Show(pages_.Document().font, kFontDialogFlags);
    // The host may have closed everything below the dialog.
    if (Handle() != nullptr && !chosen.name.empty()) ApplyFont(chosen);
  } catch (const AutomationError& error) {
    if (error.Number() != kDialogCancelled) throw;
  }
}

void PreviewWindow::ApplyFont(const Font& font) {
  Font& shared = pages_.Document().font;
  if (font == shared) return;
  const Font before = std::exchange(shared, font);
  try {
    RemakePages();
  } catch (...) {
    shared = before;
    throw;
  }
  pages_.Turn(state_.Page());
  ShowState();
}

void PreviewWindow::RemakePages() {
  if (Handle() == nullptr) return;
  pages_.Remake();
  state_.SetPages(pages_.Count(), pages_.PrintedPaper());
}

void PreviewWindow::OnChildCommand(HWND child, int id, int code) {
  PreviewChildren& c = *children_;
  if (child == c.documentBar.toolStrip.Handle()) {
    c.documentBar.toolStrip.OnCommand(id);
  } else if (child == c.viewBar.toolStrip.Handle()) {
    c.viewBar.toolStrip.OnCommand(id);
  } else if (id == preview_ids::kPage && code == EN_KILLFOCUS) {
    // Text that was typed without Enter is discarded.
    ShowPageNumber();
  } else if (id == preview_ids::kZoom && code == CBN_SELENDOK) {
    PostMessageW(Handle(), kZoomChosen, 0, 0);
  } else if (id == preview_ids::kZoom && code == CBN_KILLFOCUS) {
    ShowZoom();
  }
}

LRESULT PreviewWindow::OnNotify(NMHDR& header) {
  const LRESULT result = children_->documentBar.toolStrip.OnNotify(header);
  return result != 0 ? result : children_->viewBar.toolStrip.OnNotify(header);
}

void PreviewWindow::OnDestroy() {
  if (const auto closing = std::exchange(closing_, nullptr)) closing();
}

LRESULT PreviewWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kZoomChosen) return ModalFrameWindow::OnMessage(message, wParam, lParam);
  ApplyZoomChoice();
  return 0;
}

}  // namespace pricedown::windows
