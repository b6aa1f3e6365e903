// The item class form with recording views, prepared by the browser and driven by the test.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "editor/class_editor.h"
#include "platform/convert.h"
#include "platform/error.h"
#include "tests/editor/recording_form.h"
#include "tests/support/recorder.h"

namespace pricedown::testing {

// Log lines: editor form, editor show, the calls of the form's views, editor closed.
class RecordingEditor : public ItemClassEditor {
 public:
  // `environment` must outlive the editor.
  RecordingEditor(Environment& environment, RecorderPtr recorder, const CallLog& log)
      : view(log), list(log), recorder_(std::move(recorder)), form_(environment, view, list) {
    view.form = &form_;
  }

  ItemClassForm& Form() override {
    recorder_->Call("editor form", u"editor");
    if (form_.IsLoaded()) {
      throw AutomationError(ErrorNumber::Unspecified, u"物料类别维护窗口已经打开", u"frmItemClass");
    }
    return form_;
  }

  void ShowModal() override {
    // Once the command has its form, a failed showing has nothing left to clean up.
    try {
      recorder_->Add("editor show " + Prepared());
      recorder_->QuietCall("editor window", u"editor");
      form_.Load();
      if (whileShown) whileShown();
      if (form_.IsLoaded()) form_.Unload();
    } catch (...) {
      form_.Unload();
      throw;
    }
    recorder_->Add("editor closed");
  }

  // The current form.
  ItemClassForm& Shown() { return form_; }
  void Click(FormTool tool) { form_.ToolClicked(tool); }
  // Whether nothing of an earlier preparation is left in the form.
  bool IsClean() const {
    const FormState& state = form_.State();
    return !form_.IsLoaded() && !state.memberList && !state.secondRecordSet && state.mode == 0 &&
           state.openingNumber.empty();
  }

  RecordingFormView view;
  RecordingMemberListView list;
  // What the user does; if empty, the user closes the form by its frame at once.
  std::function<void()> whileShown;

 private:
  // What the browser has set: mode 0 "01".
  std::string Prepared() const {
    const FormState& state = form_.State();
    return "mode " + std::to_string(state.mode) + " " + Quoted(state.openingNumber);
  }

  RecorderPtr recorder_;
  ItemClassForm form_;
};

}  // namespace pricedown::testing
