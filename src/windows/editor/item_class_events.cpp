// What happens to the form's window and in its children, and how the form is told.
// Part of ItemClassWindow.
#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <utility>

#include "editor/item_class_form.h"
#include "platform/skip.h"
#include "windows/base/control_ids.h"
#include "windows/base/message_box_questions.h"
#include "windows/com/failure.h"
#include "windows/editor/form_children.h"
#include "windows/editor/form_ids.h"
#include "windows/editor/item_class_window.h"

namespace pricedown::windows {
namespace {

std::u16string KeyOf(FormTool tool) {
  return std::u16string(kFormTools[static_cast<std::size_t>(tool) - 1].key);
}

struct FieldOfId {
  int id;
  FormField field;
};
constexpr std::array<FieldOfId, 7> kFieldIds{{
    {form_ids::kClassNumber, FormField::ClassNumber},
    {form_ids::kClassName, FormField::ClassName},
    {form_ids::kLossAccount, FormField::LossAccount},
    {form_ids::kReserveAccount, FormField::ReserveAccount},
    {form_ids::kPercentage, FormField::Percentage},
    {form_ids::kLossLookup, FormField::LossAccount},
    {form_ids::kReserveLookup, FormField::ReserveAccount},
}};

std::optional<FormField> FieldWithId(int id) {
  for (const FieldOfId& entry : kFieldIds) {
    if (entry.id == id) return entry.field;
  }
  return std::nullopt;
}

}  // namespace

// Runs a command of the form, shows its rows, and tells the user what went wrong. The window may be
// gone when this returns; the object is held by whoever shows it.
template <typename Command>
void ItemClassWindow::Fire(Command&& command) {
  if (form_ == nullptr || busy_) return;
  busy_ = true;
  SetWaiting(true);
  std::optional<Failure> failure;
  try {
    command(*form_);
  } catch (...) {
    failure = CurrentFailure();
  }
  try {
    children_->members.Fill();
  } catch (...) {
    if (!failure) failure = CurrentFailure();
  }
  SetWaiting(false);
  busy_ = false;
  // What fails because the form went away under its command is nobody's concern any more.
  if (failure && Handle() != nullptr) ReportFailure(DialogOwner(), *failure);
  if (std::exchange(closing_, false)) OnClose();
}

void ItemClassWindow::PressTool(FormTool tool) {
  if (!children_->strip.IsEnabled(static_cast<std::size_t>(tool))) return;
  const HWND focus = GetFocus();
  Fire([tool](ItemClassForm& form) { form.ToolClicked(KeyOf(tool)); });
  // Ready for the next class, unless the core has put the focus somewhere.
  const bool emptied = (tool == FormTool::Save || tool == FormTool::Add) && Handle() != nullptr &&
                       Text(FormField::ClassNumber).empty();
  if (emptied && GetFocus() == focus) Focus(FormField::ClassNumber);
}

void ItemClassWindow::ToolStripButtonClicked(std::size_t position) {
  PressTool(static_cast<FormTool>(position));
}

bool ItemClassWindow::FieldKeyPressed(FormField field, char16_t character) {
  return form_ == nullptr || form_->KeyPressed(field, character);
}

void ItemClassWindow::FieldKeyDown(FormField field, std::int32_t keyCode) {
  if (keyCode != kLookupKey) return;
  Fire([field, keyCode](ItemClassForm& form) { form.KeyDown(field, keyCode); });
}

std::u16string ItemClassWindow::MemberRow(std::int32_t row) {
  return form_ == nullptr ? std::u16string() : form_->RowRequested(row);
}

void ItemClassWindow::InsertPressed() { PressTool(FormTool::AddItem); }

void ItemClassWindow::OnChildCommand(HWND child, int id, int code) {
  if (child == children_->strip.Handle()) {
    children_->strip.OnCommand(id);
    return;
  }
  const auto field = FieldWithId(id);
  if (!field) return;
  if (child == children_->Row(*field).text.Handle()) {
    // Also from inside a command, which may have set the text.
    if (code == EN_CHANGE && form_ != nullptr) form_->FieldChanged(*field);
  } else if (code == BN_CLICKED) {
    Fire([&](ItemClassForm& form) { form.LookupClicked(*field); });
  }
}

LRESULT ItemClassWindow::OnNotify(NMHDR& header) {
  if (header.hwndFrom == children_->members.Handle()) return children_->members.OnNotify(header);
  if (header.code == TTN_GETDISPINFOW) {
    children_->strip.OnTooltip(reinterpret_cast<NMTTDISPINFOW&>(header));
  }
  return 0;
}

// In a field Enter goes on to the next one.
void ItemClassWindow::OnEnter() {
  const HWND focus = GetFocus();
  for (FieldRow& row : children_->rows) {
    if (row.text.Handle() == focus) {
      FocusNext(false);
      return;
    }
    if (row.lookup.Handle() == focus) {
      SendMessageW(focus, BM_CLICK, 0, 0);
      return;
    }
  }
}

// Without a question; what runs now is finished first.
void ItemClassWindow::OnClose() {
  if (busy_) {
    closing_ = true;
  } else if (form_ != nullptr) {
    form_->CloseByFrame();
  }
}

void ItemClassWindow::OnDestroy() {
  destroying_ = true;
  if (form_ != nullptr) SkipFailing([this] { form_->Unload(); });
}

bool ItemClassWindow::TranslateKey(MSG& message) {
  if (!IsOurs(message)) return false;
  if (message.message == WM_KEYDOWN) {
    const bool control = GetKeyState(VK_CONTROL) < 0 && GetKeyState(VK_MENU) >= 0;
    if (control && (message.wParam == 'S' || message.wParam == 'N')) {
      PressTool(message.wParam == 'S' ? FormTool::Save : FormTool::Add);
      return true;
    }
    // The tool bar presses its button itself.
    if (message.wParam == VK_RETURN && message.hwnd == children_->strip.Handle()) return false;
  }
  return IsDialogMessageW(Handle(), &message) != FALSE;
}

}  // namespace pricedown::windows
