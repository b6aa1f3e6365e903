// The guard item by item: history, voucher, current amounts, delete.
// Items are told by their code, as the provision run does.
#include "editor/removal_guard.h"

#include "env/system_profile.h"
#include "env/translation.h"
#include "platform/skip.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"

namespace pricedown {
namespace {

// The answer exists and has rows; an unknown count is none.
bool HasRows(const Recordset& answer) { return answer && answer.RecordCount() > 0; }

class RemovalGuard {
 public:
  RemovalGuard(FormParts& form, const YearAndPeriod& current) : form_(form), current_(current) {}

  void Remove(const std::u16string& code) {
    const Recordset& members = form_.state.memberList;
    members.SetFilter(Concatenate({u"fNumber='", code, u"'"}));
    Connection connection(form_.environment.factory);
    const Recordset history =
        connection.Execute(statements::ItemHistory(current_.year, current_.period, code));
    if (HasRows(history)) {
      Refuse(code, u")在以前期间已有业务发生，不得删除！");
      return;
    }
    const Recordset voucher =
        connection.Execute(statements::ProvisionVoucher(current_.year, current_.period));
    const Recordset amounts =
        connection.Execute(statements::ItemCurrentAmounts(current_.year, current_.period, code));
    if (!HasRows(voucher)) {
      connection.Execute(statements::DeleteItemProvision(
          current_.year, current_.period, code,
          voucher ? statements::DeleteForm::TwoBlanks : statements::DeleteForm::NoAlias));
    } else if (HasRows(amounts)) {
      Refuse(code, u")本期跌价准备数据已经生成凭证，不得删除！");
      return;
    }
    members.Delete();
    members.Update();
  }

 private:
  void Refuse(const std::u16string& code, std::u16string_view reason) {
    form_.environment.messages.Inform(
        Concatenate({Translate(u"该物料("), code, Translate(reason)}));
  }

  FormParts& form_;
  YearAndPeriod current_;
};

// Without the filter, or a save would write the filtered item alone.
void ShowRemaining(FormParts& form) {
  const Recordset& members = form.state.memberList;
  members.SetFilter({});
  const std::int32_t count = members.RecordCount();
  form.grid.SetRowCount(count + 1);
  if (count > 0) members.MoveFirst();
  form.grid.Reload();
}

}  // namespace

void RemoveSelectedItems(FormParts& form) {
  const YearAndPeriod current = ReadYearAndPeriod(form.environment.factory, u"IC");
  const Recordset& members = form.state.memberList;
  if (members.RecordCount() == 0) return;
  members.MoveFirst();
  RemovalGuard guard(form, current);
  try {
    for (const std::int32_t row : form.grid.SelectedRows()) {
      guard.Remove(form.grid.Text(member_columns::kCode, row));
      // The form may have gone under a refusal's message.
      if (!form.state.loaded) return;
    }
    ShowRemaining(form);
  } catch (...) {
    SkipFailing([&form] { ShowRemaining(form); });
    throw;
  }
}

}  // namespace pricedown
