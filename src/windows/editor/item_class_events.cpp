// Input of the form's window, reported to the form.
#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "editor/form_keys.h"
#include "editor/item_class_form.h"
#include "env/translation.h"
#include "platform/skip.h"
#include "windows/base/context_menu.h"
#include "windows/base/control_ids.h"
#include "windows/base/focus_return.h"
#include "windows/base/keyboard.h"
#include "windows/editor/form_children.h"
#include "windows/editor/item_class_window.h"

namespace pricedown::windows {

template <typename Command>
void ItemClassWindow::Run(Command&& command) {
  if (form_ == nullptr) return;
  const FocusedWindow focus;
  RunCommand(true, [&] { command(*form_); });
  // A window of the suite may have left no window focused; a command may also have moved it.
  if (Handle() == nullptr || GetActiveWindow() != Handle() ||
      IsChild(Handle(), GetFocus()) != FALSE) {
    return;
  }
  // Only within the form: a place in another window would come before it.
  const HWND place = focus.Find();
  if (place != nullptr && IsChild(Handle(), place) != FALSE) SetFocus(place);
}

void ItemClassWindow::PressTool(FormTool tool) {
  if (!children_->toolStrip.IsEnabled(RowOf(tool))) return;
  Run([tool](ItemClassForm& form) { form.ToolClicked(tool); });
}

void ItemClassWindow::CommandChosen(const Command& command) {
  PressTool(static_cast<const FormToolRow&>(command).tool);
}

void ItemClassWindow::LookupPressed(FormField field) {
  Run([field](ItemClassForm& form) { form.LookupRequested(field); });
}

void ItemClassWindow::OnChildCommand(HWND child, int id, int code) {
  if (child == children_->toolStrip.Handle()) {
    children_->toolStrip.OnCommand(id);
  } else if (code == EN_CHANGE && children_->Find(&FieldRow::fieldId, id) != nullptr) {
    // Also from inside a command, which may have set the text.
    if (form_ != nullptr) form_->FieldChanged();
  } else if (const FieldRow* row = children_->Find(&FieldRow::lookupId, id);
             row != nullptr && code == BN_CLICKED) {
    LookupPressed(row->field);
  }
}

void ItemClassWindow::MenuRequested(POINT place) {
  FormChildren& c = *children_;
  std::vector<MenuLine> lines;
  for (const MemberListRow& row : kMemberListMenu) {
    const auto tool = ToolOf(row.command);
    // The suite may have changed a tool's caption.
    lines.push_back(
        {tool ? c.toolStrip.Caption(RowOf(*tool)) : Translate(row.caption),
         ShortcutText(row.keys[0]),
         c.members.IsEnabled(row.command) && (!tool || c.toolStrip.IsEnabled(RowOf(*tool))),
         row.beginsGroup});
  }
  const auto chosen = ChooseFromMenu(Handle(), place, lines);
  if (chosen && Handle() != nullptr) c.members.Run(kMemberListMenu[*chosen].command);
}

LRESULT ItemClassWindow::OnNotify(NMHDR& header) {
  if (header.hwndFrom == children_->members.Handle()) return children_->members.OnNotify(header);
  return children_->toolStrip.OnNotify(header);
}

// In a field Enter moves the focus to the next one, from the last one to the member list; on a
// lookup button it presses the button.
void ItemClassWindow::OnEnter() {
  const HWND focus = GetFocus();
  for (const FieldRow& row : children_->rows) {
    if (row.text.Handle() == focus) {
      if (const auto next = FieldAfter(row.field)) return Focus(*next);
      SetFocus(children_->members.Handle());
      return;
    }
    if (row.lookup.Handle() == focus) return LookupPressed(row.field);
  }
}

void ItemClassWindow::Close() {
  if (form_ != nullptr) form_->Unload();
}

void ItemClassWindow::OnDestroy() {
  if (form_ != nullptr) SkipFailing([this] { form_->Unload(); });
}

bool ItemClassWindow::TranslateKey(MSG& message) {
  if (!IsOurs(message)) return false;
  if (message.message == WM_KEYDOWN) {
    if (const auto tool = ToolOfKey(PressOf(message.wParam))) {
      PressTool(*tool);
      return true;
    }
    // The tool strip presses its button itself.
    if (message.wParam == VK_RETURN && message.hwnd == children_->toolStrip.Handle()) return false;
  }
  return IsDialogMessageW(Handle(), &message) != FALSE;
}

}  // namespace pricedown::windows
