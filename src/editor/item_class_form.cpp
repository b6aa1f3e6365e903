// Loading, captions, events, dispatch, and the commands that start and end a class.
// Adding and removing items, checks and the save itself are files of their own.
#include "editor/item_class_form.h"

#include <array>

#include "editor/account_lookup.h"
#include "editor/change_check.h"
#include "editor/check_data.h"
#include "editor/item_lookup.h"
#include "editor/removal_guard.h"
#include "editor/save.h"
#include "env/language.h"
#include "env/translation.h"
#include "platform/convert.h"
#include "platform/skip.h"
#include "store/tables.h"

namespace pricedown {
namespace {

struct Caption {
  FormCaption target;
  std::u16string_view text;
};
constexpr std::array<Caption, 8> kCaptions{{
    {FormCaption::Title, u"物料类别维护"},
    {FormCaption::Frame1, u"对应明细物料："},
    {FormCaption::FrameAdd, u"物料类别："},
    {FormCaption::Label5, u"计提跌价比例(%)："},
    {FormCaption::Label4, u"对应存货跌价准备科目："},
    {FormCaption::Label3, u"对应存货跌价损失科目："},
    {FormCaption::Label2, u"物料类别名称："},
    {FormCaption::Label1, u"物料类别代码："},
}};

struct ToolCaption {
  FormTool tool;
  std::u16string_view caption;
  std::u16string_view toolTip;
};
constexpr std::array<ToolCaption, 5> kToolCaptions{{
    {FormTool::Add, u"新增", u""},
    {FormTool::Save, u"保存", u""},
    {FormTool::AddItem, u"增加物料", u""},
    {FormTool::DelItem, u"删除物料", u""},
    {FormTool::Exit, u"退出", u"退出"},
}};

constexpr std::u16string_view kResourceKey = u"Q7INDUSTRY";
constexpr std::u16string_view kRowSign = u"|";
constexpr std::int32_t kTitleRow = 1;

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

bool IsAccountField(FormField field) {
  return field == FormField::LossAccount || field == FormField::ReserveAccount;
}

}  // namespace

ItemClassForm::ItemClassForm(Environment& environment, ItemClassFormView& view,
                             MemberListView& grid)
    : parts_{environment, view, grid, {}} {}

void ItemClassForm::SetYearAndPeriod(std::int32_t year, std::int32_t period) {
  parts_.state.year = year;
  parts_.state.period = period;
}

void ItemClassForm::Load() {
  FormState& state = parts_.state;
  state.loaded = true;
  state.saved = false;
  try {
    SetCaptions();
    LoadFormTexts(parts_.environment.factory, parts_.view.FormObject(), kResourceKey);
    PrepareGrid();
    if (state.IsAdding()) {
      EmptyFields();
    } else {
      FillFields();
    }
    state.savedValues = ReadHeader(parts_.view);
    state.unchanged = true;
    parts_.grid.SetRowCount(state.memberList.RecordCount() + 1);
  } catch (...) {
    SkipFailing([this] { Unload(); });
    throw;
  }
}

void ItemClassForm::Unload() {
  const bool shown = parts_.state.loaded;
  // First, so that the window's own end does not come back here.
  parts_.state = FormState();
  if (shown) parts_.view.Unload();
}

void ItemClassForm::SetCaptions() {
  for (const Caption& caption : kCaptions) {
    parts_.view.SetCaption(caption.target, Translate(caption.text));
  }
  for (const ToolCaption& tool : kToolCaptions) {
    parts_.view.SetToolTexts(tool.tool, Translate(tool.caption), Translate(tool.toolTip));
  }
}

void ItemClassForm::PrepareGrid() {
  for (const ColumnWidth& width : kColumnWidths) {
    parts_.grid.SetColumnWidth(width.column, width.twips);
  }
}

void ItemClassForm::FillFields() {
  const Recordset& members = parts_.state.memberList;
  members.MoveFirst();
  parts_.view.SetToolEnabled(FormTool::Add, false);
  for (const FormField field : kFormFields) {
    std::u16string text = ToText(members.Field(ColumnOf(field)));
    // A field takes no more than may be typed into it.
    if (const std::size_t most = MaximumLength(field); most > 0 && text.size() > most) {
      text.resize(most);
    }
    parts_.view.SetText(field, text);
  }
}

void ItemClassForm::EmptyFields() {
  for (const FormField field : kFormFields) parts_.view.SetText(field, u"");
}

void ItemClassForm::FieldChanged(FormField) {
  if (parts_.state.loaded) parts_.view.SetToolEnabled(FormTool::Save, true);
}

bool ItemClassForm::KeyPressed(FormField field, char16_t character) const {
  const bool filters = field == FormField::ClassNumber || field == FormField::ClassName;
  return !filters || (character != u' ' && character != u'\'');
}

void ItemClassForm::KeyDown(FormField field, std::int32_t keyCode) {
  if (keyCode == kLookupKey) LookupClicked(field);
}

void ItemClassForm::LookupClicked(FormField field) {
  if (parts_.state.loaded && IsAccountField(field)) LookUpAccount(parts_, field);
}

std::u16string ItemClassForm::RowRequested(std::int32_t row) {
  FormState& state = parts_.state;
  if (!state.loaded) return {};
  state.saved = false;
  parts_.view.SetToolEnabled(FormTool::Save, true);
  state.listSource = std::make_unique<ICList>(parts_.environment.factory);
  state.listSource->SetRows(state.memberList);
  return row == kTitleRow ? state.listSource->FieldTitle(kRowSign)
                          : state.listSource->FieldData(row, kRowSign);
}

void ItemClassForm::ToolClicked(std::u16string_view key) {
  if (!parts_.state.loaded) return;
  if (key == u"AddItem") {
    AddItem();
  } else if (key == u"DelItem") {
    DelItem();
  } else if (key == u"Add") {
    Add();
  } else if (key == u"Save") {
    SaveByTool();
  } else if (key == u"iExit") {
    iExit();
  }
}

// The tool is disabled whatever became of the save.
void ItemClassForm::SaveByTool() {
  const auto disable = [this] { parts_.view.SetToolEnabled(FormTool::Save, false); };
  try {
    Save();
  } catch (...) {
    SkipFailing(disable);
    throw;
  }
  disable();
}

void ItemClassForm::AddItem() { AddItems(parts_); }

void ItemClassForm::DelItem() { RemoveSelectedItems(parts_); }

void ItemClassForm::Save() {
  if (SaveClass(parts_) && parts_.state.IsAdding()) Add();
}

void ItemClassForm::Add() {
  // Asked whenever nothing has been saved, changed or not.
  if (!parts_.state.saved &&
      parts_.environment.messages.Ask(Translate(u"是否保存当前数据？"), MessageIcon::None)) {
    Save();
  }
  // The form may have gone while it asked.
  if (!parts_.state.loaded) return;
  // The fields of an empty list stay as they are.
  if (parts_.state.memberList.RecordCount() == 0) return;
  EmptyMembers();
  parts_.grid.Reload();
  EmptyFields();
}

void ItemClassForm::EmptyMembers() {
  const Recordset& members = parts_.state.memberList;
  members.MoveFirst();
  while (!members.AtEnd()) {
    members.Delete();
    members.MoveNext();
  }
}

void ItemClassForm::iExit() {
  checkRecord();
  if (!parts_.state.unchanged &&
      parts_.environment.messages.Ask(Translate(u"当前记录已经改变，是否保存?"),
                                      MessageIcon::Information)) {
    Save();
    if (!parts_.state.saved) return;
    Unload();
  }
  // After a save this is the second request, which finds the form unloaded.
  Unload();
}

bool ItemClassForm::CheckData() { return pricedown::CheckData(parts_); }

bool ItemClassForm::Check() const { return pricedown::Check(parts_); }

void ItemClassForm::CheckTextSave() { pricedown::CheckTextSave(parts_); }

void ItemClassForm::checkRecord() { CheckRecord(parts_); }

}  // namespace pricedown
