// The guard item by item: history, voucher, current amounts, delete. Items are identified by code,
// as the provision run does.
#include "editor/removal_guard.h"

#include "env/system_profile.h"
#include "env/translation.h"
#include "platform/skip.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"

namespace pricedown {
namespace {

// Whether the result exists and has rows; an unknown count is none.
bool HasRows(const Recordset& answer) { return answer && answer.RecordCount() > 0; }

class RemovalGuard {
 public:
  RemovalGuard(FormContext& form, const YearAndPeriod& current) : form_(form), current_(current) {}

  // Whether the selected row has left the list: false when refused, and when several rows have the
  // code, because the first of them is deleted.
  bool Remove(const std::u16string& code) {
    const Recordset& members = form_.state.memberList;
    members.SetFilter(Concatenate({u"fNumber='", code, u"'"}));
    Connection connection(form_.environment.factory);
    const bool isOnlyOne = members.RecordCount() == 1;
    const Recordset history =
        connection.Execute(statements::ItemHistory(current_.year, current_.period, code));
    const bool hasHistory = HasRows(history);
    // Each call to the suite may run messages in which the form ends and releases its state.
    if (form_.HasEnded()) return false;
    if (hasHistory) {
      Refuse(code, u")在以前期间已有业务发生，不得删除！");
      return false;
    }
    const Recordset voucher =
        connection.Execute(statements::ProvisionVoucher(current_.year, current_.period));
    const Recordset amounts =
        connection.Execute(statements::ItemCurrentAmounts(current_.year, current_.period, code));
    const bool hasVoucher = HasRows(voucher);
    const bool hasAmounts = hasVoucher && HasRows(amounts);
    if (form_.HasEnded()) return false;
    if (!hasVoucher) {
      connection.Run(statements::DeleteItemProvision(
          current_.year, current_.period, code,
          voucher ? statements::DeleteForm::TwoBlanks : statements::DeleteForm::NoAlias));
      if (form_.HasEnded()) return false;
    } else if (hasAmounts) {
      Refuse(code, u")本期跌价准备数据已经生成凭证，不得删除！");
      return false;
    }
    members.Delete();
    members.Update();
    return isOnlyOne;
  }

 private:
  void Refuse(const std::u16string& code, std::u16string_view reason) {
    form_.environment.messages.Inform(
        Concatenate({Translate(u"该物料("), code, Translate(reason)}));
  }

  FormContext& form_;
  YearAndPeriod current_;
};

// Without the filter, or a save would write the filtered item alone.
void ShowRemaining(FormContext& form) {
  form.state.memberList.SetFilter({});
  CountRows(form);
}

}  // namespace

void RemoveSelectedItems(FormContext& form) {
  const YearAndPeriod current = ReadYearAndPeriod(form.environment.factory, u"IC");
  const Recordset& members = form.state.memberList;
  if (members.RecordCount() == 0) return;
  members.MoveFirst();
  RemovalGuard guard(form, current);
  try {
    for (const std::int32_t row : form.members.SelectedRows()) {
      const bool rowLeft =
          guard.Remove(std::u16string(form.state.rows.Text(member_columns::kCode, row)));
      // The form may have closed while a message was open.
      if (form.HasEnded()) return;
      if (rowLeft) form.state.rows.Remove(row);
    }
    ShowRemaining(form);
  } catch (...) {
    SkipFailing([&form] { ShowRemaining(form); });
    throw;
  }
}

}  // namespace pricedown
