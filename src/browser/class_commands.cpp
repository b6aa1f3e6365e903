// Each command with its questions, its statements and the form that it opens.
#include "browser/class_commands.h"

#include <optional>
#include <string>
#include <utility>

#include "editor/member_list.h"
#include "editor/record_copy.h"
#include "env/system_profile.h"
#include "env/translation.h"
#include "env/wait_cursor.h"
#include "platform/convert.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {
namespace {

constexpr std::int16_t kEditMode = 0;

}  // namespace

void ClassCommands::Add() { Open(&ClassCommands::PrepareAdd); }

void ClassCommands::Edit() {
  if (RequireClass(u"请选择要修改的物料类别")) Open(&ClassCommands::PrepareEdit);
}

// Fails at once while the form is shown. The form gets everything in one go, because the calls of
// the preparation may fail, or run messages in which another command uses it. This object may be
// destroyed while the form is shown.
void ClassCommands::Open(Preparation (ClassCommands::*prepare)()) {
  ItemClassForm& form = editor_.Form();
  Preparation prepared = (this->*prepare)();
  if (environment_.lifetime.HasEnded()) return;
  form.SetMode(prepared.mode);
  form.SetOpeningNumber(std::move(prepared.openingNumber));
  form.SetMemberList(std::move(prepared.memberList));
  form.SetSecondRecordSet(std::move(prepared.secondRecordSet));
  ReportEvents(form);
  editor_.ShowModal();
}

ClassCommands::Preparation ClassCommands::PrepareAdd() {
  const Recordset members = Recordset::Create(environment_.factory);
  AppendMemberFields(members);
  const Recordset second = Recordset::Create(environment_.factory);
  AppendMemberFields(second);
  members.Open();
  second.Open();
  return {kAddMode, {}, members, second};
}

// The form may outlive the control.
void ClassCommands::ReportEvents(ItemClassForm& form) {
  if (environment_.events == nullptr) return;
  form.OnSaved([events = environment_.events, lifetime = environment_.lifetime](
                   bool added, std::u16string_view number) {
    if (lifetime.HasEnded()) return;
    events->ClassChanged(added ? ClassChange::Added : ClassChange::Changed, number);
  });
  form.OnFailed(
      [events = environment_.events, lifetime = environment_.lifetime](const Failure& failure) {
        if (!lifetime.HasEnded()) events->Failed(failure);
      });
}

ClassCommands::Preparation ClassCommands::PrepareEdit() {
  const WaitCursor wait(environment_.screen);
  Preparation prepared;
  prepared.mode = kEditMode;
  {
    const Recordset items = state_.itemRecordset;
    // Unused here, but part of the calls that the suite's recordset sees.
    items.RecordCount();
    items.MoveFirst();
    prepared.openingNumber = ToText(items.Field(columns::kItemClassNumber));
    prepared.memberList = CopyRecords(environment_.factory, items);
    state_.itemRecordset.Release();
  }
  prepared.secondRecordSet = CopyRecords(environment_.factory, prepared.memberList);
  return prepared;
}

bool ClassCommands::RequireClass(std::u16string_view message) {
  const Recordset items = state_.itemRecordset;
  const bool found = items && items.RecordCount() != 0;
  // The call may have ended the control.
  if (environment_.lifetime.HasEnded()) return false;
  if (!found) environment_.messages.Inform(Translate(message));
  return found;
}

bool ClassCommands::IsConfirmed(std::u16string_view number, std::u16string_view name) {
  return environment_.messages.Ask(
      Concatenate({Translate(u"确定要删除当前记录? 当前的物料类别代码为:"), number,
                   Translate(u"  物料类别名称为:"), name}),
      MessageIcon::Question);
}

void ClassCommands::Delete() {
  if (!RequireClass(u"请选择要删除的物料类别")) return;
  std::u16string number;
  std::u16string name;
  {
    const Recordset items = state_.itemRecordset;
    items.MoveFirst();
    number = ToText(items.Field(columns::kItemClassNumber));
    name = ToText(items.Field(columns::kItemClassName));
  }
  // A copy: the control may have ended when the rows are read or the question is answered.
  const Lifetime lifetime = environment_.lifetime;
  if (lifetime.HasEnded() || !IsConfirmed(number, name) || lifetime.HasEnded()) return;
  if (!DeleteGuarded(number) || lifetime.HasEnded()) return;
  environment_.Notify(&HostEvents::ClassChanged, ClassChange::Deleted, number);
  if (lifetime.HasEnded()) return;
  tree_.LoadClassTree();
  if (!lifetime.HasEnded()) tree_.SelectRoot();
}

bool ClassCommands::DeleteGuarded(std::u16string_view number) {
  std::optional<WaitCursor> wait(std::in_place, environment_.screen);
  const auto [year, period] = ReadYearAndPeriod(environment_.factory, u"IC");
  if (environment_.lifetime.HasEnded()) return false;
  Connection connection(environment_.factory);
  const auto guard = [&](const std::u16string& statement, std::u16string_view refusal) {
    // Each call to the suite may end the control.
    if (environment_.lifetime.HasEnded()) return false;
    const bool refuses = connection.Execute(statement).RecordCount() > 0;
    if (environment_.lifetime.HasEnded()) return false;
    if (!refuses) return true;
    wait.reset();
    environment_.messages.Inform(Translate(refusal));
    return false;
  };
  if (!guard(statements::ProvisionVoucher(year, period),
             u"本期跌价准备数据已经生成凭证，不得删除物料类别！") ||
      !guard(statements::ClassHistory(year, period, number),
             u"该物料类别在以前期间已有业务发生，不得删除！")) {
    return false;
  }
  connection.Run(statements::DeleteClassProvision(year, period, number));
  connection.Run(statements::DeleteClass(number));
  return true;
}

}  // namespace pricedown
