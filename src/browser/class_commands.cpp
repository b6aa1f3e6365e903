// Deleting a class: question, guards, the two deletes, the reload.
// Nothing is trapped here: a failure ends the command and reaches its caller.
#include "browser/class_commands.h"

#include <string>

#include "env/system_profile.h"
#include "env/translation.h"
#include "platform/convert.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {

bool ClassCommands::RequireClass(std::u16string_view message) {
  const Recordset& items = state_.itemRecordset;
  if (items && items.RecordCount() != 0) return true;
  environment_.messages.Inform(Translate(message));
  return false;
}

bool ClassCommands::IsConfirmed(std::u16string_view number, std::u16string_view name) {
  return environment_.messages.Ask(
      Concatenate({Translate(u"确定要删除当前记录? 当前的物料类别代码为:"), number,
                   Translate(u"  物料类别名称为:"), name}),
      MessageIcon::Question);
}

void ClassCommands::Delete() {
  if (!RequireClass(u"请选择要删除的物料类别")) return;
  const Recordset items = state_.itemRecordset;
  items.MoveFirst();
  const std::u16string number = ToText(items.Field(columns::kItemClassNumber));
  const std::u16string name = ToText(items.Field(columns::kItemClassName));
  if (!IsConfirmed(number, name)) return;
  if (!DeleteGuarded(number)) return;
  tree_.LoadClassTree();
  tree_.SelectAndClick(kRootKey);
}

bool ClassCommands::DeleteGuarded(std::u16string_view number) {
  const auto [year, period] = ReadYearAndPeriod(environment_.factory, u"IC");
  Connection connection(environment_.factory);
  if (connection.Execute(statements::ProvisionVoucher(year, period)).RecordCount() > 0) {
    environment_.messages.Inform(Translate(u"本期跌价准备数据已经生成凭证，不得删除物料类别！"));
    return false;
  }
  if (connection.Execute(statements::ClassHistory(year, period, number)).RecordCount() > 0) {
    environment_.messages.Inform(Translate(u"该物料类别在以前期间已有业务发生，不得删除！"));
    return false;
  }
  connection.Execute(statements::DeleteClassProvision(year, period, number));
  connection.Execute(statements::DeleteClass(number));
  return true;
}

}  // namespace pricedown
