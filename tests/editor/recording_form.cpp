// The log lines and the memory of the form's windows.
// Rows are asked for as a real grid does: later, from the first, in one go.
#include "tests/editor/recording_form.h"

#include "platform/text.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {
namespace {

std::string NameOf(FormTool tool) {
  switch (tool) {
    case FormTool::Add:
      return "Add";
    case FormTool::Save:
      return "Save";
    case FormTool::AddItem:
      return "AddItem";
    case FormTool::DelItem:
      return "DelItem";
    case FormTool::Exit:
      return "iExit";
  }
  return "?";
}

std::string NameOf(FormCaption caption) {
  switch (caption) {
    case FormCaption::Title:
      return "title";
    case FormCaption::Frame1:
      return "Frame1";
    case FormCaption::FrameAdd:
      return "FrameAdd";
    case FormCaption::Label5:
      return "Label5";
    case FormCaption::Label4:
      return "Label4";
    case FormCaption::Label3:
      return "Label3";
    case FormCaption::Label2:
      return "Label2";
    case FormCaption::Label1:
      return "Label1";
  }
  return "?";
}

}  // namespace

std::string NameOf(FormField field) {
  switch (field) {
    case FormField::ClassNumber:
      return "itemClassNumber";
    case FormField::ClassName:
      return "ItemClassName";
    case FormField::LossAccount:
      return "txtitem(0)";
    case FormField::ReserveAccount:
      return "txtitem(1)";
    case FormField::Percentage:
      return "txtPencent";
  }
  return "?";
}

std::u16string RecordingFormView::Text(FormField field) const {
  const auto found = texts_.find(field);
  return found == texts_.end() ? std::u16string() : found->second;
}

void RecordingFormView::SetText(FormField field, std::u16string_view text) {
  log_.Add("text " + NameOf(field) + " = " + Quoted(text));
  Type(field, text);
}

void RecordingFormView::Type(FormField field, std::u16string_view text) {
  const bool changed = Text(field) != text;
  texts_[field] = text;
  if (changed && form != nullptr) form->FieldChanged(field);
}

void RecordingFormView::Focus(FormField field) { log_.Add("focus " + NameOf(field)); }

void RecordingFormView::SetCaption(FormCaption target, std::u16string_view text) {
  log_.Add("caption " + NameOf(target) + " = " + Quoted(text));
}

void RecordingFormView::SetToolTexts(FormTool tool, std::u16string_view caption,
                                     std::u16string_view toolTip) {
  log_.Add("tool " + std::to_string(static_cast<int>(tool)) + " = " + Quoted(caption) + ", tip " +
           Quoted(toolTip));
}

void RecordingFormView::SetToolEnabled(FormTool tool, bool enabled) {
  log_.Add((enabled ? "enable " : "disable ") + NameOf(tool));
  tools[tool] = enabled;
}

void RecordingFormView::Unload() { log_.Add("unload"); }

void RecordingGridView::SetColumnWidth(std::int32_t column, std::int32_t twips) {
  log_.Add("column " + std::to_string(column) + " width " + std::to_string(twips));
}

void RecordingGridView::SetRowCount(std::int32_t count) {
  log_.Add("rows " + std::to_string(count));
  rowCount_ = count;
  due_ = true;
}

void RecordingGridView::Reload() {
  log_.Add("reload");
  due_ = true;
}

std::u16string RecordingGridView::Text(std::int32_t column, std::int32_t row) const {
  std::u16string_view text = rows_.at(static_cast<std::size_t>(row) - 1);
  for (; column > 1; --column) text.remove_prefix(text.find(u'|') + 1);
  return std::u16string(text.substr(0, text.find(u'|')));
}

void RecordingGridView::Paint() {
  if (!due_ || form == nullptr) return;
  due_ = false;
  rows_.clear();
  for (std::int32_t row = 1; row <= rowCount_; ++row) rows_.push_back(form->RowRequested(row));
}

std::string RecordingGridView::RowTexts() const {
  std::string texts;
  for (const std::u16string& row : rows_) texts += Utf8(row) + "\n";
  return texts;
}

}  // namespace pricedown::testing
