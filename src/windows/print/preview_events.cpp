// The commands of the preview's window, and the messages that ask for them.
// Part of PreviewWindow; keys and typed numbers are in preview_keys.cpp.
#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <utility>

#include "platform/error.h"
#include "windows/base/message_box_questions.h"
#include "windows/print/preview_children.h"
#include "windows/print/preview_ids.h"
#include "windows/print/preview_window.h"

namespace pricedown::windows {
namespace {

// Sent to oneself once a list has put its own text into its field.
constexpr UINT kZoomChosen = WM_APP + 1;

}  // namespace

// Runs what the user asked for and tells what went wrong. The window may be gone when this returns;
// the object is held by whoever shows it.
template <typename Command>
void PreviewWindow::Fire(bool takesTime, Command&& command) {
  if (busy_) return;
  busy_ = true;
  if (takesTime) SetWaiting(true);
  std::optional<Failure> failure;
  try {
    command();
  } catch (...) {
    failure = CurrentFailure();
  }
  if (takesTime) SetWaiting(false);
  try {
    ShowState();
    if (failure && Handle() != nullptr) ReportFailure(DialogOwner(), *failure);
  } catch (...) {
    // No memory for the texts of the state.
    MessageBeep(MB_ICONERROR);
  }
  busy_ = false;
  if (std::exchange(closeAfter_, false)) Close();
}

// Sizing and scrolling go on while a command runs, as when its dialog is moved over the window.
void PreviewWindow::PaneChanges(const std::function<void()>& change) {
  if (busy_ || !complete_) {
    change();
    if (complete_) children_->pane.ShowState();
    return;
  }
  Fire(false, [&] {
    change();
    pages_.Turn(state_.Page());
  });
}

void PreviewWindow::Run(PreviewCommand command) {
  if (busy_ || Handle() == nullptr || !IsEnabled(command)) return;
  if (command == PreviewCommand::Close) {
    Close();
    return;
  }
  Fire(true, [&] { Execute(command); });
}

bool PreviewWindow::IsEnabled(PreviewCommand command) const {
  switch (command) {
    case PreviewCommand::First:
    case PreviewCommand::Previous:
      return state_.Page() > 1;
    case PreviewCommand::Next:
    case PreviewCommand::Last:
      return state_.Page() < state_.PageCount();
    case PreviewCommand::ZoomIn:
      return state_.Percent() < kGreatestPreviewPercent;
    case PreviewCommand::ZoomOut: {
      PreviewState tried = state_;
      tried.ZoomOut();
      return tried.Percent() < state_.Percent();
    }
    default:
      return true;
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
    case PreviewCommand::First:
      state_.GoTo(1);
      break;
    case PreviewCommand::Previous:
      state_.GoTo(state_.Page() - 1);
      break;
    case PreviewCommand::Next:
      state_.GoTo(state_.Page() + 1);
      break;
    case PreviewCommand::Last:
      state_.GoTo(state_.PageCount());
      break;
    case PreviewCommand::ZoomOut:
      state_.ZoomOut();
      break;
    case PreviewCommand::ZoomIn:
      state_.ZoomIn();
      break;
    case PreviewCommand::FitPage:
      state_.FitPage();
      break;
    case PreviewCommand::FitWidth:
      state_.FitWidth();
      // It is for reading, which begins at the top.
      state_.ScrollBy(0, -state_.ContentHeight());
      break;
    case PreviewCommand::Close:
      break;
  }
  pages_.Turn(state_.Page());
}

void PreviewWindow::ChooseFont() {
  try {
    const Font chosen = fonts_->Show(pages_.Document().font, kFontDialogFlags);
    // The host may have closed everything below the dialog.
    if (Handle() != nullptr && !chosen.name.empty()) TakeFont(chosen);
  } catch (const AutomationError& error) {
    if (error.Number() != kDialogCancelled) throw;
  }
}

void PreviewWindow::TakeFont(const Font& font) {
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
  if (child == c.documentBar.strip.Handle()) {
    c.documentBar.strip.OnCommand(id);
  } else if (child == c.viewBar.strip.Handle()) {
    c.viewBar.strip.OnCommand(id);
  } else if (id == preview_ids::kPage && code == EN_KILLFOCUS) {
    // Nothing is left that was typed and not taken.
    ShowPageNumber();
  } else if (id == preview_ids::kZoom && code == CBN_SELENDOK) {
    PostMessageW(Handle(), kZoomChosen, 0, 0);
  } else if (id == preview_ids::kZoom && code == CBN_KILLFOCUS) {
    ShowZoom();
  }
}

LRESULT PreviewWindow::OnNotify(NMHDR& header) {
  if (header.code != TTN_GETDISPINFOW) return 0;
  for (const PreviewBar* bar : {&children_->documentBar, &children_->viewBar}) {
    const LRESULT tips = SendMessageW(bar->strip.Handle(), TB_GETTOOLTIPS, 0, 0);
    if (reinterpret_cast<HWND>(tips) == header.hwndFrom) {
      bar->strip.OnTooltip(reinterpret_cast<NMTTDISPINFOW&>(header));
    }
  }
  return 0;
}

void PreviewWindow::OnDestroy() {
  if (const auto closing = std::exchange(closing_, nullptr)) closing();
}

LRESULT PreviewWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kZoomChosen) return ModalFrameWindow::OnMessage(message, wParam, lParam);
  TakeZoomChoice();
  return 0;
}

}  // namespace pricedown::windows
