// The whole control on a small company: only windows and user are fakes.
// The user of the item class form is a script of the test; all else goes through the control's
// public members.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "control/price_down.h"
#include "tests/browser/page_keeper.h"
#include "tests/browser/recording_editor.h"
#include "tests/browser/recording_views.h"
#include "tests/control/button.h"
#include "tests/control/recording_control_views.h"
#include "tests/integration/class_company.h"
#include "tests/integration/counting_factory.h"
#include "tests/support/recording_questions.h"

namespace workbench {

class ControlOnCompany : public ClassCompany {
 protected:
  ControlOnCompany() {
    suite_->SetProfile(u"IC", u"PriceDownPrepare", u"1");
    suite_->SetRightsMask(1002, 35, 0x430000);
  }
  ~ControlOnCompany() override { control.reset(); }

  void Open() {
    auto paper = std::make_unique<pricedown::testing::PageKeeper>();
    control = std::make_unique<pricedown::PriceDown>(
        pricedown::PriceDownPorts{factory, state, questions, screen, container, window, treeView,
                                  fontView, u"Host", nullptr, editor, *paper});
    // The previous control still used the previous one.
    output = std::move(paper);
    control->Initialize();
    control->Show(nullptr);
    log.Clear();
  }
  void Select(std::u16string_view number) {
    const std::u16string key = pricedown::Concatenate({u"gi", number});
    treeView.selected = control->Nodes().FindKey(key);
    control->NodeClicked(treeView.selected);
  }
  // A click on a button of the tool strip, and the user's work in the form if it opens.
  void Command(std::u16string_view button, std::function<void()> work = {}) {
    editor.whileShown = std::move(work);
    control->CommandChosen(pricedown::testing::Button(button));
    editor.whileShown = {};
  }

  // The user's actions in the form.
  void Type(pricedown::FormField field, std::u16string_view text) { editor.view.Type(field, text); }
  void Type(std::u16string_view number, std::u16string_view name, std::u16string_view percentage) {
    Type(pricedown::FormField::ClassNumber, number);
    Type(pricedown::FormField::ClassName, name);
    Type(pricedown::FormField::LossAccount, u"5711");
    Type(pricedown::FormField::ReserveAccount, u"1281.1");
    Type(pricedown::FormField::Percentage, percentage);
  }
  void Pick(std::vector<std::int32_t> ids) {
    pickers->items.push_back(std::move(ids));
    editor.Click(pricedown::FormTool::AddItem);
  }
  void Remove(std::vector<std::int32_t> rows) {
    editor.list.selected = std::move(rows);
    editor.Click(pricedown::FormTool::DelItem);
  }

  // The messages and questions, without the title.
  std::string Messages() const {
    std::string text;
    for (const std::string& line : log.Lines()) {
      if (line.starts_with("message ") || line.starts_with("ask ")) {
        text += line.substr(line.find(": ") + 2) + "\n";
      }
    }
    return text;
  }
  // The codes in the grid beside the tree.
  std::string GridCodes() {
    std::string codes;
    for (std::int32_t row = 1; row <= control->GetGrid().MaxRows(); ++row) {
      codes += pricedown::ToUtf8(control->GetGrid().Text(1, row)) + " ";
    }
    return codes;
  }
  std::string Tree() const {
    std::string texts;
    for (const auto& [node, text] : treeView.texts) texts += text + " ";
    return texts;
  }

  pricedown::testing::CallLog log;
  pricedown::testing::RecorderPtr recorder = std::make_shared<pricedown::testing::Recorder>(log);
  // Only the suite's calls fail; the windows have their own counter.
  pricedown::testing::RecorderPtr windows = std::make_shared<pricedown::testing::Recorder>(log);
  CountingFactory factory{factory_, recorder};
  pricedown::testing::RecordingQuestions questions{log};
  pricedown::testing::RecordingScreen screen{windows};
  pricedown::testing::RecordingContainer container{windows};
  pricedown::testing::RecordingPriceDownView window{windows};
  pricedown::testing::RecordingTreeView treeView{windows};
  pricedown::testing::RecordingFontView fontView{windows};
  pricedown::ThreadState state;
  pricedown::Environment formEnvironment{factory, state, questions, screen, u"Host"};
  pricedown::testing::RecordingEditor editor{formEnvironment, windows, log};
  std::unique_ptr<pricedown::testing::PageKeeper> output;
  std::unique_ptr<pricedown::PriceDown> control;
};

}  // namespace workbench
