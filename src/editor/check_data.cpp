// The checks, in their order: the database is asked only when the fields themselves are right.
#include "editor/check_data.h"

#include "editor/save_step.h"
#include "env/translation.h"
#include "platform/cell_text.h"
#include "platform/row_reader.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {
namespace {

using Result = std::optional<CheckFailure>;

CheckFailure Wrong(std::u16string_view message, std::optional<FormField> field) {
  return {Translate(message), field};
}

Result CheckPercentage(const TypedHeader& header) {
  constexpr FormField kField = FormField::Percentage;
  if (!header.wholePercentage) {
    return Wrong(u"请输入数字，跌价比例不能为字符或为空值", kField);
  }
  const double percentage = *header.wholePercentage;
  if (percentage < kMinimumPercentage || percentage > kMaximumPercentage) {
    return Wrong(u"跌价比例有误,数值应位于0-100之间", kField);
  }
  // A value below 10 that fills the field has five decimals, or is refused as if it had.
  if (percentage < 10 && header.percentageLength == MaximumLength(kField)) {
    return Wrong(u"跌价比例小数位过长，请保留四位小数", kField);
  }
  return std::nullopt;
}

Result CheckAccounts(const ClassHeader& header, Connection& connection) {
  const Recordset accounts = connection.Execute(statements::AccountNumbers());
  bool lossFound = false;
  bool reserveFound = false;
  RowReader rows(accounts, {columns::kNumber});
  std::u16string scratch;
  while (rows.Next()) {
    const std::u16string_view number = CellText(rows.Field(0), scratch);
    if (number.empty()) continue;  // an empty field matches no account
    lossFound = lossFound || number == header.lossAccount;
    reserveFound = reserveFound || number == header.reserveAccount;
  }
  if (!lossFound) {
    return Wrong(u"请输入正确的存货跌价损失科目代码！", FormField::LossAccount);
  }
  if (!reserveFound) {
    return Wrong(u"请输入正确的存货跌价准备科目代码！", FormField::ReserveAccount);
  }
  return std::nullopt;
}

Result CheckUnique(const FormState& state, const ClassHeader& header, Connection& connection) {
  const std::u16string number = UpperCase(header.number);
  const Recordset classes =
      connection.Execute(state.IsAdding() ? statements::ClassNumbers()
                                          : statements::OtherClassNumbers(state.openingNumber));
  RowReader rows(classes, {columns::kItemClassNumber});
  std::u16string scratch;
  while (rows.Next()) {
    const std::u16string_view other = CellText(rows.Field(0), scratch);
    // Upper case keeps the length, so most rows need no conversion.
    if (other.size() != number.size() || UpperCase(other) != number) continue;
    return CheckFailure{Concatenate({Translate(u"已经存在代码为:"), other,
                                     Translate(u"的物料类别,请重新输入物料类别代码！")}),
                        FormField::ClassNumber};
  }
  return std::nullopt;
}

}  // namespace

std::optional<CheckFailure> CheckData(const FormState& state, const TypedHeader& header,
                                      ObjectFactory& factory) {
  if (header.number.empty()) {
    CheckFailure failure = Wrong(u"请输入数字,物料类别代码不能为空！", FormField::ClassNumber);
    failure.keepsSavedFlag = true;
    return failure;
  }
  if (header.name.empty()) {
    return Wrong(u"请输入物料类别名称，物料类别名称不能为为空值", FormField::ClassName);
  }
  if (auto failure = CheckPercentage(header)) return failure;
  if (state.memberList.RecordCount() == 0) {
    return Wrong(u"无物料的物料类别没有意义,请添加物料", std::nullopt);
  }
  std::optional<Connection> connection;
  const std::u16string accounts = Concatenate({header.lossAccount, u"、", header.reserveAccount});
  Result failure = RunSaveStep(u"检查科目失败，科目代码：", accounts,
                               [&] { return CheckAccounts(header, connection.emplace(factory)); });
  if (failure) return failure;
  return RunSaveStep(u"检查物料类别代码失败，物料类别代码：", header.number,
                     [&] { return CheckUnique(state, header, *connection); });
}

}  // namespace pricedown
