// The checks, in their order.
// The database is asked only when the fields themselves are right.
#include "editor/check_data.h"

#include <optional>

#include "env/translation.h"
#include "platform/cell_text.h"
#include "platform/row_reader.h"
#include "platform/text.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {
namespace {

constexpr double kLeastPercentage = 0;
constexpr double kMostPercentage = 100;

// What is wrong, and where.
struct Failure {
  std::u16string message;
  std::optional<FormField> field;
};

Failure Wrong(std::u16string_view message, std::optional<FormField> field) {
  return {Translate(message), field};
}

std::optional<Failure> CheckPercentage(const std::u16string& text) {
  constexpr FormField kField = FormField::Percentage;
  if (!IsNumeric(text)) return Wrong(u"请输入数字，跌价比例不能为字符或为空值", kField);
  const double percentage = ToDouble(text);
  if (percentage < kLeastPercentage || percentage > kMostPercentage) {
    return Wrong(u"跌价比例有误,数值应位于0-100之间", kField);
  }
  // A value below 10 that fills the field has five decimals, or is refused as if it had.
  if (percentage < 10 && text.size() == MaximumLength(kField)) {
    return Wrong(u"跌价比例小数位过长，请保留四位小数", kField);
  }
  return std::nullopt;
}

std::optional<Failure> CheckAccounts(FormParts& form, Connection& connection) {
  const std::u16string loss = form.view.Text(FormField::LossAccount);
  const std::u16string reserve = form.view.Text(FormField::ReserveAccount);
  const Recordset accounts = connection.Execute(statements::AccountNumbers());
  bool lossFound = false;
  bool reserveFound = false;
  RowReader rows(accounts, {columns::kNumber});
  std::u16string scratch;
  while (rows.Next()) {
    const std::u16string_view number = CellText(rows.Field(0), scratch);
    if (number.empty()) continue;  // an empty field matches no account
    lossFound = lossFound || number == loss;
    reserveFound = reserveFound || number == reserve;
  }
  if (!lossFound) {
    return Wrong(u"请输入正确的存货跌价损失科目代码！", FormField::LossAccount);
  }
  if (!reserveFound) {
    return Wrong(u"请输入正确的存货跌价准备科目代码！", FormField::ReserveAccount);
  }
  return std::nullopt;
}

std::optional<Failure> CheckUnique(FormParts& form, Connection& connection) {
  const std::u16string number = UpperCase(form.view.Text(FormField::ClassNumber));
  const Recordset classes = connection.Execute(
      form.state.IsAdding() ? statements::ClassNumbers()
                            : statements::OtherClassNumbers(form.state.openingNumber));
  RowReader rows(classes, {columns::kItemClassNumber});
  std::u16string scratch;
  while (rows.Next()) {
    const std::u16string_view other = CellText(rows.Field(0), scratch);
    // Upper case keeps the length, so most rows need no conversion.
    if (other.size() != number.size() || UpperCase(other) != number) continue;
    return Failure{Concatenate({Translate(u"已经存在代码为:"), other,
                                Translate(u"的物料类别,请重新输入物料类别代码！")}),
                   FormField::ClassNumber};
  }
  return std::nullopt;
}

// The checks behind the first one.
std::optional<Failure> FindFailure(FormParts& form) {
  if (form.view.Text(FormField::ClassName).empty()) {
    return Wrong(u"请输入物料类别名称，物料类别名称不能为为空值", FormField::ClassName);
  }
  if (auto failure = CheckPercentage(form.view.Text(FormField::Percentage))) return failure;
  if (form.state.memberList.RecordCount() == 0) {
    return Wrong(u"无物料的物料类别没有意义,请添加物料", std::nullopt);
  }
  Connection connection(form.environment.factory);
  if (auto failure = CheckAccounts(form, connection)) return failure;
  return CheckUnique(form, connection);
}

void Tell(FormParts& form, const Failure& failure) {
  form.environment.messages.Inform(failure.message);
  if (failure.field) form.view.Focus(*failure.field);
}

}  // namespace

bool CheckData(FormParts& form) {
  // This failure alone leaves the saved flag as it is.
  if (form.view.Text(FormField::ClassNumber).empty()) {
    Tell(form, Wrong(u"请输入数字,物料类别代码不能为空！", FormField::ClassNumber));
    return false;
  }
  const std::optional<Failure> failure = FindFailure(form);
  form.state.saved = !failure;
  if (failure) Tell(form, *failure);
  return form.state.saved;
}

}  // namespace pricedown
