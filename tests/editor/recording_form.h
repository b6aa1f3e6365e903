// The windows of the item class form in a test: what they show, in the log and to be asked for.
// They decide nothing; the test plays the user.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "editor/item_class_form.h"
#include "tests/support/call_log.h"
#include "tests/support/recording_factory.h"

namespace pricedown::testing {

std::string NameOf(FormField field);

class RecordingFormView : public ItemClassFormView {
 public:
  RecordingFormView(CallLog log, RecordingFactory& factory)
      : log_(std::move(log)), factory_(factory) {}

  std::u16string Text(FormField field) const override;
  void SetText(FormField field, std::u16string_view text) override;
  void Focus(FormField field) override;
  void SetCaption(FormCaption target, std::u16string_view text) override;
  void SetToolTexts(FormTool tool, std::u16string_view caption,
                    std::u16string_view toolTip) override;
  void SetToolEnabled(FormTool tool, bool enabled) override;
  ObjectPtr FormObject() override { return factory_.NewObject(u"form"); }
  void Unload() override;

  // The user's hand: the text changes and the change is reported, nothing is logged here.
  void Type(FormField field, std::u16string_view text);

  // Where changes are reported; may be null.
  ItemClassForm* form = nullptr;
  std::map<FormTool, bool> tools;  // absent: as designed

 private:
  CallLog log_;
  RecordingFactory& factory_;
  std::map<FormField, std::u16string> texts_;
};

class RecordingGridView : public MemberGridView {
 public:
  explicit RecordingGridView(CallLog log) : log_(std::move(log)) {}

  void SetColumnWidth(std::int32_t column, std::int32_t twips) override;
  std::int32_t RowCount() const override { return rowCount_; }
  void SetRowCount(std::int32_t count) override;
  void Reload() override;
  std::vector<std::int32_t> SelectedRows() const override { return selected; }
  // The text between the separators.
  std::u16string Text(std::int32_t column, std::int32_t row) const override;

  // Asks the form for all rows when they are due, as before painting.
  void Paint();
  // The rows as the form gave them.
  const std::vector<std::u16string>& Rows() const { return rows_; }
  std::string RowTexts() const;

  ItemClassForm* form = nullptr;
  std::vector<std::int32_t> selected;

 private:
  CallLog log_;
  std::int32_t rowCount_ = 0;
  bool due_ = false;
  std::vector<std::u16string> rows_;
};

}  // namespace pricedown::testing
