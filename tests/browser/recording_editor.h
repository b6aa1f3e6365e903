// The item class form of a test with recording windows: the browser prepares it, the test plays
// the user while it is shown.
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

// Log lines: editor form, editor show, the calls of the form's windows, editor closed.
class RecordingEditor : public ItemClassEditor {
 public:
  // `environment` must outlive the editor.
  RecordingEditor(Environment& environment, RecorderPtr recorder, const CallLog& log)
      : view(log), grid(log), recorder_(std::move(recorder)), form_(environment, view, grid) {
    view.form = &form_;
    grid.form = &form_;
  }

  ItemClassForm& Form() override {
    recorder_->Call("editor form", u"editor");
    if (form_.State().loaded) {
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
      grid.Paint();
      if (whileShown) whileShown();
      if (form_.State().loaded) form_.CloseByFrame();
    } catch (...) {
      form_.Unload();
      throw;
    }
    recorder_->Add("editor closed");
  }

  // The current form, whoever shows it.
  ItemClassForm& Shown() { return form_; }
  // A click on a tool, and what the window does afterwards.
  void Click(std::u16string_view key) {
    form_.ToolClicked(key);
    grid.Paint();
  }
  // Whether nothing of an earlier preparation is left in the form.
  bool IsClean() const {
    const FormState& state = form_.State();
    return !state.loaded && !state.memberList && !state.secondRecordSet && state.mode == 0 &&
           state.openingNumber.empty() && state.year == 0 && state.period == 0;
  }

  RecordingFormView view;
  RecordingMemberListView grid;
  // What the user does; if empty, the user closes the form by its frame at once.
  std::function<void()> whileShown;

 private:
  // What the browser has set: mode 0 "01" 2008/3.
  std::string Prepared() const {
    const FormState& state = form_.State();
    return "mode " + std::to_string(state.mode) + " " + Quoted(state.openingNumber) + " " +
           std::to_string(state.year) + "/" + std::to_string(state.period);
  }

  RecorderPtr recorder_;
  ItemClassForm form_;
};

}  // namespace pricedown::testing
