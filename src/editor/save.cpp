// The steps of a save behind the checks.
// Delete and inserts travel as one text, so that a text that cannot be parsed changes nothing.
#include "editor/save.h"

#include "editor/change_check.h"
#include "editor/check_data.h"
#include "editor/member_list.h"
#include "editor/record_copy.h"
#include "platform/cell_text.h"
#include "platform/row_reader.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {
namespace {

// Puts the fields into every row, unless the rows carry them already.
void UpdateHeaders(FormParts& form) {
  if (Check(form) && !form.state.headersMixed) return;
  const Recordset& members = form.state.memberList;
  const ClassHeader header = ReadHeader(form.view);
  const BoundFields fields(
      members, {columns::kItemClassNumber, columns::kItemClassName, columns::kLossAccountNumber,
                columns::kReserveAccountNumber, columns::kPercentage});
  form.state.headersMixed = true;
  while (!members.AtEnd()) {
    fields.Set(0, header.number);
    fields.Set(1, header.name);
    fields.Set(2, header.lossAccount);
    fields.Set(3, header.reserveAccount);
    fields.Set(4, header.percentage);
    members.Update();
    members.MoveNext();
  }
  form.state.headersMixed = false;
}

// The id of the account whose number is the leading number of the text. The way through a number
// is how the suite keeps looking it up.
std::int32_t AccountId(FormParts& form, FormField field) {
  const std::u16string number = NumberText(LeadingNumber(form.view.Text(field)));
  Connection connection(form.environment.factory);
  const Recordset account = connection.Execute(statements::AccountId(number));
  account.MoveFirst();
  return RoundToInt32(LeadingNumber(ToText(account.Field(columns::kAccountId))));
}

}  // namespace

std::u16string SaveText(const FormState& state) {
  const std::u16string lossId = NumberText(state.lossAccountId);
  const std::u16string reserveId = NumberText(state.reserveAccountId);
  std::u16string text = statements::SaveDelete(state.openingNumber);
  RowReader rows(state.memberList, {columns::kItemId, columns::kItemClassNumber,
                                    columns::kItemClassName, columns::kLossAccountNumber,
                                    columns::kReserveAccountNumber, columns::kPercentage});
  std::u16string scratch[6];
  const auto cell = [&](std::size_t index) { return CellText(rows.Field(index), scratch[index]); };
  while (rows.Next()) {
    statements::AppendSaveInsert(
        text, {cell(0), cell(1), cell(2), lossId, cell(3), reserveId, cell(4), cell(5)});
  }
  return text;
}

bool SaveClass(FormParts& form) {
  if (!CheckData(form)) return false;
  FormState& state = form.state;
  UpdateHeaders(form);
  state.keptCopy = CopyList(form.environment.factory, state.memberList);
  state.memberList.MoveFirst();
  state.lossAccountId = AccountId(form, FormField::LossAccount);
  state.reserveAccountId = AccountId(form, FormField::ReserveAccount);
  state.savedValues = ReadHeader(form.view);
  Connection(form.environment.factory).Execute(SaveText(state));
  state.saved = true;
  return true;
}

}  // namespace pricedown
