// The windows of the item class form as recording fakes.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "editor/item_class_form.h"
#include "tests/editor/form_names.h"
#include "tests/support/call_log.h"
#include "tests/support/utf8.h"

namespace pricedown::testing {

class RecordingFormView : public ItemClassFormView {
 public:
  explicit RecordingFormView(CallLog log) : log_(std::move(log)) {}

  std::u16string Text(FormField field) const override {
    const auto found = texts_.find(field);
    return found == texts_.end() ? std::u16string() : found->second;
  }
  void SetText(FormField field, std::u16string_view text) override {
    log_.Add("text " + NameOf(field) + " = " + Quoted(text));
    Type(field, text);
  }
  void Focus(FormField field) override { log_.Add("focus " + NameOf(field)); }
  void SetCaption(FormCaption target, std::u16string_view text) override {
    log_.Add("caption " + NameOf(target) + " = " + Quoted(text));
  }
  void SetToolTexts(FormTool tool, std::u16string_view caption,
                    std::u16string_view toolTip) override {
    log_.Add("tool " + std::to_string(static_cast<int>(tool)) + " = " + Quoted(caption) + ", tip " +
             Quoted(toolTip));
  }
  void SetToolEnabled(FormTool tool, bool enabled) override {
    log_.Add((enabled ? "enable " : "disable ") + NameOf(tool));
    tools[tool] = enabled;
  }
  ObjectPtr FormObject() override { return formObject; }
  void Unload() override { log_.Add("unload"); }

  // The user types: the text changes and the change is reported; nothing is logged.
  void Type(FormField field, std::u16string_view text) {
    const bool changed = Text(field) != text;
    texts_[field] = text;
    if (changed && form != nullptr) form->FieldChanged(field);
  }

  // Where changes are reported; may be null.
  ItemClassForm* form = nullptr;
  ObjectPtr formObject;
  std::map<FormTool, bool> tools;  // absent: as designed

 private:
  CallLog log_;
  std::map<FormField, std::u16string> texts_;
};

class RecordingMemberListView : public MemberListView {
 public:
  explicit RecordingMemberListView(CallLog log) : log_(std::move(log)) {}

  void SetColumnWidth(std::int32_t column, std::int32_t twips) override {
    log_.Add("column " + std::to_string(column) + " width " + std::to_string(twips));
  }
  std::int32_t RowCount() const override { return rowCount_; }
  void SetRowCount(std::int32_t count) override {
    log_.Add("rows " + std::to_string(count));
    rowCount_ = count;
    due_ = true;
  }
  void Reload() override {
    log_.Add("reload");
    due_ = true;
  }
  std::vector<std::int32_t> SelectedRows() const override { return selected; }
  // The text between the separators.
  std::u16string Text(std::int32_t column, std::int32_t row) const override {
    std::u16string_view text = rows_.at(static_cast<std::size_t>(row) - 1);
    for (; column > 1; --column) text.remove_prefix(text.find(u'|') + 1);
    return std::u16string(text.substr(0, text.find(u'|')));
  }

  // Requests all rows when they are due, as a real grid does before it paints.
  void Paint() {
    if (!due_ || form == nullptr) return;
    due_ = false;
    rows_.clear();
    for (std::int32_t row = 1; row <= rowCount_; ++row) rows_.push_back(form->RowRequested(row));
  }
  // The rows as the form gave them.
  const std::vector<std::u16string>& Rows() const { return rows_; }
  std::string RowTexts() const {
    std::string texts;
    for (const std::u16string& row : rows_) texts += Utf8(row) + "\n";
    return texts;
  }

  ItemClassForm* form = nullptr;
  std::vector<std::int32_t> selected;

 private:
  CallLog log_;
  std::int32_t rowCount_ = 0;
  bool due_ = false;
  std::vector<std::u16string> rows_;
};

}  // namespace pricedown::testing
