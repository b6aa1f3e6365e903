// Part of ToolStripWindow: the buttons that a narrow window leaves out, and the arrow to them.
#include "env/translation.h"
#include "windows/base/context_menu.h"
#include "windows/base/control_ids.h"
#include "windows/base/tool_strip_window.h"
#include "windows/com/wide_text.h"

namespace pricedown::windows {

std::u16string ToolStripWindow::MoreName() { return Translate(u"更多"); }

// The arrow exists only while buttons are hidden.
void ToolStripWindow::ShowMore(bool show) {
  const LRESULT last = SendMessageW(Handle(), TB_BUTTONCOUNT, 0, 0) - 1;
  const bool isShown = last == static_cast<LRESULT>(buttons_.size());
  if (isShown) SendMessageW(Handle(), TB_DELETEBUTTON, static_cast<WPARAM>(last), 0);
  if (!show) return;
  const std::wstring name = ToWide(MoreName());
  TBBUTTON more{};
  more.idCommand = control_ids::kMoreButtons;
  more.iBitmap = static_cast<int>(Icons().size()) - 1;
  more.fsState = TBSTATE_ENABLED;
  more.fsStyle = BTNS_BUTTON;
  more.iString = reinterpret_cast<INT_PTR>(name.c_str());
  SendMessageW(Handle(), TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&more));
  TBBUTTONINFOW info{};
  info.cbSize = sizeof info;
  info.dwMask = TBIF_SIZE;
  info.cx = static_cast<WORD>(MoreWidth());
  SendMessageW(Handle(), TB_SETBUTTONINFOW, control_ids::kMoreButtons,
               reinterpret_cast<LPARAM>(&info));
}

void ToolStripWindow::FitButtons() {
  if (Handle() == nullptr || font_ == nullptr) return;
  RECT client{};
  GetClientRect(Handle(), &client);
  const std::size_t shown = ButtonsThatFit(rightEdges_, client.right, MoreWidth());
  if (shown == shown_) return;
  shown_ = shown;
  for (std::size_t position = 1; position <= buttons_.size(); ++position) {
    SendMessageW(Handle(), TB_HIDEBUTTON, static_cast<WPARAM>(IdAt(position)),
                 MAKELPARAM(position > shown_ ? TRUE : FALSE, 0));
  }
  ShowMore(HasRest());
}

void ToolStripWindow::ChooseFromRest() {
  const HWND window = Handle();
  const Lifetime strip = WindowLifetime();
  // Removes the WM_CHAR of the key that pressed the arrow, which the menu would read as a choice.
  MSG character{};
  PeekMessageW(&character, window, WM_CHAR, WM_CHAR, PM_REMOVE);
  // Messages that were sent from other threads ran meanwhile.
  if (strip.HasEnded()) return;
  const std::vector<HiddenButton> rest = HiddenButtons(buttons_, shown_);
  std::vector<MenuLine> lines;
  lines.reserve(rest.size());
  for (const auto& [command, beginsGroup] : rest) {
    lines.push_back(
        {Caption(*command), ShortcutText(command->keys[0]), IsEnabled(*command), beginsGroup});
  }
  const RECT arrow = ItemArea(buttons_.size());
  POINT place{arrow.left, arrow.bottom};
  ClientToScreen(Handle(), &place);
  const auto chosen = ChooseFromMenu(Handle(), place, lines);
  // Messages ran meanwhile, and one of them may have ended the tool strip.
  if (chosen && !strip.HasEnded()) events_.CommandChosen(*rest[*chosen].command);
}

}  // namespace pricedown::windows
