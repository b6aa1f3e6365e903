// Steps of a save. Delete and inserts travel as one text, so that a text that cannot be parsed
// changes nothing.
#include "editor/save.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "editor/change_check.h"
#include "editor/check_data.h"
#include "editor/member_list.h"
#include "editor/record_copy.h"
#include "editor/save_step.h"
#include "platform/bound_fields.h"
#include "platform/cell_text.h"
#include "platform/row_reader.h"
#include "store/connection.h"
#include "store/statements.h"
#include "store/tables.h"

namespace pricedown {
namespace {

// Puts the header into every row, unless the rows carry it already.
void UpdateHeaders(FormState& state, const TypedHeader& header) {
  const Recordset& members = state.memberList;
  if (CarriesHeader(members, header) && !state.headersMixed) return;
  const BoundFields fields(
      members, {columns::kItemClassNumber, columns::kItemClassName, columns::kLossAccountNumber,
                columns::kReserveAccountNumber, columns::kPercentage});
  state.headersMixed = true;
  while (!members.AtEnd()) {
    fields.Set(0, header.number);
    fields.Set(1, header.name);
    fields.Set(2, header.lossAccount);
    fields.Set(3, header.reserveAccount);
    fields.Set(4, header.percentage);
    members.Update();
    members.MoveNext();
  }
  state.headersMixed = false;
}

// The id of the account whose number is the leading number of `text`: the suite looks accounts up
// by the number. A failure is described as `failed` on that number.
std::int32_t AccountId(ObjectFactory& factory, std::u16string_view failed,
                       const std::u16string& text) {
  const std::u16string number = NumberText(LeadingNumber(text));
  return RunSaveStep(failed, number, [&] {
    Connection connection(factory);
    const Recordset account = connection.Execute(statements::AccountId(number));
    account.MoveFirst();
    return RoundToInt32(LeadingNumber(ToText(account.Field(columns::kAccountId))));
  });
}

// Equality; faster on long columns than comparing characters.
bool SameBytes(std::u16string_view left, std::u16string_view right) {
  return left.size() == right.size() &&
         (left.empty() ||
          std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0);
}

// The text after the item's id in a row. The members of a class nearly always have the same
// columns, so the text of the row before is used again.
class SharedEnd {
 public:
  // Both must outlive the object.
  SharedEnd(std::u16string_view lossAccountId, std::u16string_view reserveAccountId)
      : lossAccountId_(lossAccountId), reserveAccountId_(reserveAccountId) {}

  // The end for the reader's row, whose class columns follow the first; valid until the next call.
  std::u16string_view Of(RowReader& rows) {
    bool same = !text_.empty();
    for (std::size_t i = 0; i < kTexts; ++i) {
      const std::u16string_view text = CellText(rows.Field(i + 1), scratch_);
      if (SameBytes(texts_[i], text)) continue;
      texts_[i] = text;
      same = false;
    }
    const CellView percentage = rows.Field(kTexts + 1);
    if (percentage.kind != percentage_.kind || percentage.number != percentage_.number ||
        percentage.kind == CellView::Kind::Text) {
      percentageText_ = CellText(percentage, scratch_);
      percentage_ = {percentage.kind, percentage.number};
      same = false;
    }
    if (!same) {
      text_ = statements::SaveInsertEnd({texts_[0], texts_[1], lossAccountId_, texts_[2],
                                         reserveAccountId_, texts_[3], percentageText_});
    }
    return text_;
  }

 private:
  // Class number and name, loss and reserve account number.
  static constexpr std::size_t kTexts = 4;

  std::u16string_view lossAccountId_;
  std::u16string_view reserveAccountId_;
  std::u16string texts_[kTexts];
  CellView percentage_;
  std::u16string percentageText_;
  std::u16string scratch_;
  std::u16string text_;
};

}  // namespace

std::u16string SaveText(const FormState& state) {
  const std::u16string lossId = NumberText(state.lossAccountId);
  const std::u16string reserveId = NumberText(state.reserveAccountId);
  std::u16string text = statements::SaveDelete(state.openingNumber);
  RowReader rows(state.memberList, {columns::kItemId, columns::kItemClassNumber,
                                    columns::kItemClassName, columns::kLossAccountNumber,
                                    columns::kReserveAccountNumber, columns::kPercentage});
  std::u16string itemId;
  SharedEnd end(lossId, reserveId);
  bool first = true;
  while (rows.Next()) {
    const std::u16string_view id = CellText(rows.Field(0), itemId);
    const std::u16string_view rest = end.Of(rows);
    const std::size_t before = text.size();
    statements::AppendSaveInsert(text, id, rest);
    if (!std::exchange(first, false)) continue;
    // Nearly all rows are as long as the first; its id may be shorter than others.
    constexpr std::size_t kLongerId = 4;
    const auto count = static_cast<std::size_t>(std::max(RowCountOf(state.memberList), 1));
    text.reserve(before + count * (text.size() - before + kLongerId));
  }
  return text;
}

std::optional<std::u16string> SaveClass(FormContext& form) {
  FormState& state = form.state;
  ObjectFactory& factory = form.environment.factory;
  const TypedHeader header = ReadHeader(form.view);
  const auto failure = CheckData(state, header, factory);
  // Each call to the suite may run messages in which the form ends and releases its state.
  if (form.HasEnded()) return std::nullopt;
  if (failure) {
    if (!failure->keepsSavedFlag) state.saved = false;
    form.environment.messages.Inform(failure->message);
    if (failure->field) form.view.Focus(*failure->field);
    return std::nullopt;
  }
  state.saved = true;
  RunSaveStep(u"更新物料失败，物料类别代码：", header.number,
              [&] { UpdateHeaders(state, header); });
  Recordset copy = CopyList(factory, state.memberList);
  if (form.HasEnded()) return std::nullopt;
  state.keptCopy = std::move(copy);
  state.memberList.MoveFirst();
  const std::int32_t lossAccountId =
      AccountId(factory, u"查找存货跌价损失科目失败，科目代码：", header.lossAccount);
  if (form.HasEnded()) return std::nullopt;
  state.lossAccountId = lossAccountId;
  const std::int32_t reserveAccountId =
      AccountId(factory, u"查找存货跌价准备科目失败，科目代码：", header.reserveAccount);
  if (form.HasEnded()) return std::nullopt;
  state.reserveAccountId = reserveAccountId;
  state.savedValues = static_cast<const ClassHeader&>(header);
  RunSaveStep(u"写入物料类别失败，物料类别代码：", header.number,
              [&] { Connection(factory).Run(SaveText(state)); });
  return header.number;
}

}  // namespace pricedown
