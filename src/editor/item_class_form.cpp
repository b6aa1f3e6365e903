// Loading, captions, events, dispatch, and the commands that start and end a class.
#include "editor/item_class_form.h"

#include <array>

#include "editor/account_lookup.h"
#include "editor/change_check.h"
#include "editor/form_captions.h"
#include "editor/form_tools.h"
#include "editor/item_lookup.h"
#include "editor/removal_guard.h"
#include "editor/save.h"
#include "env/language.h"
#include "env/translation.h"
#include "platform/convert.h"
#include "platform/failure.h"
#include "platform/first_failure.h"
#include "platform/skip.h"
#include "platform/text.h"
#include "store/tables.h"

namespace pricedown {
namespace {

constexpr std::u16string_view kResourceKey = u"Q7INDUSTRY";

struct ColumnWidth {
  std::int32_t column;
  std::int32_t twips;
};
constexpr std::array<ColumnWidth, 3> kColumnWidths{{
    {member_columns::kCode, 2000},
    {member_columns::kName, 2500},
    {member_columns::kModel, 2800},
}};

std::u16string_view ColumnOf(FormField field) {
  switch (field) {
    case FormField::ClassNumber:
      return columns::kItemClassNumber;
    case FormField::ClassName:
      return columns::kItemClassName;
    case FormField::LossAccount:
      return columns::kLossAccountNumber;
    case FormField::ReserveAccount:
      return columns::kReserveAccountNumber;
    case FormField::Percentage:
      break;
  }
  return columns::kPercentage;
}

}  // namespace

void ItemClassForm::Load() {
  FormState& state = context_.state;
  context_.showing = Lifetime();
  state.saved = false;
  try {
    SetCaptions();
    LoadFormTexts(context_.environment.factory, context_.view.FormObject(), kResourceKey);
    // The call may have closed the form.
    if (context_.HasEnded()) return;
    for (const ColumnWidth& width : kColumnWidths) {
      context_.members.SetColumnWidth(width.column, width.twips);
    }
    if (state.IsAdding()) {
      EmptyFields();
    } else {
      FillFields();
    }
    const TypedHeader header = ReadHeader(context_.view);
    state.savedValues = static_cast<const ClassHeader&>(header);
    state.rows.SetCount(state.memberList.RecordCount() + 1);
    ShowRows();
  } catch (...) {
    SkipFailing([this] { Unload(); });
    throw;
  }
}

void ItemClassForm::Unload() {
  // First, so that the window's own end does not re-enter this function.
  const bool shown = context_.showing.End();
  context_.state = FormState();
  if (shown) context_.view.Unload();
}

void ItemClassForm::SetCaptions() {
  for (const FormCaptionRow& caption : kFormCaptions) {
    context_.view.SetCaption(caption.target, Translate(caption.text));
  }
  for (const FormToolRow& row : kFormTools) {
    if (row.separator) continue;
    context_.view.SetToolTexts(row.tool, Translate(row.caption), Translate(row.tooltip));
  }
}

void ItemClassForm::FillFields() {
  const Recordset& members = context_.state.memberList;
  members.MoveFirst();
  context_.view.SetToolEnabled(FormTool::Add, false);
  for (const FormField field : kFormFields) {
    std::u16string text = ToText(members.Field(ColumnOf(field)));
    // A field shows no more than may be typed into it.
    if (const std::size_t most = MaximumLength(field); most > 0) {
      text.resize(CutLength(text, most));
    }
    context_.view.SetText(field, text);
  }
}

void ItemClassForm::EmptyFields() {
  for (const FormField field : kFormFields) context_.view.SetText(field, u"");
}

// Reads the rows that are due. Reading them counts as a change of the form.
void ItemClassForm::ShowRows() {
  FormState& state = context_.state;
  if (context_.HasEnded() || !state.rows.IsDue()) return;
  state.saved = false;
  context_.view.SetToolEnabled(FormTool::Save, true);
  FirstFailure failure;
  failure.Run([&] { state.rows.Read(state.memberList); });
  context_.members.ShowRows(state.rows);
  failure.Rethrow();
}

void ItemClassForm::FieldChanged() {
  if (!context_.HasEnded()) context_.view.SetToolEnabled(FormTool::Save, true);
}

void ItemClassForm::LookupRequested(FormField field) {
  if (!context_.HasEnded() && IsAccountField(field)) LookUpAccount(context_, field);
}

// Shows the rows even if the command fails, and before it disables the tool, because rows enable
// it.
void ItemClassForm::ToolClicked(FormTool tool) {
  if (context_.HasEnded()) return;
  FirstFailure failure;
  failure.Run([&] { Run(tool); });
  failure.Run([&] { ShowRows(); });
  if (tool == FormTool::Save) context_.view.SetToolEnabled(FormTool::Save, false);
  try {
    failure.Rethrow();
  } catch (...) {
    context_.NotifyFailed(CurrentFailure());
    throw;
  }
}

void ItemClassForm::Run(FormTool tool) {
  switch (tool) {
    case FormTool::Add:
      return Add();
    case FormTool::Save:
      Save();
      return;
    case FormTool::AddItem:
      return AddItems(context_);
    case FormTool::DelItem:
      return RemoveSelectedItems(context_);
    case FormTool::Exit:
      return Exit();
  }
}

bool ItemClassForm::Save() {
  // The form may have closed while it asked.
  if (context_.HasEnded()) return false;
  // Copies, because the form may close while it is written and in the event.
  const bool added = context_.state.IsAdding();
  const auto whenSaved = context_.state.whenSaved;
  const std::optional<std::u16string> number = SaveClass(context_);
  if (!number) return false;
  if (whenSaved) whenSaved(added, *number);
  if (added && !context_.HasEnded()) Add();
  return true;
}

void ItemClassForm::Add() {
  // Asked whenever nothing has been saved, changed or not. A refused save keeps what was typed.
  if (!context_.state.saved &&
      context_.environment.messages.Ask(Translate(u"是否保存当前数据？"), MessageIcon::None) &&
      !Save()) {
    return;
  }
  // The form may have closed while it asked.
  if (context_.HasEnded()) return;
  // The fields of an empty list stay as they are.
  if (context_.state.memberList.RecordCount() > 0) {
    EmptyMembers();
    context_.state.rows.Reload();
    EmptyFields();
  }
  // Ready for the next class.
  if (context_.view.Text(FormField::ClassNumber).empty())
    context_.view.Focus(FormField::ClassNumber);
}

void ItemClassForm::EmptyMembers() {
  const Recordset& members = context_.state.memberList;
  members.MoveFirst();
  while (!members.AtEnd()) {
    members.Delete();
    members.MoveNext();
  }
}

// `iExit`.
void ItemClassForm::Exit() {
  if (!IsUnchanged(context_.state, ReadHeader(context_.view)) &&
      context_.environment.messages.Ask(Translate(u"当前记录已经改变，是否保存?"),
                                        MessageIcon::Information)) {
    Save();
    if (!context_.state.saved) return;
  }
  Unload();
}

}  // namespace pricedown
