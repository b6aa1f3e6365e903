// Recording fakes of the item class form's views.
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
    if (changed && form != nullptr) form->FieldChanged();
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
  void ShowRows(const MemberRows& rows) override {
    log_.Add("rows " + std::to_string(rows.Count()));
    rows_ = rows;
  }
  std::vector<std::int32_t> SelectedRows() const override { return selected; }

  // The rows as last shown.
  const MemberRows& Rows() const { return rows_; }
  // Each cell followed by "|".
  std::string RowTexts() const {
    std::string texts;
    for (std::int32_t row = 1; row < MemberRows::kFirstItem + rows_.Items(); ++row) {
      for (std::int32_t column = 1; column <= member_columns::kCount; ++column) {
        texts += Utf8(rows_.Text(column, row)) + "|";
      }
      texts += "\n";
    }
    return texts;
  }
  std::vector<std::string> Codes() const {
    std::vector<std::string> codes;
    for (std::int32_t row = MemberRows::kFirstItem; row < MemberRows::kFirstItem + rows_.Items();
         ++row) {
      codes.push_back(Utf8(rows_.Text(member_columns::kCode, row)));
    }
    return codes;
  }

  std::vector<std::int32_t> selected;

 private:
  CallLog log_;
  MemberRows rows_;
};

}  // namespace pricedown::testing
