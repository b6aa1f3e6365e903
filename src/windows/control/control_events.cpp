// ControlWindow's messages and the events of its children.
#include <windows.h>

#include <string>
#include <utility>
#include <vector>

#include "control/commands.h"
#include "env/translation.h"
#include "windows/base/context_menu.h"
#include "windows/base/dpi.h"
#include "windows/base/gdi.h"
#include "windows/base/message_box_questions.h"
#include "windows/base/painting.h"
#include "windows/control/control_children.h"
#include "windows/control/control_window.h"

namespace pricedown::windows {
namespace {

void PaintBackground(HWND window) {
  const PaintDc paint(window);
  FillButtonFace(paint.Get(), paint.Area());
}

void EraseBackground(HDC context) {
  RECT area{};
  if (GetClipBox(context, &area) != ERROR) FillButtonFace(context, area);
}

}  // namespace

// Runs a command of the core. The control may be destroyed when this returns.
template <typename Command>
void ControlWindow::RunCommand(Command&& command) {
  if (control_ == nullptr) return;
  const std::shared_ptr<void> hold = Hold();
  const HWND owner = DialogOwner();
  try {
    command(*control_);
  } catch (...) {
    const Failure failure = CurrentFailure();
    // A command that failed because the control ended in it needs no report.
    if (control_ == nullptr || control_->HasEnded()) return;
    control_->CommandFailed(failure);
    // The failed command, or the host's event handler, may have destroyed the owner.
    ReportFailure(IsWindow(owner) != FALSE ? owner : nullptr, failure);
  }
}

void ControlWindow::NodeClicked(NodeIndex node) {
  RunCommand([node](PriceDown& control) { control.NodeClicked(node); });
}

// Buttons and menus show rows of the control's own table.
void ControlWindow::CommandChosen(const Command& command) {
  RunCommand([&command](PriceDown& control) {
    control.CommandChosen(static_cast<const ControlCommand&>(command));
  });
}

unsigned ControlWindow::MenuOf(HWND child) const {
  return child == children_->grid.Handle() ? surface::kGridMenu : surface::kTreeMenu;
}

bool ControlWindow::KeyPressed(HWND child, const KeyPress& press, bool repeated) {
  const ControlCommand* command = CommandOfPress(press, MenuOf(child));
  // A key that is held down runs its command once.
  if (command != nullptr && !repeated) CommandChosen(*command);
  return command != nullptr;
}

void ControlWindow::MenuRequested(HWND child, POINT place) {
  const std::vector<const ControlCommand*> commands = CommandsOn(MenuOf(child));
  std::vector<MenuLine> lines;
  for (const ControlCommand* command : commands) {
    // The suite may have changed a button's caption.
    const bool button = (command->surfaces & surface::kToolStrip) != 0;
    lines.push_back({button ? children_->toolStrip.Caption(*command) : Translate(command->caption),
                     ShortcutText(command->keys[0]),
                     control_ != nullptr && control_->IsEnabled(*command), command->beginsGroup});
  }
  // While the menu is open the host may close everything.
  const std::shared_ptr<void> hold = Hold();
  const auto chosen = ChooseFromMenu(Handle(), place, lines);
  if (chosen && Handle() != nullptr) CommandChosen(*commands[*chosen]);
}

void ControlWindow::SplitterEvent(SplitterAction action, std::int32_t pixels) {
  const std::int32_t twips = Dpi::Of(Handle()).ToTwips(pixels);
  RunCommand([action, twips](PriceDown& control) {
    switch (action) {
      case SplitterAction::Press:
        control.SplitterDown();
        break;
      case SplitterAction::Drag:
        control.SplitterMoved(twips);
        break;
      case SplitterAction::Release:
        control.SplitterUp();
        break;
      case SplitterAction::StepLeft:
      case SplitterAction::StepRight:
        control.StepSplitter(action == SplitterAction::StepRight);
        break;
    }
  });
}

void ControlWindow::FocusEntered() {
  children_->lastFocus = GetFocus();
  // A client that hears the status may end the control.
  const std::shared_ptr<void> hold = Hold();
  // An open form may hold the class.
  ShowStatus();
  // A copy, because the call may end the control.
  const std::function<void(bool)> handler = focusChange_;
  if (handler) handler(true);
}

void ControlWindow::FocusLeft(HWND to) {
  if (Holds(to)) return;
  const std::function<void(bool)> handler = focusChange_;
  if (handler) handler(false);
}

void ControlWindow::ItemsChanged() {
  const std::shared_ptr<void> hold = Hold();
  ItemsFilling();
  if (Find* find = control_ == nullptr ? nullptr : control_->Finding()) {
    find->RowsChanged(FindPane::Grid);
  }
  ShowStatus();
}

void ControlWindow::FindTextChanged(std::u16string_view text, bool composing) {
  RunCommand([&](PriceDown& control) {
    if (Find* find = control.Finding()) find->TextChanged(text, composing);
  });
}

void ControlWindow::FindKeyPressed(FindKey key) {
  RunCommand([key](PriceDown& control) {
    Find* const find = control.Finding();
    if (find == nullptr) return;
    switch (key) {
      case FindKey::Accept:
        return find->Accept();
      case FindKey::Next:
      case FindKey::Previous:
        return find->Next(key == FindKey::Previous);
      case FindKey::Close:
        return find->Close();
      case FindKey::None:
        return;
    }
  });
}

void ControlWindow::FindIdle() {
  // A client that hears the count may end the control.
  const std::shared_ptr<void> hold = Hold();
  if (Find* find = control_ == nullptr ? nullptr : control_->Finding()) find->ContinueCounting();
}

void ControlWindow::FindTabPressed() { SetFocus(children_->WindowOf(children_->findBar.Pane())); }

// The rows arrive after the query has returned: by then it is known whether the load is long.
void ControlWindow::ItemsFilling() {
  if (work_.WaitIsLong(Clock::now())) ShowProgress();
}

void ControlWindow::ShowStatus() {
  if (Handle() == nullptr) return;
  if (control_ == nullptr) {
    children_->statusBar.SetPanel(StatusPanel::Status, {});
    return;
  }
  const std::u16string text = control_->StatusText();
  children_->statusBar.SetPanel(StatusPanel::Status, text);
  // A load empties the grid first; its end shows the status again.
  if (!work_.Waiting()) children_->grid.Announce(text);
}

void ControlWindow::SetWaiting(bool waiting) {
  if (waiting == work_.Waiting()) return;
  if (waiting) {
    if (work_.BeginWait(Clock::now())) ShowProgress();
    return;
  }
  const auto elapsed = work_.EndWait(Clock::now());
  children_->ShowProgress(false);
  if (Handle() == nullptr) return;
  children_->statusBar.SetPanel(StatusPanel::Passtime, ElapsedText(elapsed));
  ShowStatus();
}

void ControlWindow::SystemChanged(UINT message) {
  if (Handle() == nullptr) return;
  // Another resolution accepts the price being typed, which moves the focus; the host may end the
  // control then.
  const std::shared_ptr<void> hold = Hold();
  ControlChildren& c = *children_;
  if (message == WM_SYSCOLORCHANGE) {
    for (const BoundWindow* child : std::initializer_list<const BoundWindow*>{
             &c.tree, &c.toolStrip, &c.statusBar, &c.progressBar}) {
      if (child->Handle() != nullptr) SendMessageW(child->Handle(), message, 0, 0);
    }
  } else {
    c.UpdateResolution(Dpi::Of(Handle()));
    RunCommand([](PriceDown& control) { control.ResolutionChanged(); });
  }
  if (Handle() == nullptr) return;
  RedrawWindow(Handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

LRESULT ControlWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND:
    case WM_PRINTCLIENT:
      // Also for transparent children, which request the background.
      EraseBackground(reinterpret_cast<HDC>(wParam));
      return 1;
    case WM_PAINT:
      PaintBackground(Handle());
      return 0;
    case WM_SHOWWINDOW:
      UpdateInput(wParam != FALSE);
      return Default(message, wParam, lParam);
    case WM_WINDOWPOSCHANGED: {
      // A container may also show or hide the window without the message above.
      const UINT flags = reinterpret_cast<const WINDOWPOS*>(lParam)->flags;
      if ((flags & (SWP_SHOWWINDOW | SWP_HIDEWINDOW)) != 0) {
        UpdateInput((flags & SWP_SHOWWINDOW) != 0);
      }
      return Default(message, wParam, lParam);
    }
    case WM_SIZE:
      RunCommand([](PriceDown& control) { control.Resized(); });
      return 0;
    case WM_SETFOCUS:
      if (IsChild(Handle(), children_->lastFocus) != FALSE &&
          (IsWindowVisible(children_->lastFocus) != FALSE || IsWindowVisible(Handle()) == FALSE)) {
        SetFocus(children_->lastFocus);
      } else {
        SetFocusFirst(false);
      }
      return 0;
    case WM_SETCURSOR:
      if (!work_.Waiting()) return Default(message, wParam, lParam);
      SetCursor(LoadCursorW(nullptr, IDC_WAIT));
      return TRUE;
    case WM_CTLCOLORSTATIC:
      return OnButtonFace(wParam);
    case WM_NOTIFY:
      return children_->OnNotify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_COMMAND:
      if (lParam != 0 && reinterpret_cast<HWND>(lParam) == children_->toolStrip.Handle()) {
        children_->toolStrip.OnCommand(LOWORD(wParam));
      }
      return 0;
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
    case WM_THEMECHANGED:
    case kDpiChanged:
    case kDpiChangedAfterParent:
      SystemChanged(message);
      return 0;
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace pricedown::windows
