// The item class form with recording views on a real company: the stand-in suite and its database.
#pragma once

#include "editor/item_class_form.h"
#include "editor/member_list.h"
#include "editor/record_copy.h"
#include "store/connection.h"
#include "store/statements.h"
#include "tests/editor/recording_form.h"
#include "tests/env/recording_screen.h"
#include "tests/integration/class_company.h"
#include "tests/support/recording_questions.h"

namespace workbench {

class EditorOnCompany : public ClassCompany {
 protected:
  EditorOnCompany() { view.form = &form; }

  void OpenForAdd() {
    pricedown::Recordset members = pricedown::Recordset::Create(factory_);
    pricedown::AppendMemberFields(members);
    members.Open();
    form.SetMemberList(members);
    form.SetMode(pricedown::kAddMode);
    Show();
  }
  // As the browser does: a copy of the rows that the grid shows.
  void OpenForEdit(std::u16string_view number) {
    const pricedown::Recordset rows =
        pricedown::Connection(factory_).Execute(pricedown::statements::ItemsOfClass(number));
    form.SetMode(0);
    form.SetOpeningNumber(std::u16string(number));
    form.SetMemberList(pricedown::CopyRecords(factory_, rows));
    form.SetSecondRecordSet(pricedown::CopyRecords(factory_, form.MemberList()));
    Show();
  }
  void Type(std::u16string_view number, std::u16string_view name, std::u16string_view percentage) {
    view.Type(pricedown::FormField::ClassNumber, number);
    view.Type(pricedown::FormField::ClassName, name);
    view.Type(pricedown::FormField::LossAccount, u"5711");
    view.Type(pricedown::FormField::ReserveAccount, u"1281.1");
    view.Type(pricedown::FormField::Percentage, percentage);
    log.Clear();
  }
  void Click(pricedown::FormTool tool) { form.ToolClicked(tool); }
  void Pick(std::vector<std::int32_t> ids) {
    pickers->items.push_back(std::move(ids));
    Click(pricedown::FormTool::AddItem);
  }

  pricedown::testing::CallLog log;
  pricedown::testing::RecordingQuestions questions{log};
  pricedown::testing::RecordingScreen screen{std::make_shared<pricedown::testing::Recorder>(log)};
  pricedown::ThreadState state;
  pricedown::Environment environment{factory_, state, questions, screen, u"Host"};
  pricedown::testing::RecordingFormView view{log};
  pricedown::testing::RecordingMemberListView list{log};
  pricedown::ItemClassForm form{environment, view, list};

 private:
  void Show() {
    form.Load();
    log.Clear();
  }
};

}  // namespace workbench
